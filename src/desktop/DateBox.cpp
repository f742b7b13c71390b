#include "desktop/DateBox.h"

#include "platform/basic/Text.h"

namespace tvx::qt {

DateBox::DateBox(QWidget* parent) : TextBox(parent) {
    rest = [this] { return ReadText(); };
}

void DateBox::SetDate(std::optional<DaySerial> date) {
    date_ = date;
    shown_ = date ? write(*date) : "";
    SetText(shown_);
}

std::optional<DaySerial> DateBox::Date() const {
    return Text() == shown_ ? date_ : std::nullopt;
}

std::optional<DaySerial> DateBox::DateSoFar() const {
    const std::string typed = Text();
    return typed == shown_ ? date_ : read(typed);
}

bool DateBox::ReadText() {
    const std::string typed = Text();
    if (typed == shown_) return true;
    const bool blank = Trim(typed).empty();
    const auto date = blank ? std::nullopt : read(typed);
    if (!blank && !date) return false;
    SetDate(date);
    return true;
}

} // namespace tvx::qt
