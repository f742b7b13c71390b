// Employee search: picks an employee of the department by the beginning of the last name.
#pragma once

#include "desktop/Form.h"
#include "masterdata/EmployeeSearch.h"

#include <QListView>

#include <vector>

class QStandardItemModel;

namespace tvx::qt {

class EmployeeSearchForm : public Form {
    Q_OBJECT
  public:
    /// `FormCommand` "Change", "Delete" or "Transfer" says what the pick is for.
    EmployeeSearchForm(GlobalState& g, Ports& ports, Form* owner);

    /// True when somebody was picked; `SelectedEmployee` holds the key.
    bool Picked() const { return picked_; }

  protected:
    bool Opened() override;

  private:
    void Build();
    void Fill();
    void Search();
    void Select(int row);
    void Pick();

    GlobalState& g_;
    std::vector<FoundEmployee> rows_;
    bool picked_ = false;

    TextBox* Text1 = nullptr;   // all or part of the last name
    QListView* List1 = nullptr; // name, ID, assignment
};

} // namespace tvx::qt
