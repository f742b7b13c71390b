#include "reports/page/ReportText.h"

#include "platform/basic/MostThatFits.h"
#include "platform/basic/Text.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr std::size_t UsualLetters = 40; // of a text that is likely to fit whole
constexpr std::string_view Ellipsis = "\u2026";
constexpr std::string_view MemoIndent = "  ";

/// How many of the first letters are narrower than a room together with what follows them.
std::size_t FittingCount(const Vp& vp, const std::string& text, std::string_view end, Twips room) {
    return MostThatFits(CharacterCount(text), [&](std::size_t count) {
        return vp.TextWidth(Left(text, count).append(end)) < room;
    });
}

/// True when a text of no more letters than stand on a line is narrower than a room; a longer one is not
/// measured.
bool IsNarrow(const Vp& vp, const std::string& text, std::size_t most, Twips room) {
    return CharacterCount(text) <= most && vp.TextWidth(text) < room;
}

/// The beginning of a text that stands on one line: all of it, or what comes before its last blank that fits.
std::string FirstLine(const Vp& vp, const std::string& text, Twips room) {
    const std::size_t length = CharacterCount(text);
    const std::size_t fitting =
        MostThatFits(length, [&](std::size_t count) { return vp.TextWidth(Left(text, count)) <= room; });
    if (fitting == length) return text;
    std::string line = Left(text, std::max<std::size_t>(fitting, 1));
    if (text[line.size()] == ' ') return line; // cut between two words as it is
    const std::size_t blank = line.rfind(' ');
    return blank == std::string::npos || blank == 0 ? line : line.substr(0, blank);
}

} // namespace

std::string Fitted(const Vp& vp, const std::string& text, Twips room) {
    if (IsNarrow(vp, text, UsualLetters, room)) return text;
    return Left(text, FittingCount(vp, text, "", room));
}

std::string WithEllipsis(const Vp& vp, const std::string& text, Twips room) {
    constexpr std::size_t LettersOfEllipsis = 10; // that may be no wider than it
    if (IsNarrow(vp, text, UsualLetters, room)) return text;
    const std::size_t count = FittingCount(vp, text, Ellipsis, room);
    if (IsNarrow(vp, text, count + LettersOfEllipsis, room)) return text;
    if (count == 0 && vp.TextWidth(Ellipsis) >= room) return "";
    return TrimRight(Left(text, count)).append(Ellipsis);
}

std::vector<std::string> MemoLines(const Vp& vp, std::string_view memo, Twips room) {
    std::vector<std::string> lines;
    std::string marked = NormalizedLineEnds(memo);
    std::replace(marked.begin(), marked.end(), '\n', '^');
    room -= vp.TextWidth(MemoIndent);
    for (std::string rest : Split(marked, '^')) {
        do {
            const std::string line = FirstLine(vp, rest, room);
            rest = TrimLeft(std::string_view(rest).substr(line.size()));
            lines.push_back(std::string(MemoIndent) + TrimRight(line));
        } while (!rest.empty());
    }
    return lines;
}

} // namespace tvx
