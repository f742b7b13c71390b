// Tooltips that show their texts as they stand.
#pragma once

#include <QObject>

namespace tvx::qt {

/// Keeps the toolkit from taking a tooltip for markup: a person's memo or name would come with letters left
/// out, or with a picture from somewhere. Works for every widget while it is the application's event filter.
class PlainTips : public QObject {
    Q_OBJECT
  public:
    using QObject::QObject;
    bool eventFilter(QObject* object, QEvent* event) override;
};

} // namespace tvx::qt
