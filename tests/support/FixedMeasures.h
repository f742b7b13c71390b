// Letters that are all of one size, so that a test can count where a text ends.
#pragma once

#include "platform/basic/Text.h"
#include "reports/page/VpDocument.h"

namespace tvx::test {

/// Every letter is 90 twips wide, bold ones 100, at any size; a line is 200 twips high. In the grid of a
/// schedule a line is then 220 twips.
class FixedMeasures : public FontMeasures {
  public:
    static constexpr Twips Letter = 90;
    static constexpr Twips BoldLetter = 100;
    static constexpr Twips Line = 200;

    Twips Width(const ReportFont& font, std::string_view text) const override {
        return static_cast<Twips>(CharacterCount(text)) * (font.bold ? BoldLetter : Letter);
    }
    Twips Height(const ReportFont&) const override { return Line; }
};

} // namespace tvx::test
