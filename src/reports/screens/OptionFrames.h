// The option frames that reports of people share.
#pragma once

#include "reports/page/screens/ReportForm.h"
#include "shell/state/Department.h"
#include "shell/state/Report.h"

#include <QCheckBox>

#include <string>
#include <vector>

namespace tvx::qt {

/// A report form that can put the shared frames among its options. Each shows the options of the run and
/// changes them at once. A frame comes behind what stands in a column or row of Options().
class OptionFrames : public ReportForm {
    Q_OBJECT
  protected:
    OptionFrames(ReportOptions& options, Ports& ports, Printer& printer, DeskSettings settings,
                 const char* designerName, Form* owner)
        : ReportForm(ports, printer, std::move(settings), designerName, owner), options_(options) {}

    /// Options below each other in a frame, of which `chosen` holds; `first` is the index of the first.
    void AddChoice(qt::Options<>& options, const char* name, int first,
                   const std::vector<std::string>& captions, Frame& frame, int& chosen);
    /// Keeps the lines of a frame together at its top.
    static void KeepAtTop(Frame& frame);

    /// Option3D2: the breaks that part a printed time range.
    void AddBreaks(const char* name, const std::string& title, QBoxLayout& into);
    /// Option3D3: everybody, or only people with schedules.
    Frame& AddWhoToPrint(const char* name, const std::string& title, const std::string& employees,
                         QBoxLayout& into);
    /// Check3D1 and Check3D2 on a frame: hours, and wages where they may be seen.
    void AddTotals(Frame& frame, bool wagesMayBeSeen);
    /// Option3D1: the orders of the listing order table; `order` is an index of it.
    void AddListingOrder(const char* name, const std::string& title, int& order, QBoxLayout& into);

    ReportOptions& options_;
    qt::Options<> Option3D1;       // what stands under the name, or the listing order
    qt::Options<> Option3D2;       // [0..4], breaks
    qt::Options<> Option3D3;       // [0..1], who
    QCheckBox* Check3D1 = nullptr; // hours
    QCheckBox* Check3D2 = nullptr; // wages
};

} // namespace tvx::qt
