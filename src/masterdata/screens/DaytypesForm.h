// Daytypes: picks one for a day, and adds, changes and deletes those of the department.
#pragma once

#include "desktop/Form.h"
#include "masterdata/DaytypeList.h"

class QVBoxLayout;

namespace tvx::qt {

class DaytypesForm : public Form {
    Q_OBJECT
  public:
    /// `DayTypeRequest` says what for. To put a daytype on a day, the current employee and the day say which
    /// cell, by `DayTypeCaller`.
    DaytypesForm(GlobalState& g, Ports& ports, Form* owner);

  protected:
    bool Opened() override;

  private:
    enum class Mode { None, Add, Change, Delete, Drop };

    void BuildEditFrame(QVBoxLayout& column);
    void ConnectSymbol();
    void ConnectName();
    void BuildMenuFrame(QVBoxLayout& column);
    void BuildButtons(QVBoxLayout& column);
    void Enter(Mode mode);
    void EnterAdd();
    std::string Task(Mode mode) const;
    void ShowMenuPage();
    void ShowCount();
    void ShowList();
    void ShowBoxes(bool shown);
    void TakeRow(int index);
    void SaveOrDelete();
    void Follow(DaytypeResult result);
    void EmptyBoxes();
    int FilterName(int code) const;

    GlobalState& g_;
    Mode mode_ = Mode::None;
    int selected_ = 0; // index of the daytype under change; SelectedDayType elsewhere

    ListBox* List1 = nullptr;
    Frame* Frame3D1 = nullptr;         // the page of adding, changing, deleting
    Frame* Frame3D2 = nullptr;         // the page that chooses among them
    TextBox* Text1 = nullptr;          // symbol
    TextBox* Text2 = nullptr;          // explanation
    Label* Label4 = nullptr;           // what to do
    Label* Label5 = nullptr;           // number of daytypes
    Label* Label6 = nullptr;           // what the boxes hold
    QPushButton* Command3D1 = nullptr; // close
    QPushButton* Command3D2 = nullptr; // save, or delete
    QPushButton* Command3D4 = nullptr; // other activity
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdChange = nullptr;
    QPushButton* cmdDelete = nullptr;
};

} // namespace tvx::qt
