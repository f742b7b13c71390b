// "Include in schedule": prints the week for the notice board, short, long, or for picked people, on paper or
// as a web page.
#pragma once

#include "reports/schedules/ScheduleLoader.h"
#include "reports/schedules/SchedulesRequest.h"
#include "reports/screens/OptionFrames.h"

#include <string>

namespace tvx::qt {

class ScheduleForm : public OptionFrames {
    Q_OBJECT
  public:
    ScheduleForm(GlobalState& g, Ports& ports, Printer& printer, const SchedulesRequest& request,
                 Form* owner);

  protected:
    void Run(Vp& vp) override;
    bool MayRun() override;
    std::string PreviewTitle() const override;
    std::string PreviewPrintCaption() const override;
    std::string DocumentTitle() const override;
    std::string FileName() const override;
    void PrintFromPreview() override;
    void BackToPaper() override { HtmlMode = false; }

  private:
    void BuildOptions();
    void BuildNames(QBoxLayout& row);
    void BuildOther(QBoxLayout& row);
    void BuildLastStop(QBoxLayout& column);
    void BuildPicking(QBoxLayout& column);
    void FillList();
    void PreviewHtml();
    void SaveAsHtml();
    void SaveHtml();
    void EnterHtml();
    ScheduleRequest Request() const;
    bool IsShort() const { return kind_ == ScheduleKind::Short; }
    bool IsSelected() const { return kind_ == ScheduleKind::Selected; }

    GlobalState& g_;
    ScheduleKind kind_;
    bool HtmlMode = false;  // the run goes to a web page
    bool SaveSpace = false; // was asked for when that began

    QCheckBox* Check3D4 = nullptr; // productivity
    QCheckBox* Check3D5 = nullptr; // time bars
    QCheckBox* SSCheck1 = nullptr; // day comments
    QCheckBox* ckbLastStop = nullptr;
    TextBox* txtOpen = nullptr;
    QListWidget* List1 = nullptr; // picked people
};

} // namespace tvx::qt
