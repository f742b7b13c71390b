// Employee search: picks an employee of the department by the beginning of the last name.
#pragma once

#include "desktop/Form.h"
#include "masterdata/EmployeeSearch.h"
#include "masterdata/SearchRequest.h"
#include "shell/state/TVXGLOB.h"

#include <QListView>

#include <vector>

class QStandardItemModel;

namespace tvx::qt {

class EmployeeSearchForm : public Form {
    Q_OBJECT
  public:
    EmployeeSearchForm(const GlobalState& g, Ports& ports, const SearchRequest& request, Form* owner);

    SearchAnswer Answer() const { return {picked_}; }

  protected:
    bool Opened() override;

  private:
    void Build();
    void Fill();
    void Search();
    void Select(int row);
    void Pick();

    const GlobalState& g_;
    std::vector<FoundEmployee> rows_;
    int picked_ = 0; // key

    TextBox* Text1 = nullptr;   // all or part of the last name
    QListView* List1 = nullptr; // name, ID, assignment
};

} // namespace tvx::qt
