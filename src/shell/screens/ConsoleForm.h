// The console: picks a department and leads to everything else. It stays open behind every other screen.
#pragma once

#include "desktop/Form.h"
#include "desktop/MenuRenderer.h"
#include "desktop/Screens.h"
#include "shell/console/Console.h"
#include "shell/console/ConsoleCommands.h"

#include <QComboBox>

#include <memory>

namespace tvx::qt {

class ConsoleForm : public Form, private ConsoleActions {
    Q_OBJECT
  public:
    /// All three must outlive the form.
    ConsoleForm(GlobalState& g, Ports& ports, const Screens& screens);

    /// The load of the console: everything up to its first picture. On EndRun it must not be shown.
    LoadResult Load();

  protected:
    bool Opened() override;
    void CameBack() override;
    bool MayUnload() override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void Build();
    void BuildDepartment(QBoxLayout& row);
    void BuildButtons(QBoxLayout& row);
    void Connect();
    void ShowFace();
    void ShowScheduleCaption(const QString& caption);
    void ShowCommands();
    void ChooseFromCombo(int index);
    void ShowDepartments();
    void LogIn();

    void EndRun() override;
    void Schedule() override;
    void ShowConflicts() override;
    void EditDepartment(FormCommand command) override;
    void DeleteDepartment() override;
    void AddEmployee() override;
    void ChangeEmployee() override;
    void DeleteEmployee() override;
    void ShowAbout() override;
    void ShowQuestions() override;

    GlobalState& g_;
    const Screens& screens_;
    ConsoleFace model_;
    CommandTable commands_;
    std::unique_ptr<MenuRenderer> menus_;
    QWidget* Frame1 = nullptr;   // holds the choice of the department
    QComboBox* Combo1 = nullptr; // department names
    Label* Label2 = nullptr;     // the one department
    Label* Label1 = nullptr;     // what to type
    TextBox* Text3 = nullptr;    // password
    QPushButton* cmdSchedule = nullptr;
    QPushButton* cmdExit = nullptr;
};

/// The whole start: splash, load, console. False when the run ends at once.
bool StartConsole(GlobalState& g, Ports& ports, const Screens& screens,
                  std::unique_ptr<ConsoleForm>& console);

} // namespace tvx::qt
