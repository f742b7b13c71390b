// A titled frame.
#pragma once

#include "desktop/Caption.h"

#include <QGroupBox>

#include <string>

namespace tvx::qt {

class Frame : public QGroupBox {
    Q_OBJECT
  public:
    explicit Frame(QWidget* parent = nullptr) : QGroupBox(parent) {}
    void SetTitle(const std::string& title) { setTitle(PlainCaption(title)); }
};

} // namespace tvx::qt
