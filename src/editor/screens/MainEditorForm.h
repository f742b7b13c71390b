// The Main Editor: a department's week, one day at a time, as bars on a grid of quarter-hours.
#pragma once

#include "desktop/Form.h"
#include "desktop/MenuRenderer.h"
#include "desktop/Parts.h"
#include "desktop/SaveNote.h"
#include "desktop/Screens.h"
#include "editor/EditorCommands.h"
#include "editor/lanes/LaneView.h"
#include "editor/lanes/screens/DaytypeBoxes.h"
#include "editor/lanes/screens/TimeGrid.h"
#include "editor/screens/DayHeader.h"
#include "editor/week/SaveWeek.h"
#include "platform/ports/Gauge.h"

#include <QScrollBar>

#include <map>
#include <memory>
#include <string>

namespace tvx {
enum class ListRequest;
}

namespace tvx::qt {

class MainEditorForm : public Form, private EditorActions {
    Q_OBJECT
  public:
    /// Needs the roster of the current department.
    MainEditorForm(GlobalState& g, Ports& ports, const Screens& screens, Form* owner);
    ~MainEditorForm() override;

    /// Makes a day of the week, 1 to 7, the current one, sums it, and redraws header, ruler and lanes.
    void SelectDay(int day);

  protected:
    bool Opened() override;
    bool MayUnload() override;
    void changeEvent(QEvent* event) override;

  private:
    // building
    void RemoveCancelMenuItem();
    void LoadLists();
    void BuildMenus();
    void BuildFace();
    void BuildToolStrip(QWidget& strip);
    void AddTool(const char* name, Twips left, Twips width);
    void BuildHeader(QWidget& band);
    void BuildSheet(QWidget& sheet);
    void BuildEndsOfDay(QWidget& sheet);
    void BuildRows(QWidget& sheet);
    void BuildRow(QWidget& sheet, int row);
    void PlaceColumns();
    void BuildSidePanel(QWidget& panel);
    void BuildOptions(QWidget& panel);
    void BuildTotals(QWidget& panel);
    void ConnectScrollBars();
    void ConnectGrid();
    void ConnectDaytypes();
    void HideForAllDepartments();

    // commands
    void Choose(const std::string& command);
    std::function<void(const std::string&)> Chosen();
    void Save() override;
    void GoToWeek(int direction) override;
    void LeaveEditor() override;
    void ToggleAvailability() override;
    void ToggleHeadcount() override;
    void ShowTotalsBox() override;
    void ShowHelp(int topic) override;
    void OpenSchedules(ScheduleKind kind) override;
    void TellHowToSeeOneWeek() override;
    void PickDaytype() override;
    void PickShift() override;
    void StoreShift() override;
    void PasteStoredShift(int index) override;
    bool MayLeave();
    void StepDay(int days);
    void ChooseOption(int option);
    void ScrollDay(int value);
    void ScrollRows(int value);

    // showing
    void ShowTitle();
    void DrawDayHeader();
    void ShowRows();
    void ShowRow(int row);
    void ShowRowValue(int row);
    void ShowTotals();
    void RefreshTotalsLabels();
    void ShowProductivity();
    void ShowSelectedOption();
    void ShowRuler();
    void HighlightRow(int row);
    void ShowCommands();
    void PaintRuler(QPainter& painter) const;
    void PaintRulerGround(QPainter& painter, Twips overhang) const;
    void PaintMarker(QPainter& painter) const;
    void PaintSquares(QPainter& painter, int row) const;

    // the grid
    void Settle();
    SettleGesture Settling();
    void Follow(const GridChange& change);
    void Follow(const WeekChange& change);
    void FocusRow(int row);

    GlobalState& g_;
    const Screens& screens_;
    ControlArray<TextBox> Text1; // [row], daytypes
    Grid grid_;
    MainLanes lanes_;
    BarDrag drag_;
    LaneView view_;
    DaytypeBoxes daytypes_;
    CommandTable commands_;
    std::unique_ptr<MenuRenderer> menus_;
    std::unique_ptr<Gauge> gauge_;

    SaveNote* saveNote_ = nullptr;
    QWidget* strip_ = nullptr;
    QWidget* sheet_ = nullptr;
    DayHeaderBar* pctWeekday = nullptr;
    TimeGrid* Picture1 = nullptr;               // the lanes
    PictureBox* Picture2 = nullptr;             // the ruler, with the headcount under it
    QScrollBar* HScroll1 = nullptr;             // quarters
    QScrollBar* VScroll1 = nullptr;             // rows
    Label* listHead_ = nullptr;                 // over the names
    Label* valueHead_ = nullptr;                // over the values
    std::map<std::string, LabelButton*> tools_; // by command
    LabelButton* Label20 = nullptr;             // first or last page
    LabelButton* Label21 = nullptr;             // to the start of the day
    LabelButton* Label22 = nullptr;             // to the end of the day
    ControlArray<Label> Label9;                 // [row], names
    ControlArray<Label> Label10;                // [row], values
    ControlArray<Label> Label23;                // [row], day values of a pair
    ControlArray<Label> Label24;                // [row], week values of a pair
    ControlArray<PictureBox> squares_;          // [row], days with time
    ControlArray<LabelButton> Label4;           // [1..12], options of the value column
    ControlArray<Label> Label14;                // 0 " Day", 1 " Wk"
    ControlArray<Label> Label15;                // 0 day time, 1 week time, 2 day wages, 3 week wages
    ControlArray<Label> Label1; // 0..2 day, 3..5 week: labor, sales, transactions; 6..8 their captions
    ControlArray<Label> Label5; // 0 and 1: day and week beside the labor figures
    Label* dragTime_ = nullptr; // times of the bar under the mouse

    Twips markerX_ = -1;  // of the ruler's marker, grid twips; below 0 it is hidden
    int highlighted_ = 0; // row whose name is lit
};

} // namespace tvx::qt
