#include "support/Usability.h"

#include "desktop/Controls.h"
#include "desktop/Parts.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEnterEvent>
#include <QInputMethodEvent>
#include <QKeySequence>
#include <QMimeData>
#include <QRadioButton>
#include <QTest>

#include <algorithm>
#include <map>

namespace tvx::test {
namespace {

std::string NameOf(const QWidget& control) {
    return control.objectName().toStdString();
}

template <typename Control>
std::vector<Control*> Visible(const QWidget& form) {
    std::vector<Control*> found;
    for (Control* control : form.findChildren<Control*>())
        if (control->isVisibleTo(&form)) found.push_back(control);
    return found;
}

/// Parts of a control that Qt makes itself have no designer name, or one of Qt's.
bool IsOurs(const QWidget& control) {
    return !control.objectName().isEmpty() && !control.objectName().startsWith(QLatin1String("qt_"));
}

/// Stands inside a control of ours, made by Qt: the viewport of a list, the popup of a combo box.
bool IsPartOfAnother(const QWidget& control) {
    if (IsOurs(control)) return false;
    const QWidget* holder = control.parentWidget();
    while (holder != nullptr && !IsOurs(*holder)) holder = holder->parentWidget();
    return holder != nullptr && holder->focusPolicy() != Qt::NoFocus;
}

/// Called by the program, or by its caption.
bool HasOwnName(const QWidget& control) {
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return !control.accessibleName().isEmpty() || (button != nullptr && !button->text().trimmed().isEmpty());
}

QString Plain(QString caption) {
    const QChar kept(1);
    caption.replace(QLatin1String("&&"), QString(kept)).remove(QLatin1Char('&'));
    return caption.replace(kept, QLatin1Char('&'));
}

bool Fits(const QWidget& control, const QString& text, int width) {
    return control.fontMetrics().horizontalAdvance(text.trimmed()) <= width;
}

bool LabelFits(const qt::Label& label) {
    const QString text = label.text();
    if (!label.wordWrap()) return Fits(label, text, label.width());
    const QRect room(0, 0, label.width(), 10000);
    const QRect needed = label.fontMetrics().boundingRect(room, Qt::TextWordWrap, text);
    return needed.height() <= label.height() && needed.width() <= label.width();
}

} // namespace

std::vector<std::string> TabOrder(QWidget& form) {
    std::vector<std::string> order;
    for (int guard = 0; guard < 100 && form.focusWidget() != nullptr; ++guard) {
        const std::string name = NameOf(*form.focusWidget());
        if (std::find(order.begin(), order.end(), name) != order.end()) break;
        order.push_back(name);
        QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
    }
    return order;
}

std::string SpokenName(QWidget& control) {
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&control);
    return spoken == nullptr ? "" : spoken->text(QAccessible::Name).toStdString();
}

std::string Obstacles(QWidget& form) {
    std::string wrong;
    std::map<QString, std::string> letters;
    for (QWidget* control : Visible<QWidget>(form)) {
        if (control->focusPolicy() != Qt::NoFocus && IsOurs(*control) && SpokenName(*control).empty())
            wrong += "no name: " + NameOf(*control) + "\n";
        const auto* button = qobject_cast<QAbstractButton*>(control);
        const QString letter =
            button != nullptr ? QKeySequence::mnemonic(button->text()).toString() : QString();
        if (letter.isEmpty()) continue;
        if (const auto [other, first] = letters.emplace(letter, NameOf(*control)); !first)
            wrong += letter.toStdString() + " works " + other->second + " and " + NameOf(*control) + "\n";
    }
    return wrong;
}

std::string Nameless(QWidget& form) {
    std::string wrong;
    for (QWidget* control : form.findChildren<QWidget*>())
        if (control->focusPolicy() != Qt::NoFocus && !IsPartOfAnother(*control) && !HasOwnName(*control))
            wrong += std::string(control->metaObject()->className()) + " " + NameOf(*control) + "\n";
    return wrong;
}

std::string NamelessHolders(QWidget& form) {
    std::string nameless;
    for (QWidget* holder : Visible<QWidget>(form)) {
        const bool ground = holder->metaObject() == &QWidget::staticMetaObject ||
                            holder->inherits("QAbstractScrollArea") || qobject_cast<qt::Group*>(holder);
        const bool holds = !holder->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly).isEmpty();
        if (holder != &form && ground && holds && SpokenName(*holder).empty())
            nameless += holder->metaObject()->className() + (" " + NameOf(*holder)) + "\n";
    }
    return nameless;
}

std::string CutTexts(QWidget& form) {
    std::string cut;
    const auto check = [&](bool fits, const QWidget& control, const QString& text) {
        if (!fits) cut += NameOf(control) + ": " + text.toStdString() + "\n";
    };
    for (const auto* label : Visible<qt::Label>(form)) check(LabelFits(*label), *label, label->text());
    for (const auto* frame : Visible<QGroupBox>(form))
        check(Fits(*frame, Plain(frame->title()), frame->width()), *frame, frame->title());
    for (const auto* button : Visible<QPushButton>(form))
        check(Fits(*button, Plain(button->text()), button->width() - 8), *button, button->text());
    for (const auto* option : Visible<QRadioButton>(form))
        check(option->sizeHint().width() <= option->width(), *option, option->text());
    return cut;
}

void TypeAny(QWidget& control, const std::string& text) {
    for (const auto c : qt::ToQString(text).toUcs4()) {
        const auto code = static_cast<char32_t>(c);
        const QString character = QString::fromUcs4(&code, 1);
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, 0, Qt::NoModifier, character);
            QApplication::sendEvent(&control, &event);
        }
    }
}

void Paste(QWidget& control, const std::string& text) {
    QApplication::clipboard()->setText(qt::ToQString(text));
    QTest::keySequence(&control, QKeySequence(QKeySequence::Paste));
}

void Drop(QWidget& control, const std::string& text) {
    QMimeData data;
    data.setText(qt::ToQString(text));
    QDragEnterEvent enter(control.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&control, &enter);
    QDropEvent event(control.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&control, &event);
}

void Compose(QWidget& control, const std::string& text) {
    QInputMethodEvent event;
    event.setCommitString(qt::ToQString(text));
    QApplication::sendEvent(&control, &event);
}

void Hover(QWidget& control) {
    const QPointF middle = control.rect().center();
    QEnterEvent event(middle, middle, control.mapToGlobal(middle));
    QApplication::sendEvent(&control, &event);
}

void Unhover(QWidget& control) {
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&control, &event);
}

} // namespace tvx::test
