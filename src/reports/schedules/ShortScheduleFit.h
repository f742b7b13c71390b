// What the short schedule needs of its paper, so that no text of it stands over another.
#pragma once

#include "reports/page/ReportFit.h"
#include "reports/schedules/SchedulePage.h"

namespace tvx {

class ShortScheduleFit {
  public:
    ShortScheduleFit(const SchedulePage& page, const Vp& vp);

    /// Times and figures of a person whose block has so many rows.
    void Measure(const PrintedPerson& person, int rows);
    /// Sets the document's size for everybody who was measured and for what stands around them.
    Fitting SetSize(Vp& vp);

  private:
    Twips X(double units) const;
    Twips Percent(double percent) const;
    void Ranges(const PrintedPerson& person);
    void Figures(const PrintedPerson& person, const EmployeeSums& own);
    void Head();
    void Totals();
    void TotalLine(const std::string& label, const std::string& amount);
    void ProductivityBlock(const PrintedProductivity& figures);

    const SchedulePage& page_;
    SchedulePage brief_; // with the shortest words
    Twips pageWidth_;
    Twips unit_;
    ScheduleSums sums_;
    ReportFit fit_;
};

} // namespace tvx
