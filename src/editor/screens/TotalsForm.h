// The small window with the hours and the money of the whole week.
#pragma once

#include "desktop/Form.h"
#include "editor/week/Totals.h"

namespace tvx::qt {

class TotalsForm : public Form {
    Q_OBJECT
  public:
    TotalsForm(const GlobalState& g, Ports& ports, Form* owner);

  private:
    void BuildFigures(QBoxLayout& column, const TotalsBox& box);
    void AddText(QGridLayout& grid, int line, int column, Label& label, const std::string& text);
    void BuildActive(QBoxLayout& column, const TotalsBox& box);

    ControlArray<Label> Label2; // 1 wages, 2 salaries, 3 both
    ControlArray<Label> Label3; // 1 hours on wages, 2 hours on salary, 3 both
};

} // namespace tvx::qt
