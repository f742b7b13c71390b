// The size in which a report is drawn: the largest, not above the chosen one, at which its texts stand beside
// each other.
#pragma once

#include "platform/ports/Vp.h"

#include <set>
#include <string>
#include <tuple>

namespace tvx {

/// How a report fits its paper: as it is; at the smallest size with its words cut; or not at all.
enum class Fitting { Whole, Cut, None };

class ReportFit {
  public:
    /// A text that must stand in its room with a blank to spare.
    void Needs(const WidestText& text) { Needs(text, text.text); }
    /// The same where it can be cut to `shortest`, when not even the smallest size is small enough.
    void Needs(const WidestText& text, const std::string& shortest);
    /// Lines that must stand on one page, if a smaller size can bring them there.
    void NeedsLines(double lines);

    /// Gives the document's font the size and the document a remark where it is not the chosen one.
    Fitting SetSize(Vp& vp) const;

  private:
    using Texts = std::set<std::tuple<std::string, Twips, bool>>;
    static std::vector<WidestText> ListOf(const Texts& texts);
    void SetSizeForLines(Vp& vp) const;

    Texts whole_;
    Texts shortest_;
    double lines_ = 0;
};

/// Height of a line of a report's grid.
double GridLine(const Vp& vp);

/// Writes the document's remark at the foot of the present page.
void DrawFoot(Vp& vp);
/// What of the page's height is above the remark; all of it where there is none.
Twips HeightAboveFoot(const Vp& vp);

/// Says on the page, and remarks, that there is no way to draw the report on it.
void DrawTooSmall(Vp& vp);

} // namespace tvx
