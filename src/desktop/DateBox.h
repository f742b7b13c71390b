// A box for a date: what is typed, and the day that stands behind it.
#pragma once

#include "desktop/TextBox.h"
#include "platform/basic/Date.h"

namespace tvx::qt {

/// Typed text is read when the box settles; blank text is no date, and no error. What the program put in is
/// never read back, so that a date survives whatever its text looks like.
class DateBox : public TextBox {
    Q_OBJECT
  public:
    explicit DateBox(QWidget* parent = nullptr);

    /// A text as a date; nothing when it is none. The box refuses it then.
    std::function<std::optional<DaySerial>(const std::string&)> read;
    /// A date as the box shows it.
    std::function<std::string(DaySerial)> write;

    /// Shows a date, or an empty box.
    void SetDate(std::optional<DaySerial> date);
    /// The date behind the text, once the box is settled; nothing when it is empty.
    std::optional<DaySerial> Date() const;
    /// The date that the text comes to while it is being typed; nothing when it is empty or none.
    std::optional<DaySerial> DateSoFar() const;

  private:
    bool ReadText();

    std::optional<DaySerial> date_;
    std::string shown_; // the text of date_
};

} // namespace tvx::qt
