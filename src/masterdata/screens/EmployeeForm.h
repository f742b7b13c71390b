// Employee record: adds an employee or changes one, with pay, status, colour and hours of absence.
#pragma once

#include "desktop/DateBox.h"
#include "desktop/Form.h"
#include "desktop/SaveNote.h"
#include "masterdata/AvailabilityGrid.h"
#include "masterdata/EmployeeRecord.h"
#include "masterdata/EmployeeRequest.h"
#include "masterdata/screens/ColourSwatch.h"
#include "platform/ports/Gauge.h"

#include <QPlainTextEdit>

#include <array>
#include <memory>
#include <vector>

namespace tvx::qt {

class EmployeeForm : public Form {
    Q_OBJECT
  public:
    EmployeeForm(GlobalState& g, Ports& ports, const EmployeeRequest& request, Form* owner);
    ~EmployeeForm() override;

    EmployeeAnswer Answer() const { return {}; }

    bool WeekChanged = false; // something was typed or chosen since the record was shown or saved

  protected:
    bool Opened() override;
    bool MayUnload() override;
    void ShowHint(const std::string& hint) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    // building
    void Build();
    void BuildUpperBoxes(QVBoxLayout& column);
    TextBox& AddBox(int index);
    void BuildBox(QBoxLayout& row, int index, Twips width);
    void BuildGrid();
    void BuildKinds(QVBoxLayout& column);
    void BuildKind(Options<int>& options, const char* name, int first,
                   const std::vector<std::array<const char*, 2>>& kinds, Frame& frame);
    void BuildLooks(QVBoxLayout& column);
    void BuildColours(QVBoxLayout& column);
    void BuildComments(QVBoxLayout& column);
    void BuildHint(QVBoxLayout& column);
    void BuildButtons(QVBoxLayout& column);
    void HidePay();
    void ConnectBox(int index);
    void ConnectDate(int index);
    void ConnectGrid();

    // the record
    void ShowRecord(const EmployeeRecord& record);
    EmployeeRecord Record() const;
    void ReadKeys();
    void LoadRecord();
    bool Save();
    void MakeReadyForNext();
    void ShowSaved();
    void MoveTo(int direction);
    void LoadNeighbour(int direction);
    bool MayLeaveRecord();
    void Leave();
    bool HoldsText() const;
    void Changed();

    // boxes
    void ShowUnderAgeNotice();
    void FocusBox(int index);

    // the grid
    void Follow(const AbsenceChange& change);
    void OpenGridMenu();
    void PaintGrid(QPainter& painter) const;
    void PaintTicks(QPainter& painter, Twips top) const;
    void PaintStrip(QPainter& painter) const;
    void PaintSample(QPainter& painter) const;
    void PaintHours(QPainter& painter) const;
    void PaintHeading(QPainter& painter) const;
    void HighlightDay(int day);
    void ChooseColour(int colour);

    GlobalState& g_;
    AvailabilityGrid grid_;
    CommandTable gridCommands_; // the menu of the grid
    const bool adding_;
    int selectedEmployee_;          // key of the one who is changed
    std::vector<int> employeeKeys_; // of the whole department, by last name
    int position_ = 0;              // index into employeeKeys_
    int key_ = 0;                   // of the record shown; 0 for a new one
    int currentBarColor_ = 2;
    int highlightedDay_ = 0;
    Twips markerX_ = -1;
    bool loading_ = false; // the program itself fills the boxes
    std::unique_ptr<Gauge> gauge_;
    SaveNote* saveNote_ = nullptr;

    ControlArray<TextBox> Text2;         // [1..16]
    ControlArray<DateBox> dates;         // those of Text2 that hold a date: 10 and 11
    ControlArray<Label> Label1;          // [1..16], their captions
    QPlainTextEdit* Text1 = nullptr;     // comments
    Label* Label2 = nullptr;             // what is done here
    Label* Label3 = nullptr;             // hints
    ControlArray<Label> Label5;          // [1..7], weekdays of the grid
    Label* Label6 = nullptr;             // under-age notice
    Frame* Frame3D1 = nullptr;           // pay rate
    Options<int> Option3D1;              // 1 active, 2 inactive
    Options<int> Option3D2;              // 1 hourly, 2 weekly
    Options<int> optLaborType;           // [0..3]
    ControlArray<ColourSwatch> lblColor; // [1..14]
    PictureBox* Picture1 = nullptr;      // hours of absence
    PictureBox* Picture2 = nullptr;      // strip that shows where the band lies
    PictureBox* Picture3 = nullptr;      // a bar in the chosen colour
    QPushButton* Command2 = nullptr;     // previous
    QPushButton* Command3 = nullptr;     // next
    FloodPanel* Panel3D2 = nullptr;      // shows that the record was saved
};

} // namespace tvx::qt
