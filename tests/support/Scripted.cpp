#include "support/Scripted.h"

#include "platform/basic/Text.h"

#include <gtest/gtest.h>

#include <ostream>

namespace tvx::test {
namespace {

template <typename T>
T Next(std::deque<T>& script, const std::string& what) {
    if (script.empty()) {
        ADD_FAILURE() << "nobody scripted this " << what;
        return {};
    }
    T next = std::move(script.front());
    script.pop_front();
    return next;
}

} // namespace

std::ostream& operator<<(std::ostream& out, const ShownBox& box) {
    return out << "box of style " << box.style << " titled \"" << box.title << "\": \"" << box.text << "\"";
}

ScriptedPrompt::~ScriptedPrompt() {
    for (const Expected& missing : expected_) ADD_FAILURE() << "never shown: " << missing.box;
}

void ScriptedPrompt::Expect(const std::string& text, int style, const std::string& title, Answer answer) {
    expected_.push_back({false, {NormalizedLineEnds(text), style, title, {}}, answer});
}

void ScriptedPrompt::WillAnswer(Answer answer) {
    expected_.push_back({true, {}, answer});
}

const ShownBox& ScriptedPrompt::Last() const {
    static const ShownBox none;
    return boxes_.empty() ? none : boxes_.back();
}

Answer ScriptedPrompt::Show(const Message& message) {
    boxes_.push_back({NormalizedLineEnds(message.text), message.style, message.title, message.detail});
    if (expected_.empty() && always_) return *always_;
    if (expected_.empty()) {
        ADD_FAILURE() << "nobody scripted the " << boxes_.back();
        return Answer::Cancel;
    }
    const Expected expected = expected_.front();
    expected_.pop_front();
    if (!expected.any) {
        EXPECT_EQ(boxes_.back(), expected.box);
    }
    return expected.answer;
}

std::optional<std::filesystem::path> ScriptedPrompt::OpenDialog(const FileRequest& request) {
    return Next(opens_, "open dialog " + request.title);
}

std::optional<std::filesystem::path> ScriptedPrompt::SaveDialog(const FileRequest& request) {
    lastSave_ = request;
    return Next(saves_, "save dialog " + request.title);
}

std::optional<ReportFont> ScriptedPrompt::FontDialog(const ReportFont&, const std::string& title) {
    return Next(fonts_, "font dialog " + title);
}

void ScriptedClock::Set(DaySerial today, int hour, int minute, int second) {
    today_ = today;
    seconds_ = hour * 3600 + minute * 60 + second;
}

double ScriptedClock::Look() const {
    seconds_ += 0.001;
    if (seconds_ >= 86400) seconds_ -= 86400;
    return seconds_;
}

std::string ScriptedRegion::ShortDate(DaySerial serial) const {
    switch (order_) {
    case DateOrder::MonthDayYear:
        return FormatDate(serial, "m/d/yyyy", Names());
    case DateOrder::DayMonthYear:
        return FormatDate(serial, "d/m/yyyy", Names());
    case DateOrder::YearMonthDay:
        break;
    }
    return FormatDate(serial, "yyyy-mm-dd", Names());
}

std::string ScriptedRegion::LongDate(DaySerial serial) const {
    return Names().weekdays[static_cast<std::size_t>(Weekday(serial))] + ", " +
           FormatDate(serial, "mmmm d, yyyy", Names());
}

} // namespace tvx::test
