#include "desktop/QtPorts.h"

#include "desktop/HelpWindow.h"
#include "desktop/LightPalette.h"
#include "desktop/PlainTips.h"
#include "desktop/Scale.h"
#include "platform/basic/Text.h"
#include "platform/files/Folder.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QCryptographicHash>
#include <QDate>
#include <QDir>
#include <QFileDialog>
#include <QFontDialog>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QStandardPaths>
#include <QTime>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace tvx::qt {
namespace {

/// A box with two answers that means to be answered: neither Escape nor the window's cross answers for a
/// person.
class InsistentBox : public QMessageBox {
  public:
    using QMessageBox::QMessageBox;
    bool insists = false;

  protected:
    void closeEvent(QCloseEvent* event) override {
        if (insists)
            event->ignore();
        else
            QMessageBox::closeEvent(event);
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (insists && event->key() == Qt::Key_Escape)
            event->accept();
        else
            QMessageBox::keyPressEvent(event);
    }
};

/// The answer of a box that changes nothing has the focus, and is that of Escape. False where there is none.
bool PreferToChangeNothing(QMessageBox& window) {
    for (const auto answer : {QMessageBox::Cancel, QMessageBox::No})
        if (QAbstractButton* button = window.button(answer)) {
            window.setDefaultButton(answer);
            window.setEscapeButton(button);
            return true;
        }
    return false;
}

/// Widens a box whose title is longer than its text: the title says half of it.
void MakeRoomForTitle(QMessageBox& message) {
    constexpr Twips FrameButtons = 1800;
    QFont bold = message.font();
    bold.setBold(true);
    const int room = QFontMetrics(bold).horizontalAdvance(message.windowTitle()) + Pixels(FrameButtons);
    if (auto* grid = qobject_cast<QGridLayout*>(message.layout()))
        grid->addItem(new QSpacerItem(room, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

/// The text of a box, and below it what it says beyond. Either may hold a name that somebody typed, so they
/// are no markup from the first moment on.
void ShowTexts(QMessageBox& window, const Message& message) {
    window.setTextFormat(Qt::PlainText);
    window.setText(ToQString(NormalizedLineEnds(message.text)));
    if (message.detail.empty()) return;
    window.setInformativeText(QStringLiteral(" ")); // makes its label
    if (auto* label = window.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setTextFormat(Qt::PlainText);
    window.setInformativeText(ToQString(NormalizedLineEnds(message.detail)));
}

QMessageBox::StandardButtons ButtonsOf(int style) {
    switch (style & 7) {
    case box::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case box::AbortRetryIgnore:
        return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    case box::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case box::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case box::RetryCancel:
        return QMessageBox::Retry | QMessageBox::Cancel;
    default:
        return QMessageBox::Ok;
    }
}

QMessageBox::Icon IconOf(int style) {
    switch (style & 0x70) {
    case box::Stop:
        return QMessageBox::Critical;
    case box::Question:
        return QMessageBox::Question;
    case box::Exclamation:
        return QMessageBox::Warning;
    case box::Information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

Answer AnswerOf(int button) {
    switch (button) {
    case QMessageBox::Ok:
        return Answer::Ok;
    case QMessageBox::Abort:
        return Answer::Abort;
    case QMessageBox::Retry:
        return Answer::Retry;
    case QMessageBox::Ignore:
        return Answer::Ignore;
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

Qt::CursorShape CursorOf(Pointer shape) {
    switch (shape) {
    case Pointer::Cross:
        return Qt::CrossCursor;
    case Pointer::IBeam:
        return Qt::IBeamCursor;
    case Pointer::SizeAll:
        return Qt::SizeAllCursor;
    case Pointer::SizeNorthSouth:
        return Qt::SizeVerCursor;
    case Pointer::SizeWestEast:
        return Qt::SizeHorCursor;
    case Pointer::UpArrow:
        return Qt::UpArrowCursor;
    case Pointer::Hourglass:
        return Qt::WaitCursor;
    case Pointer::NoDrop:
        return Qt::ForbiddenCursor;
    default:
        return Qt::ArrowCursor;
    }
}

QString PathText(const fs::path& path) {
    return QString::fromStdU16String(path.u16string());
}

std::optional<fs::path> PathOf(const QString& file) {
    if (file.isEmpty()) return std::nullopt;
    return fs::path(file.toStdU16String());
}

QString FilterOf(const FileRequest& request) {
    if (request.filterPattern.empty()) return {};
    // The pattern of the filter in both cases, for file systems that tell them apart.
    const QString pattern = ToQString(request.filterPattern);
    QString text = ToQString(request.filterText);
    text.truncate(text.indexOf(QLatin1Char('(')) < 0 ? text.size() : text.indexOf(QLatin1Char('(')));
    return text.trimmed() + QLatin1String(" (") + pattern.toLower() + QLatin1Char(' ') + pattern.toUpper() +
           QLatin1Char(')');
}

DateOrder OrderOf(const QLocale& locale) {
    const QString format = locale.dateFormat(QLocale::ShortFormat).toLower();
    const auto day = format.indexOf(QLatin1Char('d'));
    const auto month = format.indexOf(QLatin1Char('m'));
    const auto year = format.indexOf(QLatin1Char('y'));
    if (month >= 0 && month < day && month < year) return DateOrder::MonthDayYear;
    if (day >= 0 && day < month && day < year) return DateOrder::DayMonthYear;
    return DateOrder::YearMonthDay;
}

QLocale Known(const QLocale& locale) {
    return locale.language() == QLocale::C ? QLocale(QLocale::English, QLocale::UnitedStates) : locale;
}

/// A short name without the point that some languages put behind it.
std::string ShortName(const QString& name) {
    return FromQString(name.endsWith(QLatin1Char('.')) ? name.chopped(1) : name);
}

constexpr const char* LockEnding = ".lock";
constexpr const char* CallEnding = ".call";

/// Nothing for a path that is too long for an address.
std::optional<sockaddr_un> AddressOf(const std::string& path) {
    sockaddr_un address{};
    if (path.size() >= sizeof address.sun_path) return std::nullopt;
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, path.size());
    return address;
}

/// A box of a run that shows nothing else would be lost behind the windows of other programs.
bool StandsAlone(const QWidget* owner) {
    return owner == nullptr || owner->windowType() == Qt::SplashScreen;
}

} // namespace

Answer QtPrompt::Show(const Message& message) {
    const int buttons = message.style & 7;
    InsistentBox window(IconOf(message.style), ToQString(message.title), {}, ButtonsOf(message.style),
                        QApplication::activeWindow());
    ShowTexts(window, message);
    if (StandsAlone(window.parentWidget())) window.setWindowFlag(Qt::WindowStaysOnTopHint);
    for (QAbstractButton* button : window.buttons()) button->setIcon({}); // as on every other form
    MakeRoomForTitle(window);
    const bool stops = IconOf(message.style) == QMessageBox::Critical;
    if (!stops || !PreferToChangeNothing(window))
        window.insists = buttons == box::YesNo || buttons == box::AbortRetryIgnore;
    return AnswerOf(window.exec());
}

std::optional<fs::path> QtPrompt::OpenDialog(const FileRequest& request) {
    return PathOf(QFileDialog::getOpenFileName(QApplication::activeWindow(), ToQString(request.title),
                                               PathText(request.folder / request.fileName),
                                               FilterOf(request)));
}

std::optional<fs::path> QtPrompt::SaveDialog(const FileRequest& request) {
    return PathOf(QFileDialog::getSaveFileName(QApplication::activeWindow(), ToQString(request.title),
                                               PathText(request.folder / request.fileName),
                                               FilterOf(request)));
}

std::optional<ReportFont> QtPrompt::FontDialog(const ReportFont& present, const std::string& title) {
    QFont font(ToQString(present.name));
    font.setPointSizeF(present.size);
    font.setBold(present.bold);
    font.setItalic(present.italic);
    bool taken = false;
    const QFont chosen = QFontDialog::getFont(&taken, font, QApplication::activeWindow(), ToQString(title));
    if (!taken) return std::nullopt;
    return ReportFont{FromQString(chosen.family()), chosen.pointSizeF(), chosen.bold(), chosen.italic()};
}

void QtPrompt::Beep() {
    QApplication::beep();
}

void QtPrompt::MousePointer(Pointer shape) {
    if (shape == Pointer::Default) {
        if (overridden_) QApplication::restoreOverrideCursor();
        overridden_ = false;
    } else if (overridden_) {
        QApplication::changeOverrideCursor(CursorOf(shape));
    } else {
        QApplication::setOverrideCursor(CursorOf(shape));
        overridden_ = true;
    }
}

void QtPrompt::DoEvents() {
    QApplication::processEvents();
}

QDate ToQDate(DaySerial serial) {
    return QDate(1899, 12, 30).addDays(serial);
}

DaySerial FromQDate(const QDate& date) {
    return static_cast<DaySerial>(QDate(1899, 12, 30).daysTo(date));
}

DaySerial QtClock::Today() const {
    return FromQDate(QDate::currentDate());
}
int QtClock::SecondOfDay() const {
    return QTime::currentTime().msecsSinceStartOfDay() / 1000;
}
double QtClock::Timer() const {
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

QtRegion::QtRegion(const QLocale& locale) : locale_(Known(locale)), order_(OrderOf(locale_)) {
    for (int month = 1; month <= 12; ++month) {
        names_.months[month] = FromQString(locale_.standaloneMonthName(month, QLocale::LongFormat));
        names_.shortMonths[month] = ShortName(locale_.standaloneMonthName(month, QLocale::ShortFormat));
    }
    names_.shortMonths = ReadableShortMonths(names_);
    for (int day = 1; day <= 7; ++day) {
        const int isoDay = day == 1 ? 7 : day - 1; // Monday is 1 there
        names_.weekdays[day] = FromQString(locale_.standaloneDayName(isoDay, QLocale::LongFormat));
        names_.shortWeekdays[day] = ShortName(locale_.standaloneDayName(isoDay, QLocale::ShortFormat));
    }
}

std::string QtRegion::ShortDate(DaySerial serial) const {
    return FromQString(locale_.toString(ToQDate(serial), QLocale::ShortFormat));
}

std::string QtRegion::LongDate(DaySerial serial) const {
    return FromQString(locale_.toString(ToQDate(serial), QLocale::LongFormat));
}

Twips QtScreen::Width() const {
    return ToTwips(QGuiApplication::primaryScreen()->availableGeometry().width());
}
Twips QtScreen::Height() const {
    return ToTwips(QGuiApplication::primaryScreen()->availableGeometry().height());
}

QtInstance::QtInstance(const fs::path& programFolder) {
    QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (runtime.isEmpty() || !QDir(runtime).exists()) runtime = QDir::tempPath();
    std::error_code ignored;
    const fs::path whole = fs::weakly_canonical(programFolder, ignored);
    const QString mark = PathText(whole) + QLatin1Char('\n') + QString::number(getuid());
    const QByteArray hash = QCryptographicHash::hash(mark.toUtf8(), QCryptographicHash::Sha1).toHex();
    mark_ = (runtime + QLatin1String("/tarvex-") + QString::fromLatin1(hash.left(16))).toStdString();
}

QtInstance::~QtInstance() {
    if (calls_ >= 0) {
        unlink((mark_ + CallEnding).c_str());
        close(calls_);
    }
    if (lock_ >= 0) close(lock_);
}

bool QtInstance::Claim() {
    if (lock_ >= 0) return true;
    const int file =
        open((mark_ + LockEnding).c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW, 0600);
    if (file < 0) return true; // no place to lock: nobody is kept from starting
    if (flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        close(file);
        return false;
    }
    lock_ = file;
    Listen();
    return true;
}

void QtInstance::Listen() {
    const auto address = AddressOf(mark_ + CallEnding);
    if (!address) return;
    unlink(address->sun_path); // of a run that was killed
    calls_ = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (calls_ < 0 || bind(calls_, reinterpret_cast<const sockaddr*>(&*address), sizeof *address) != 0)
        return;
    heard_ = std::make_unique<QSocketNotifier>(calls_, QSocketNotifier::Read);
    QObject::connect(heard_.get(), &QSocketNotifier::activated, heard_.get(), [this] {
        std::array<char, 16> word{};
        while (recv(calls_, word.data(), word.size(), 0) >= 0) continue;
        RaiseWindows();
    });
}

void QtInstance::RaiseOther() {
    const auto address = AddressOf(mark_ + CallEnding);
    const int caller = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (address && caller >= 0)
        sendto(caller, "raise", 5, MSG_NOSIGNAL, reinterpret_cast<const sockaddr*>(&*address),
               sizeof *address);
    if (caller >= 0) close(caller);
}

void RaiseWindows() {
    QWidgetList windows;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog))
            windows.append(window);
    // What belongs to another window lies before it, and what waits for an answer before them all.
    const auto depth = [](const QWidget* window) {
        if (window == QApplication::activeModalWidget()) return 2;
        return window->parentWidget() == nullptr ? 0 : 1;
    };
    std::stable_sort(windows.begin(), windows.end(),
                     [&](const QWidget* a, const QWidget* b) { return depth(a) < depth(b); });
    for (QWidget* window : windows) {
        window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
        window->raise();
    }
    if (!windows.isEmpty()) windows.last()->activateWindow();
}

QtHelp::~QtHelp() {
    delete window_;
}

void QtHelp::ShowTopic(int topic) {
    QWidget* form = QApplication::activeWindow();
    const bool asked = form == window_ && form != nullptr; // the help about the help
    if (window_ == nullptr) window_ = new HelpWindow(folder_);
    window_->ShowPage(std::to_string(topic) + ".html");
    if (!asked) OpenBeside(form);
    window_->show();
    window_->raise();
    window_->activateWindow();
}

void QtHelp::OpenBeside(QWidget* form) {
    // A modal form keeps every other window of the program from the keyboard, but not a child of its own.
    window_->setWindowModality(Qt::NonModal);
    window_->setParent(form, Qt::Dialog);
    if (form == nullptr) return;
    const QRect frame = form->frameGeometry();
    const QSize wanted(Pixels(7200), std::max(Pixels(8400), frame.height()));
    const QRect place = PlaceBeside(frame, form->screen()->availableGeometry(), wanted, Pixels(4800));
    // What is placed is the frame; the title and the rims around the new window are as wide as the form's.
    const QSize rims = frame.size() - form->size();
    window_->move(place.topLeft());
    window_->resize(place.size() - rims);
}

void SetUpLook() {
    QApplication::setStyle(QStringLiteral("Fusion"));
    KeepLightPalette();
    QFont font;
    font.setFamilies(
        {QStringLiteral("Liberation Sans"), QStringLiteral("Arial"), QStringLiteral("Helvetica")});
    font.setPointSizeF(9);
    QApplication::setFont(font);
    qApp->installEventFilter(new PlainTips(qApp));
}

} // namespace tvx::qt
