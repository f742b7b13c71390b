// Stored shifts: names the bars of a day for later, and picks, renames and deletes what was stored.
#pragma once

#include "desktop/Form.h"
#include "masterdata/StoredShifts.h"

class QVBoxLayout;

namespace tvx::qt {

class ShiftsForm : public Form {
    Q_OBJECT
  public:
    /// `DayTypeRequest` says what for. After a pick it is still 33 and `SelectedDayType` holds the index; 0
    /// tells that nothing was picked.
    ShiftsForm(GlobalState& g, Ports& ports, Form* owner);

  protected:
    bool Opened() override;
    bool MayUnload() override;

  private:
    enum class Mode { Add, Change, Delete, Drop };

    void BuildNameFrame(QVBoxLayout& column);
    void BuildOtherFrame(QVBoxLayout& column);
    void BuildButtons(QVBoxLayout& column);
    void Enter(Mode mode);
    void EnterAdd();
    void EnterList(const char* title, const std::string& label);
    void ShowOther();
    void TakeRow(int index);
    void SaveOrDelete();
    void Follow(ShiftResult result);
    void Leave();

    GlobalState& g_;
    Mode mode_ = Mode::Add;

    ListBox* List1 = nullptr;
    Frame* Frame1 = nullptr; // the name
    TextBox* Text1 = nullptr;
    Label* Label1 = nullptr; // over the list
    Label* Label2 = nullptr; // beside the name
    Frame* OtherActFRAME = nullptr;
    Label* Label3 = nullptr; // number of shifts
    QPushButton* SaveCMD = nullptr;
    QPushButton* ExitCMD = nullptr;
    QPushButton* OptionsCMD = nullptr;
    QPushButton* cmdChange = nullptr;
    QPushButton* cmdDelete = nullptr;
};

} // namespace tvx::qt
