// Stored shifts: names the bars of a day for later, and picks, renames and deletes what was stored.
#pragma once

#include "masterdata/ShiftsRequest.h"
#include "masterdata/StoredShifts.h"
#include "masterdata/screens/ListForm.h"

namespace tvx::qt {

class ShiftsForm : public ListForm {
    Q_OBJECT
  public:
    ShiftsForm(GlobalState& g, Ports& ports, const ShiftsRequest& request, Form* owner);

    ListAnswer Answer() const { return {picked_}; }

  protected:
    bool Opened() override;
    std::vector<std::pair<std::string, int>> Rows() const override { return ShiftRows(g_.shifts); }
    void Announce(ListRequest task) override;
    void AnnounceTaken(bool deleting) override;
    void FillBoxes(int index) override { Text1->SetText(g_.shifts.ShiftNames[index]); }
    SaveResult Save(ListRequest task, int index) override;
    bool MayPick(int index) const override;
    void ShowMenu() override;

  private:
    void BuildName(QVBoxLayout& column);
    void BuildMenu(QVBoxLayout& column);
    void AnnounceList(const char* title, const std::string& task);

    GlobalState& g_;
    ShiftsRequest request_;

    Frame* Frame1 = nullptr; // the name
    TextBox* Text1 = nullptr;
    Label* Label2 = nullptr; // beside the name
    Frame* OtherActFRAME = nullptr;
    Label* Label3 = nullptr; // number of shifts
    QPushButton* cmdChange = nullptr;
    QPushButton* cmdDelete = nullptr;
};

} // namespace tvx::qt
