#include "desktop/Form.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QScreen>
#include <QTimer>

#include <algorithm>

namespace tvx::qt {
namespace {

/// The Tab key comes to the chosen one of a group of options, also when the program chose it.
void MakeTabStop(QRadioButton& chosen) {
    for (QRadioButton* option :
         chosen.parentWidget()->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly))
        option->setFocusPolicy(option == &chosen ? Qt::StrongFocus : Qt::ClickFocus);
}

} // namespace

Form::Form(Ports& ports, const char* designerName, Form* owner)
    : QWidget(owner, Qt::Window), ports_(ports), owner_(owner), face_(new QWidget(this)) {
    setObjectName(QLatin1String(designerName));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(face_, 1);
    connect(this, &QWidget::windowTitleChanged, face_, &QWidget::setAccessibleName);
}

Form::~Form() {
    // The controls go later than this part of the form, and the focus moves as they go.
    QObject::disconnect(focusMoves_);
}

QMenuBar& Form::Menus() {
    if (menus_ == nullptr) {
        menus_ = new QMenuBar(this);
        layout()->setMenuBar(menus_);
    }
    return *menus_;
}

void Form::Name(QWidget& control, const char* name, const std::string& accessible) {
    control.setObjectName(QString::fromUtf8(name));
    if (!accessible.empty()) control.setAccessibleName(ToQString(accessible).trimmed());
    // Assistive tools call a combo box by what it shows; what it is for must still reach them.
    if (qobject_cast<QComboBox*>(&control) != nullptr)
        control.setAccessibleDescription(control.accessibleName());
    if (auto* box = qobject_cast<TextBox*>(&control)) box->onUnsettled = [this, box] { SettleSoon(*box); };
    if (auto* option = qobject_cast<QRadioButton*>(&control))
        connect(option, &QRadioButton::toggled, option, [option](bool chosen) {
            if (chosen) MakeTabStop(*option);
        });
}

QVBoxLayout& Form::Column() {
    auto* column = new QVBoxLayout(face_);
    column->setContentsMargins(Pixels(240), Pixels(180), Pixels(240), Pixels(180));
    column->setSpacing(Pixels(120));
    return *column;
}

QVBoxLayout& Form::ColumnIn(QBoxLayout& row) {
    auto* column = new QVBoxLayout;
    row.addLayout(column);
    return *column;
}

QHBoxLayout& Form::Row(QBoxLayout& column) {
    auto* row = new QHBoxLayout;
    column.addLayout(row);
    return *row;
}

Frame& Form::AddFrame(const char* name, const std::string& title, QBoxLayout& into, const std::string& hint) {
    auto& frame = Add<Frame>(name, title);
    frame.SetTitle(title);
    if (!hint.empty()) SetHint(frame, hint);
    into.addWidget(&frame);
    return frame;
}

Label& Form::AddLabel(const char* name, const std::string& text, QBoxLayout& into, QWidget* parent) {
    auto& label = Add<Label>(name, "", parent);
    label.SetText(text);
    into.addWidget(&label);
    return label;
}

QGridLayout& Form::Lines(QWidget& frame) {
    if (frame.layout() == nullptr) new QGridLayout(&frame);
    return *static_cast<QGridLayout*>(frame.layout());
}

QCheckBox& Form::AddCheck(const char* name, const std::string& caption, QWidget& frame, bool checked) {
    auto& check = Add<QCheckBox>(name, caption, &frame);
    check.setText(PlainCaption(caption));
    check.setChecked(checked);
    QGridLayout& grid = Lines(frame);
    grid.addWidget(&check, grid.rowCount(), 0);
    return check;
}

void Form::LayInColumns(const ControlArray<QRadioButton>& options, QWidget& frame, int columns) {
    QGridLayout& grid = Lines(frame);
    const int lines = (static_cast<int>(options.Count()) + columns - 1) / columns;
    int place = 0;
    for (const auto& [index, option] : options) {
        grid.addWidget(option, place % lines, place / lines);
        ++place;
    }
}

QPushButton& Form::AddButton(const char* name, const char* caption, QLayout& row, QWidget* parent) {
    auto& button = Add<QPushButton>(name, "", parent);
    button.setText(QString::fromUtf8(caption));
    row.addWidget(&button);
    return button;
}

QPushButton& Form::AddCommand(const ButtonCommand& command, QBoxLayout& row, QWidget* parent) {
    QPushButton& button = AddButton(command.name, command.caption, row, parent);
    OnCommand(button, command.role, command.act);
    return button;
}

void Form::AddCommands(QBoxLayout& column, const std::vector<ButtonCommand>& left,
                       const std::vector<ButtonCommand>& right) {
    QHBoxLayout& row = Row(column);
    for (const ButtonCommand& command : left) AddCommand(command, row);
    row.addStretch();
    for (const ButtonCommand& command : right) AddCommand(command, row);
}

void Form::OnCommand(QAbstractButton& button, Role role, std::function<void()> act) {
    const bool settles = role == Role::Plain || role == Role::Default;
    On(button, &QAbstractButton::clicked, [this, settles, act = std::move(act)] {
        if (!settles || Settle()) act();
    });
    if (role == Role::Default) SetDefaultButton(button);
    if (role == Role::Cancel) SetCancelButton(button);
    if (role == Role::Help) SetHelpButton(button);
}

