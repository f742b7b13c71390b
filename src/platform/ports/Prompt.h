// The one door to the person at the screen: boxes, dialogs, the pointer, waiting.
#pragma once

#include "platform/ports/ReportFont.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tvx {

/// Styles of a message box: one set of buttons plus one icon, added up.
namespace box {
constexpr int Ok = 0;
constexpr int OkCancel = 1;
constexpr int AbortRetryIgnore = 2;
constexpr int YesNoCancel = 3;
constexpr int YesNo = 4;
constexpr int RetryCancel = 5;
constexpr int Stop = 16;
constexpr int Question = 32;
constexpr int Exclamation = 48;
constexpr int Information = 64;
} // namespace box

/// What a person answered, by the number that a box gives back.
enum class Answer { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

/// Shapes of the mouse pointer.
enum class Pointer {
    Default = 0,
    Arrow = 1,
    Cross = 2,
    IBeam = 3,
    SizeAll = 5,
    SizeNorthSouth = 7,
    SizeWestEast = 9,
    UpArrow = 10,
    Hourglass = 11,
    NoDrop = 12,
};

/// What a file dialog asks for.
struct FileRequest {
    std::string title;
    std::string filterText;    // what a person reads: "HTML Web pages (*.htm)"
    std::string filterPattern; // what is shown: "*.HTM"
    std::filesystem::path folder;
    std::string fileName;
};

/// What a box says, and with which buttons and icon.
struct Message {
    std::string text;
    int style = box::Ok; // a sum of the numbers in `box`
    std::string title;
    std::string detail; // said beyond the text, apart from it
};

class Prompt {
  public:
    virtual ~Prompt() = default;

    /// Shows a box and waits for the answer. A line feed and a CR LF both break the line. Closing a box that
    /// has a Cancel button answers Cancel; a Yes/No box stays until it is answered.
    virtual Answer Show(const Message& message) = 0;
    /// The same by its parts.
    Answer MsgBox(const std::string& text, int style, const std::string& title,
                  const std::string& detail = {}) {
        return Show({text, style, title, detail});
    }

    /// A file that exists, or nothing on cancel.
    virtual std::optional<std::filesystem::path> OpenDialog(const FileRequest& request) = 0;
    /// A file to write; the dialog asks before an existing one is taken. Nothing on cancel.
    virtual std::optional<std::filesystem::path> SaveDialog(const FileRequest& request) = 0;
    /// A font, or nothing on cancel.
    virtual std::optional<ReportFont> FontDialog(const ReportFont& present, const std::string& title) = 0;

    virtual void Beep() = 0;
    /// Shape of the pointer over every window of the program; Default gives it back to the controls.
    virtual void MousePointer(Pointer shape) = 0;
    /// Lets pending events run: other handlers may be entered before this returns.
    virtual void DoEvents() = 0;
};

/// Holds the hourglass while it lives.
class Hourglass {
  public:
    explicit Hourglass(Prompt& prompt) : prompt_(prompt) { prompt_.MousePointer(Pointer::Hourglass); }
    ~Hourglass() { prompt_.MousePointer(Pointer::Default); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

  private:
    Prompt& prompt_;
};

} // namespace tvx
