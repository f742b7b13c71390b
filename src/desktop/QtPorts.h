// The ports on the desktop.
#pragma once

#include "platform/ports/Ports.h"

#include <QApplication>
#include <QLocale>
#include <QPointer>
#include <QSocketNotifier>

#include <filesystem>
#include <memory>

namespace tvx::qt {

class HelpWindow;

class QtPrompt : public Prompt {
  public:
    Answer Show(const Message& message) override;
    std::optional<std::filesystem::path> OpenDialog(const FileRequest& request) override;
    std::optional<std::filesystem::path> SaveDialog(const FileRequest& request) override;
    std::optional<ReportFont> FontDialog(const ReportFont& present, const std::string& title) override;
    void Beep() override;
    void MousePointer(Pointer shape) override;
    void DoEvents() override;

  private:
    bool overridden_ = false;
};

class QtClock : public Clock {
  public:
    DaySerial Today() const override;
    int SecondOfDay() const override;
    double Timer() const override;
};

/// The desktop's country and language; the plain "C" setting counts as United States English.
class QtRegion : public Region {
  public:
    explicit QtRegion(const QLocale& locale = QLocale::system());
    const CalendarNames& Names() const override { return names_; }
    std::string Language() const override { return locale_.bcp47Name().toStdString(); }
    int DecimalSign() const override { return locale_.decimalPoint().at(0).unicode(); }
    DateOrder ShortDateOrder() const override { return order_; }
    std::string ShortDate(DaySerial serial) const override;
    std::string LongDate(DaySerial serial) const override;

  private:
    QLocale locale_;
    CalendarNames names_;
    DateOrder order_;
};

/// The main screen without the desktop's bars.
class QtScreen : public ScreenInfo {
  public:
    Twips Width() const override;
    Twips Height() const override;
};

/// One run for each program folder and user, which holds a lock on a file of the session, whatever stands in
/// it. The run that holds it hears the others, and then brings its windows to the front.
class QtInstance : public RunningInstance {
  public:
    explicit QtInstance(const std::filesystem::path& programFolder);
    ~QtInstance() override;
    QtInstance(const QtInstance&) = delete;
    QtInstance& operator=(const QtInstance&) = delete;
    bool Claim() override;
    void RaiseOther() override;

  private:
    void Listen();
    std::string mark_; // path of the files of the session without their endings
    int lock_ = -1;
    int calls_ = -1;
    std::unique_ptr<QSocketNotifier> heard_;
};

/// Brings every window of the program to the front, minimised ones included, the one that waits for an answer
/// before the others.
void RaiseWindows();

/// Help topics are pages of a folder, "170.html" for topic 170; "index.html" is the contents.
class QtHelp : public HelpViewer {
  public:
    explicit QtHelp(std::filesystem::path folder) : folder_(std::move(folder)) {}
    ~QtHelp() override;
    void ShowTopic(int topic) override;

  private:
    void OpenBeside(QWidget* form);

    std::filesystem::path folder_;
    QPointer<HelpWindow> window_;
};

/// A day serial as Qt's date, and back.
QDate ToQDate(DaySerial serial);
DaySerial FromQDate(const QDate& date);

/// The look that every window shares: one font, one style. Call once, after the application exists.
void SetUpLook();

} // namespace tvx::qt
