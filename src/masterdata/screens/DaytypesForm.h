// Daytypes: picks one for a day, and adds, changes and deletes those of the department.
#pragma once

#include "masterdata/DaytypeList.h"
#include "masterdata/DaytypesRequest.h"
#include "masterdata/screens/ListForm.h"

namespace tvx::qt {

class DaytypesForm : public ListForm {
    Q_OBJECT
  public:
    DaytypesForm(GlobalState& g, Ports& ports, const DaytypesRequest& request, Form* owner);

    ListAnswer Answer() const { return {picked_}; }

  protected:
    bool Opened() override;
    std::vector<std::pair<std::string, int>> Rows() const override { return DaytypeRows(g_.daytypes); }
    void Announce(ListRequest task) override;
    void AnnounceTaken(bool deleting) override;
    void FillBoxes(int index) override;
    SaveResult Save(ListRequest task, int index) override;
    bool AwaitsAnother() const override { return g_.daytypes.DayTypeCount <= DaytypesOffered; }
    void ShowMenu() override;

  private:
    void BuildBoxes(QVBoxLayout& column);
    void ConnectBoxes();
    void BuildMenu(QVBoxLayout& column);
    std::string Task(ListRequest task) const;
    void ShowCount();
    int FilterName(int code) const;

    GlobalState& g_;
    DaytypesRequest request_;
    std::string oldSymbol_; // of the one that is changed or deleted

    Frame* Frame3D1 = nullptr; // the page of adding, changing, deleting
    Frame* Frame3D2 = nullptr; // the page that chooses among them
    TextBox* Text1 = nullptr;  // symbol
    TextBox* Text2 = nullptr;  // explanation
    Label* Label5 = nullptr;   // number of daytypes
    Label* Label6 = nullptr;   // what the boxes hold
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdChange = nullptr;
    QPushButton* cmdDelete = nullptr;
};

} // namespace tvx::qt
