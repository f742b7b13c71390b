#include "reports/page/ReportText.h"

#include "platform/basic/Text.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr std::size_t MostUnderscores = 300;
constexpr std::string_view MemoIndent = "  ";

/// The most that `fits` lets pass, of 1 to `most`; 0 when not even 1 does. Looks near the beginning first, so
/// that a long text is not measured whole for each of its lines.
template <typename Fits>
std::size_t MostThatFits(std::size_t most, const Fits& fits) {
    std::size_t step = 1;
    while (step < most && fits(step)) step *= 2;
    std::size_t few = step / 2;
    std::size_t many = std::min(step, most) + 1;
    while (few + 1 < many) {
        const std::size_t middle = (few + many) / 2;
        (fits(middle) ? few : many) = middle;
    }
    return few;
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

std::string Fitted(const Vp& vp, std::string text, Twips room) {
    while (!text.empty() && vp.TextWidth(text) >= room) text = DropLastCharacter(text);
    return text;
}

std::string UnderscoreRule(const Vp& vp) {
    const std::size_t count = MostThatFits(MostUnderscores, [&](std::size_t underscores) {
        return vp.TextWidth(std::string(underscores, '_')) <= vp.PageWidth();
    });
    return std::string(count, '_');
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
