// The option frames that reports of people share.
#pragma once

#include "reports/page/screens/ReportForm.h"
#include "shell/state/Department.h"
#include "shell/state/Report.h"

#include <QCheckBox>

#include <functional>
#include <string>
#include <vector>

namespace tvx::qt {

/// A report form that can put the shared frames among its options. Each shows the options of the run and
/// changes them at once; where it stands is the form's affair.
class OptionFrames : public ReportForm {
    Q_OBJECT
  protected:
    /// What a frame is called: its designer name, what a person would call it, and its title.
    struct FrameNames {
        const char* name;
        std::string accessible;
        std::string title;
    };

    OptionFrames(ReportOptions& options, Ports& ports, Printer& printer, DeskSettings settings,
                 const char* designerName, Form* owner)
        : ReportForm(ports, printer, std::move(settings), designerName, owner), options_(options) {}

    /// A frame of options of which one holds, below each other; `first` is the index of the first.
    Frame& AddChoice(ControlArray<QRadioButton>& array, const char* name, const FrameNames& frame,
                     const std::vector<std::string>& captions, int first, int& chosen);
    /// A frame for checks, which AddCheck puts below each other.
    Frame& AddChecks(const FrameNames& frame);
    QCheckBox& AddCheck(Frame& frame, const char* name, const std::string& caption, bool checked);

    /// Option3D2: the breaks that part a printed time range.
    Frame& AddBreaks(const FrameNames& frame);
    /// Option3D3: everybody, or only people with schedules.
    Frame& AddWhoToPrint(const FrameNames& frame, const std::string& employees);
    /// Check3D1 and Check3D2 on a frame: hours, and wages where they may be seen.
    void AddTotals(Frame& frame, bool wagesMayBeSeen);
    /// Option3D1: the orders of the listing order table; `order` is an index of it.
    Frame& AddListingOrder(const FrameNames& frame, int& order);

    ReportOptions& options_;
    ControlArray<QRadioButton> Option3D1; // what stands under the name, or the listing order
    ControlArray<QRadioButton> Option3D2; // [0..4], breaks
    ControlArray<QRadioButton> Option3D3; // [0..1], who
    QCheckBox* Check3D1 = nullptr;        // hours
    QCheckBox* Check3D2 = nullptr;        // wages
};

} // namespace tvx::qt
