// Text files of one value after another, as the small side files are written. Lines end in CR LF; text is
// UTF-8.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace tvx {

/// A hundred times the largest that the program writes; a side file that holds more is a damaged one.
constexpr std::size_t MostBytesOfSideFile = std::size_t{1024} * 1024;

/// Reads values one after another, parted by commas or line ends, so that one value a line and comma lists
/// read alike. The file is read whole when it is opened.
class SequentialReader {
  public:
    /// Throws FileError 53 when there is no such file, 75 when it is there and cannot be read to its end, or
    /// holds more than 1 MB.
    explicit SequentialReader(const std::filesystem::path& path);
    /// Reads from text in memory.
    static SequentialReader FromText(std::string text);

    bool AtEnd() const;
    /// True when no value is left to read.
    bool OnlyBlanksLeft() const;
    /// True when the next value is a number in plain digits and nothing else.
    bool DigitsNext() const;

    /// The next value as text. Leading blanks and empty line ends are passed over. A text that begins with a
    /// double quote runs to the closing quote, commas and line ends included; any other runs to the comma or
    /// line end, without its trailing blanks. Throws FileError 62 at the end of the file.
    std::string InputText();

    /// The next value as a number, which ends at a blank, comma or line end. Text that is no number gives 0;
    /// #TRUE# and #FALSE# give -1 and 0. Throws FileError 62 at the end of the file.
    double InputNumber();

  private:
    SequentialReader() = default;
    void SkipBlanks();
    void SkipSeparator();

    std::string text_;
    std::size_t at_ = 0;
};

/// Collects the lines of a side file and replaces the file in one step, so that a reader sees the old file
/// or the new one and never a part.
class SequentialWriter {
  public:
    /// A text between double quotes on a line of its own. An inner quote is not marked in any way, which is
    /// why the screens refuse it.
    void WriteText(std::string_view text);
    /// A whole number in plain digits on a line of its own.
    void WriteNumber(long long number);
    /// A text as it stands on a line of its own.
    void PrintText(std::string_view text);
    /// A number with a leading blank or "-" and a trailing blank on a line of its own.
    void PrintNumber(double number);

    const std::string& Text() const { return text_; }

    /// Writes the file under a temporary name, flushes it to the disk and renames it. Throws FileError 61 on
    /// a full disk, 64 on a name that cannot be, 70, 75 or 76 when the file cannot be made; the old file is
    /// then as it was.
    void ReplaceFile(const std::filesystem::path& path) const;

  private:
    std::string text_;
};

} // namespace tvx