void Form::FixSize(Twips width, Twips height) {
    if (width > 0 && height > 0) {
        setFixedSize(Pixels(width), Pixels(height));
    } else {
        if (width > 0) setFixedWidth(std::max(Pixels(width), minimumSizeHint().width()));
        adjustSize();
        setFixedSize(size());
    }
    CenterForm();
}

// ---- boxes that come to rest ----

bool Form::Settle() {
    const QPointer<TextBox> left = std::exchange(left_, nullptr);
    auto* focused = qobject_cast<TextBox*>(focusWidget());
    if (left != nullptr && left != focused && !left->Settle()) return false;
    return focused == nullptr || focused->Settle();
}

/// A box is not shown while the focus is on its way: it would swallow the click or the key that moves it.
void Form::SettleSoon(TextBox& box) {
    left_ = &box;
    QTimer::singleShot(0, this, [this] { SettleLeft(); });
}

void Form::SettleLeft() {
    constexpr int Patience = 20; // milliseconds
    if (left_ == nullptr) return;
    if (IsButtonDown()) { // its command, should it come to one, settles the box first
        QTimer::singleShot(Patience, this, [this] { SettleLeft(); });
        return;
    }
    TextBox* box = std::exchange(left_, nullptr);
    if (isVisible() && !box->hasFocus()) Guarded([box] { box->Settle(); })();
}

bool Form::IsButtonDown() const {
    const auto buttons = findChildren<QAbstractButton*>();
    return std::any_of(buttons.begin(), buttons.end(), [](const auto* button) { return button->isDown(); });
}

void Form::Place(QWidget& control, Twips left, Twips top, Twips width, Twips height) {
    control.setGeometry(
        QRect(QPoint(Pixels(left), Pixels(top)), QPoint(Pixels(left + width) - 1, Pixels(top + height) - 1)));
}

void Form::CenterForm() {
    const ScreenSize screen = ports_.screen.Size();
    const QSize form = frameGeometry().size();
    const QPoint place(Pixels((screen.ScreenWidth - ToTwips(form.width())) / 2),
                       Pixels((screen.ScreenHeight - ToTwips(form.height())) / 2));
    move(QGuiApplication::primaryScreen()->geometry().topLeft() + place);
}

/// Loads and shows the form; false when it stays away.
bool Form::Open() {
    unloading_ = false;
    if (!opened_) opened_ = Guarded([this] { return Opened(); })();
    if (!opened_) return false;
    show();
    raise();
    activateWindow();
    return true;
}

bool Form::ShowModeless() {
    return Open();
}

void Form::ShowModal() {
    QEventLoop loop;
    setWindowModality(Qt::ApplicationModal);
    modalLoop_ = &loop;
    const bool opened = Open();
    // What runs while it shows may have unloaded the form already.
    if (opened && modalLoop_ != nullptr) loop.exec();
    modalLoop_ = nullptr;
    if (owner_ == nullptr) return;
    owner_->activateWindow();
    Guarded([this] { owner_->CameBack(); })();
}

void Form::Unload() {
    unloading_ = true;
    close();
}

void Form::closeEvent(QCloseEvent* event) {
    const bool leave = unloading_ || Guarded([this] { return MayUnload(); })();
    if (leave) opened_ = false;
    event->setAccepted(leave);
}

void Form::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (modalLoop_ == nullptr || event->spontaneous()) return;
    QEventLoop* loop = std::exchange(modalLoop_, nullptr);
    loop->quit();
}

/// The button in focus, or else the default one.
QAbstractButton* Form::ButtonOfEnter() const {
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    return focused != nullptr ? focused : defaultButton_;
}

QAbstractButton* Form::ButtonOfKey(int key) const {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return ButtonOfEnter();
    case Qt::Key_Escape:
        return cancelButton_;
    case Qt::Key_F1:
        return helpButton_;
    default:
        return nullptr;
    }
}

/// Opens the first menu that can be opened; the arrows lead to the others. False when there is none.
bool Form::OpenMenus() {
    if (menus_ == nullptr) return false;
    const QList<QAction*> entries = menus_->actions();
    const auto first = std::find_if(entries.begin(), entries.end(), [](const QAction* entry) {
        return entry->isEnabled() && entry->isVisible() && entry->menu() != nullptr;
    });
    if (first == entries.end()) return false;
    menus_->setActiveAction(*first);
    return true;
}

void Form::keyPressEvent(QKeyEvent* event) {
    QAbstractButton* button = ButtonOfKey(event->key());
    if (button != nullptr && button->isEnabled() && button->isVisible())
        button->click();
    else if (event->key() != Qt::Key_F10 || !OpenMenus())
        QWidget::keyPressEvent(event);
}

void Form::SetHint(QWidget& control, const std::string& hint) {
    if (hints_.empty())
        focusMoves_ = connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
            if (now != nullptr && isAncestorOf(now)) ShowHint(HintOf(now));
        });
    hints_[&control] = hint;
    control.installEventFilter(this);
}

/// The hint of a control, or of the nearest one that it stands on.
std::string Form::HintOf(const QObject* control) const {
    for (; control != nullptr && control != this; control = control->parent())
        if (const auto hint = hints_.find(control); hint != hints_.end()) return hint->second;
    return "";
}

bool Form::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Enter) ShowHint(HintOf(object));
    if (event->type() == QEvent::Leave) ShowHint(HintOf(object->parent()));
    return QWidget::eventFilter(object, event);
}

} // namespace tvx::qt
