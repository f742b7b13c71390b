// Department profile: adds a department or changes the settings of the current one.
#pragma once

#include "desktop/Form.h"
#include "masterdata/DepartmentRequest.h"
#include "masterdata/Departments.h"

#include <QComboBox>

namespace tvx::qt {

class DepartmentForm : public Form {
    Q_OBJECT
  public:
    DepartmentForm(GlobalState& g, Ports& ports, const DepartmentRequest& request, Form* owner);

    DepartmentAnswer Answer() const { return {saved_}; }

  protected:
    bool Opened() override;
    void ShowHint(const std::string& hint) override { Label4->SetText(hint); }

  private:
    struct WordFrame {
        const char* name;
        const char* title;
        const char* hint;
        const char* singleName;
        TextBox*& single;
        const char* pluralName;
        TextBox*& plural;
    };

    void BuildName(QVBoxLayout& column);
    void BuildWeek(QHBoxLayout& row);
    void BuildOptions(QHBoxLayout& row);
    void BuildWord(QHBoxLayout& row, const WordFrame& word);
    void BuildWords(QHBoxLayout& row);
    void BuildHint(QVBoxLayout& column);
    void ShowProfile(const DepartmentProfile& profile);
    void ShowWords(const DepartmentProfile& profile);
    DepartmentProfile Profile() const;
    int Cutoff() const;
    void ShowCutoff();
    void Save();

    GlobalState& g_;
    DepartmentRequest request_;
    bool saved_ = false;
    int storedCutoff_ = 0; // stays until a time is chosen: it may be one that is not offered

    TextBox* Text1 = nullptr;    // name
    QComboBox* Combo1 = nullptr; // first day of the week
    QComboBox* Combo2 = nullptr; // cut-off
    Label* Label1 = nullptr;     // "and " + the cut-off
    Label* Label2 = nullptr;     // "the next day"
    Label* Label4 = nullptr;     // hints
    Options<int> SSOption1;      // [0..3], the first week of the year
    Options<int> SSOption2;      // [1..6], listing order
    TextBox* txtGenEmployee = nullptr;
    TextBox* txtGenEmployees = nullptr;
    TextBox* txtDayOff = nullptr;
    TextBox* txtDaysOff = nullptr;
};

} // namespace tvx::qt
