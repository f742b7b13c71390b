#include "desktop/PlainTips.h"

#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>

namespace tvx::qt {

bool PlainTips::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QObject::eventFilter(object, event);
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr || !Qt::mightBeRichText(widget->toolTip())) return false;
    // The tip's label takes such a text for markup however it is told, so it gets the markup of the text.
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       Qt::convertFromPlainText(widget->toolTip(), Qt::WhiteSpacePre), widget, {},
                       widget->toolTipDuration());
    return true;
}

} // namespace tvx::qt
