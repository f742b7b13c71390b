// A list of the department on a screen: adds to it, changes and deletes what it holds, and picks from it for
// a day. The screens of daytypes and of stored shifts are this one with words and boxes of their own.
#pragma once

#include "desktop/Form.h"
#include "desktop/Pages.h"
#include "masterdata/ListRequest.h"
#include "shell/common/SaveResult.h"

#include <string>
#include <utility>
#include <vector>

namespace tvx::qt {

class ListForm : public Form {
    Q_OBJECT
  protected:
    /// Which controls are there. A row is taken when it was chosen to be changed or deleted; the menu that
    /// was reached from the list to pick from has nothing to add beside it.
    enum class Page { Menu, DropMenu, Add, List, Taken, Drop };

    ListForm(Ports& ports, const char* designerName, Form* owner) : Form(ports, designerName, owner) {}

    // ---- what a list has of its own ----

    /// Its rows, with the index of each.
    virtual std::vector<std::pair<std::string, int>> Rows() const = 0;
    /// Writes the texts of what is done now: titles, tasks, counts.
    virtual void Announce(ListRequest task) = 0;
    /// The same when a row was chosen to be changed or deleted.
    virtual void AnnounceTaken(bool deleting) = 0;
    /// Fills the boxes with what stands at an index.
    virtual void FillBoxes(int index) = 0;
    /// Adds what the boxes hold, writes it to an index, or deletes that one, as the task says.
    virtual SaveResult Save(ListRequest task, int index) = 0;
    virtual bool MayPick(int index) const;
    /// True when the screen waits for the next after adding one.
    virtual bool AwaitsAnother() const { return false; }

    // ---- building ----

    /// What to do, and the list below it; `beginning` stands in an empty list and says how to begin.
    void BuildList(QVBoxLayout& column, const char* taskName, const std::string& accessible,
                   const std::string& beginning);
    /// A button of the menu page that leads to a task.
    QPushButton& AddTask(const char* name, const char* caption, ListRequest task, QBoxLayout& row,
                         QWidget& frame);
    struct CommandNames {
        const char* other;
        const char* save;
        const char* close;
    };
    void BuildCommands(QVBoxLayout& column, const CommandNames& names);
    /// The boxes; the first is the one that tells entries apart.
    void SetBoxes(std::vector<TextBox*> boxes) { boxes_ = std::move(boxes); }

    void Enter(ListRequest task);
    virtual void ShowMenu() = 0;
    void SaveOrDelete();

    Pages<Page> pages_;
    Label* task_ = nullptr;
    ListBox* List1 = nullptr;
    QPushButton* other_ = nullptr; // leads to the menu
    QPushButton* save_ = nullptr;  // saves, or deletes
    int picked_ = 0;               // index of what was picked for a day

  private:
    void ShowList();
    void TakeRow(int index);
    void EmptyBoxes();
    void Follow(SaveResult result);

    ListRequest doing_ = ListRequest::Add;
    int taken_ = 0; // index of what is changed or deleted
    std::vector<TextBox*> boxes_;
};

} // namespace tvx::qt
