// Texts as a web page may hold them, and the page while it is written.
#pragma once

#include "platform/files/WholeFile.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tvx {

/// A page while it is written: a great many small pieces, handed on together.
class Markup {
  public:
    explicit Markup(const ByteSink& sink) : sink_(sink) {}

    Markup& operator<<(std::string_view piece);
    /// A literal, whose length the compiler knows.
    template <std::size_t Size>
    Markup& operator<<(const char (&piece)[Size]) {
        return *this << std::string_view(piece, Size - 1);
    }
    void HandOn() { sink_({bytes_.data(), std::exchange(length_, 0)}); }

  private:
    const ByteSink& sink_;
    std::vector<char> bytes_ = std::vector<char>(0x10000);
    std::size_t length_ = 0;
};

bool IsAsciiText(std::string_view text);

/// Marks of markup as references, damaged characters as U+FFFD, without those that a page may not hold and
/// without marks of isolation: for titles and attributes.
std::string Escaped(std::string_view text);

/// A text for a style sheet, between double quotes there; it keeps its line ends.
std::string EscapedForStyle(std::string_view text);

/// One line of text in a page, in pieces. What the text isolates becomes an element of its own that is closed
/// at the end of the line at the latest.
class LineOfText {
  public:
    explicit LineOfText(Markup& html) : html_(html) {}
    ~LineOfText();
    LineOfText(const LineOfText&) = delete;
    LineOfText& operator=(const LineOfText&) = delete;

    /// A piece as it stands.
    void Put(std::string_view piece);
    /// Words that may be broken between each other, but not inside a date.
    void PutWords(std::string_view words);

  private:
    void PutForeign(std::string_view bytes);
    void PutWord(std::string_view word);

    Markup& html_;
    int isolated_ = 0; // that are open
};

} // namespace tvx
