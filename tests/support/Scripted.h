// The ports as a test plays them: a person whose answers are written down beforehand, a clock that stands
// still until it is moved, a country of the test's choice.
#pragma once

#include "platform/ports/Gauge.h"
#include "platform/ports/Ports.h"
#include "store/StoreTeller.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace tvx::test {

/// A box that was shown.
struct ShownBox {
    std::string text; // line ends as LF
    int style = 0;
    std::string title;
    std::string detail = {}; // said apart; no part of a comparison

    friend bool operator==(const ShownBox& a, const ShownBox& b) {
        return a.text == b.text && a.style == b.style && a.title == b.title;
    }
};
std::ostream& operator<<(std::ostream& out, const ShownBox& box);

/// Fails the test on a box or dialog that nobody scripted, and at its end on one that never came.
class ScriptedPrompt : public Prompt {
  public:
    ~ScriptedPrompt() override;

    /// The next box is this one, and is answered so. Texts and titles are compared.
    void Expect(const std::string& text, int style, const std::string& title, Answer answer = Answer::Ok);
    /// The next box is answered so, whatever it says; look at Boxes() afterwards.
    void WillAnswer(Answer answer);
    /// From now on every box that nobody scripted is answered so; for tests that do not know what will come.
    void AlwaysAnswer(Answer answer) { always_ = answer; }
    void WillOpen(std::optional<std::filesystem::path> file) { opens_.push_back(std::move(file)); }
    void WillSaveTo(std::optional<std::filesystem::path> file) { saves_.push_back(std::move(file)); }
    void WillChoose(std::optional<ReportFont> font) { fonts_.push_back(std::move(font)); }
    /// Runs at every DoEvents.
    void WhenEventsRun(std::function<void()> what) { onEvents_ = std::move(what); }

    const std::vector<ShownBox>& Boxes() const { return boxes_; }
    const ShownBox& Last() const;
    int Beeps() const { return beeps_; }
    Pointer Shape() const { return shape_; }

    /// What the last save dialog asked for.
    const FileRequest& LastSave() const { return lastSave_; }

    Answer Show(const Message& message) override;
    std::optional<std::filesystem::path> OpenDialog(const FileRequest& request) override;
    std::optional<std::filesystem::path> SaveDialog(const FileRequest& request) override;
    std::optional<ReportFont> FontDialog(const ReportFont& present, const std::string& title) override;
    void Beep() override { ++beeps_; }
    void MousePointer(Pointer shape) override { shape_ = shape; }
    void DoEvents() override {
        if (onEvents_) onEvents_();
    }

  private:
    struct Expected {
        bool any = false;
        ShownBox box;
        Answer answer = Answer::Ok;
    };
    std::deque<Expected> expected_;
    std::optional<Answer> always_;
    std::deque<std::optional<std::filesystem::path>> opens_;
    std::deque<std::optional<std::filesystem::path>> saves_;
    FileRequest lastSave_;
    std::deque<std::optional<ReportFont>> fonts_;
    std::vector<ShownBox> boxes_;
    std::function<void()> onEvents_;
    int beeps_ = 0;
    Pointer shape_ = Pointer::Default;
};

/// Each look at the timer takes a millisecond, so that waits end.
class ScriptedClock : public Clock {
  public:
    /// A day serial and a time of day.
    void Set(DaySerial today, int hour = 9, int minute = 0, int second = 0);

    DaySerial Today() const override { return today_; }
    int SecondOfDay() const override { return static_cast<int>(Look()); }
    double Timer() const override { return Look(); }

  private:
    double Look() const;
    DaySerial today_ = 46086; // 5 March 2026, a Thursday
    mutable double seconds_ = 9 * 3600;
};

class ScriptedRegion : public Region {
  public:
    explicit ScriptedRegion(DateOrder order = DateOrder::MonthDayYear) : order_(order) {}
    int decimalSign = '.';
    const CalendarNames& Names() const override { return EnglishNames(); }
    std::string Language() const override { return "en"; }
    int DecimalSign() const override { return decimalSign; }
    DateOrder ShortDateOrder() const override { return order_; }
    std::string ShortDate(DaySerial serial) const override;
    std::string LongDate(DaySerial serial) const override;

  private:
    DateOrder order_;
};

class ScriptedScreen : public ScreenInfo {
  public:
    Twips width = 1920 * 15;
    Twips height = 1080 * 15;
    Twips Width() const override { return width; }
    Twips Height() const override { return height; }
};

class ScriptedInstance : public RunningInstance {
  public:
    bool another = false;
    int raised = 0;
    bool Claim() override { return !another; }
    void RaiseOther() override { ++raised; }
};

class ScriptedHelp : public HelpViewer {
  public:
    std::vector<int> topics;
    void ShowTopic(int topic) override { topics.push_back(topic); }
};

class ScriptedGauge : public Gauge {
  public:
    std::vector<int> floods;
    bool visible = false;
    bool wasVisible = false;
    void Ended(bool) override {}
    void Show(bool show) override {
        visible = show;
        wasVisible = wasVisible || show;
    }
    void Flood(int percent) override { floods.push_back(percent); }
};

/// All ports together.
struct ScriptedPorts {
    ScriptedPrompt prompt;
    ScriptedClock clock;
    ScriptedRegion region;
    ScriptedHelp help;
    ScriptedScreen screen;
    ScriptedInstance instance;
    StoreTeller teller{prompt};
    Ports ports{prompt, clock, region, help, screen, instance, teller};
};

} // namespace tvx::test
