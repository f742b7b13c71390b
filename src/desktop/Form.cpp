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
#include <QVBoxLayout>

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
    if (auto* option = qobject_cast<QRadioButton*>(&control))
        connect(option, &QRadioButton::toggled, option, [option](bool chosen) {
            if (chosen) MakeTabStop(*option);
        });
}

QPushButton& Form::AddButton(const char* name, const char* caption, QLayout& row, QWidget* parent) {
    auto& button = Add<QPushButton>(name, "", parent);
    button.setText(QLatin1String(caption));
    row.addWidget(&button);
    return button;
}

void Form::Place(QWidget& control, Twips left, Twips top, Twips width, Twips height) {
    control.setGeometry(
        QRect(QPoint(Pixels(left), Pixels(top)), QPoint(Pixels(left + width) - 1, Pixels(top + height) - 1)));
}

void Form::CenterForm() {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    move(screen.left() + (screen.width() - frameGeometry().width()) / 2,
         screen.top() + (screen.height() - frameGeometry().height()) / 2);
}

void Form::Activate() {
    Guarded([this] { Activated(); })();
}

void Form::ShowModeless() {
    unloading_ = false;
    show();
    raise();
    activateWindow();
    Activate();
}

void Form::ShowModal() {
    QEventLoop loop;
    modalLoop_ = &loop;
    setWindowModality(Qt::ApplicationModal);
    ShowModeless();
    // The activation itself may have unloaded the form.
    if (modalLoop_ != nullptr) loop.exec();
    if (owner_ == nullptr) return;
    owner_->activateWindow();
    owner_->Activate();
}

void Form::Unload() {
    unloading_ = true;
    close();
}

void Form::closeEvent(QCloseEvent* event) {
    const bool leave = unloading_ || Guarded([this] { return MayUnload(); })();
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

void Form::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    QAbstractButton* button = enter                            ? ButtonOfEnter()
                              : event->key() == Qt::Key_Escape ? cancelButton_
                                                               : nullptr;
    if (button != nullptr && button->isEnabled() && button->isVisible())
        button->click();
    else
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

void Form::TellTrouble(const std::exception& trouble) {
    ports_.prompt.MousePointer(Pointer::Default);
    ports_.prompt.MsgBox(trouble.what(), box::Stop, "Tarvex");
}

} // namespace tvx::qt
