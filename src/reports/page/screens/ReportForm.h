// The usual layout of a report form: its option frames above, font, paper and a row of buttons below. A
// report adds its options and its drawing.
#pragma once

#include "reports/page/screens/ReportScreen.h"

namespace tvx::qt {

class ReportForm : public ReportScreen {
    Q_OBJECT
  protected:
    ReportForm(Ports& ports, Printer& printer, DeskSettings settings, const char* designerName, Form* owner);

    std::string DocumentTitle() const override { return title_; }
    void PlaceNormal() override;
    void ShowOwnParts(bool shown) override;

    /// Where the form's own option frames stand. Call FinishLayout when they are there.
    QWidget& Options() { return *options_; }
    /// Buttons beside cmdPreview and cmdPrint.
    void AddCommands(const std::vector<ButtonCommand>& commands);
    void FinishLayout(const std::string& title);

  private:
    void OrderTabs();

    std::string title_;
    QSize normalSize_;
    QWidget* options_ = nullptr;
    QWidget* buttons_ = nullptr; // cmdPreview, cmdPrint, cmdCancel and the form's own
};

} // namespace tvx::qt
