#include "masterdata/Departments.h"

#include "platform/dao/DaoError.h"
#include "platform/files/Folder.h"
#include "shell/common/TVXMOD1.h"
#include "support/OtherWorkstation.h"
#include "support/Rows.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::FieldOf;
using test::RowsOf;

const std::string Lines = "\n\n";

class DepartmentsTest : public testing::Test {
  protected:
    test::OtherWorkstation other;
    test::TestStore store;
    GlobalState& g = store.g;
    int bakery = 0;

    void SetUp() override {
        store.AddDepartment("Stores");
        bakery = store.AddDepartment("Bakery", 304, 5, 2);
        other.Open(store.folder / "TVX.MDB");
    }
    DepartmentProfile Opened(FormCommand command) {
        const auto profile = OpenProfile(g.store, g.department, store.prompt(), command);
        EXPECT_TRUE(profile.has_value());
        return profile.value_or(DepartmentProfile());
    }
    SaveResult Save(FormCommand command, DepartmentProfile profile) {
        return SaveDepartment(g.store, g.department, store.prompt(), command, profile);
    }
    DepartmentProfile InForce() const {
        const Department& d = g.department;
        return {.name = d.CurrentDepName,
                .editorOrder = d.EditorOrder,
                .firstWeekday = d.FirstWeekday,
                .cutoffQuarters = d.DayCutoffQuarters,
                .weekMethod = d.WeekMethod,
                .employeeNameSingle = d.EmployeeNameSingle,
                .employeeNamePlural = d.EmployeeNamePlural,
                .dayOffNameSingle = d.DayOffNameSingle,
                .dayOffNamePlural = d.DayOffNamePlural};
    }
    std::vector<std::string> Names() { return RowsOf(store.db(), "Department", {"Department name"}); }
    std::string Row(int number) {
        for (const std::string& row :
             RowsOf(store.db(), "Department",
                    {"Dep number", "Department name", "Editor order", "First weekday", "Week methode pick",
                     "EmployeeNameSingle", "EmployeeNamePlural", "DayOffNameSingle", "DayOffNamePlural"}))
            if (row.starts_with(std::to_string(number) + "|")) return row;
        return "";
    }
    void ExpectNameInUse(const std::string& shown) {
        store.prompt().Expect("Duplicate department name..\n" + shown + ", is in use!\n", 0,
                              "Error in department name.");
    }
    void ExpectLocked(int number) {
        store.prompt().Expect(
            "Could not save this Department,\nthis page is locked by another user, try again.." + Lines +
                "(" + std::to_string(number) + ")",
            0, "Locked page...");
    }
};

// ---- opening ----

TEST_F(DepartmentsTest, a_new_one_begins_with_the_usual_settings) {
    const DepartmentProfile profile = Opened(FormCommand::Add);
    EXPECT_EQ(profile.name, "");
    EXPECT_EQ(profile.firstWeekday, 1);
    EXPECT_EQ(profile.cutoffQuarters, 0);
    EXPECT_EQ(profile.editorOrder, 1);
    EXPECT_EQ(profile.weekMethod, 3);
    EXPECT_EQ(profile.employeeNameSingle, "Employee");
    EXPECT_EQ(profile.employeeNamePlural, "Employees");
    EXPECT_EQ(profile.dayOffNameSingle, "Vacation day");
    EXPECT_EQ(profile.dayOffNamePlural, "Vacation days");
}

TEST_F(DepartmentsTest, a_stored_one_shows_its_settings_and_the_usual_words_for_missing_ones) {
    test::PutField(store.db(), "Department", "Dep number", bakery, "EmployeeNamePlural",
                   std::string("Bakers"));
    const DepartmentProfile profile = Opened(FormCommand::Change);
    EXPECT_EQ(profile.name, "Bakery");
    EXPECT_EQ(profile.firstWeekday, 3);
    EXPECT_EQ(profile.cutoffQuarters, 4);
    EXPECT_EQ(profile.editorOrder, 5);
    EXPECT_EQ(profile.weekMethod, 2);
    EXPECT_EQ(profile.employeeNameSingle, "Employee");
    EXPECT_EQ(profile.employeeNamePlural, "Bakers");
    EXPECT_EQ(profile.dayOffNamePlural, "Vacation days");
}

TEST_F(DepartmentsTest, are_found_by_name_whatever_case_and_outer_blanks) {
    test::PutField(store.db(), "Department", "Dep number", bakery, "Department name",
                   std::string("  baKERY "));
    g.department.CurrentDepName = "Bakery ";
    const DepartmentProfile profile = Opened(FormCommand::Change);
    EXPECT_EQ(profile.name, "Bakery");
    EXPECT_EQ(profile.firstWeekday, 3);
}

struct Packed {
    dao::Value stored;
    int weekday;
    int cutoff;
    bool known = true;
};

TEST_F(DepartmentsTest, unpack_a_first_weekday_with_or_without_a_cut_off) {
    g.department.DayCutoffQuarters = 7; // of the time before
    const std::vector<Packed> table{
        {std::int64_t{304}, 3, 4}, {std::int64_t{100}, 1, 0},    {std::int64_t{732}, 7, 32},
        {std::int64_t{7}, 7, 7},   {std::int64_t{1}, 1, 7},      {std::int64_t{0}, 1, 0},
        {std::int64_t{-5}, 1, 0},  {std::int64_t{733}, 7, 33},   {std::int64_t{799}, 7, 99},
        {std::int64_t{11}, 1, 11}, {dao::Value(), 1, 0, false},  {std::int64_t{9}, 1, 7},
        {std::int64_t{805}, 1, 5}, {std::int64_t{32767}, 1, 67}, {std::int64_t{150}, 1, 50},
    };
    for (const Packed& row : table) {
        test::PutField(store.db(), "Department", "Dep number", bakery, "First weekday", row.stored);
        const DepartmentProfile profile = Opened(FormCommand::Change);
        EXPECT_EQ(profile.firstWeekday, row.weekday) << dao::ToText(row.stored, "Null");
        EXPECT_EQ(profile.cutoffQuarters, row.cutoff) << dao::ToText(row.stored, "Null");
        EXPECT_EQ(profile.weekKnown, row.known) << dao::ToText(row.stored, "Null");
    }
}

TEST_F(DepartmentsTest, take_a_listing_order_of_0_or_none_for_1) {
    for (const dao::Value& order : {dao::Value(), dao::Value(std::int64_t{0})}) {
        test::PutField(store.db(), "Department", "Dep number", bakery, "Editor order", order);
        EXPECT_EQ(Opened(FormCommand::Change).editorOrder, 1);
    }
}

TEST_F(DepartmentsTest, that_another_workstation_deleted_say_so_when_they_are_opened) {
    other.Delete("Department", "Department name", "Bakery");
    store.prompt().Expect("Database error, try again..3021 The record is not there any more.", 0,
                          "Database error...");
    EXPECT_FALSE(OpenProfile(g.store, g.department, store.prompt(), FormCommand::Change).has_value());
}

TEST_F(DepartmentsTest, offer_33_times_from_midnight_to_8_for_the_cut_off) {
    const auto texts = CutoffTexts(ClockStyle::TwelveHours);
    ASSERT_EQ(texts.size(), 33U);
    EXPECT_EQ(texts[0], " Midn. ");
    EXPECT_EQ(texts[1], "12:15am");
    EXPECT_EQ(texts[4], " 1:00am");
    EXPECT_EQ(texts[32], " 8:00am");
    EXPECT_EQ(CutoffTexts(ClockStyle::TwentyFourHours)[34 / 2], "  4:15 ");
}

// ---- adding ----

TEST_F(DepartmentsTest, are_added_with_their_settings_and_without_words_of_their_own) {
    DepartmentProfile profile;
    profile.name = "  Kitchen ";
    profile.firstWeekday = 2;
    profile.cutoffQuarters = 16;
    profile.editorOrder = 6;
    profile.weekMethod = 0;
    profile.employeeNamePlural = "Cooks";
    EXPECT_EQ(Save(FormCommand::Add, profile), SaveResult::Saved);
    EXPECT_EQ(Row(bakery + 1), "3|Kitchen|6|216|0|(null)|(null)|(null)|(null)");
    EXPECT_EQ(g.department.FirstWeekday, 2);
    EXPECT_EQ(g.department.DayCutoffQuarters, 16);
    EXPECT_EQ(g.department.CurrentDepName, "Bakery") << "until the console selects the new one";
}

TEST_F(DepartmentsTest, need_a_name_and_say_nothing) {
    DepartmentProfile profile;
    profile.employeeNameSingle = " ";
    for (const char* name : {"", "   "}) {
        profile.name = name;
        EXPECT_EQ(Save(FormCommand::Add, profile), SaveResult::Incomplete);
    }
    EXPECT_EQ(Names().size(), 2U);
}

TEST_F(DepartmentsTest, take_the_usual_words_where_none_is_given_even_when_the_name_is_missing) {
    DepartmentProfile profile;
    profile.employeeNameSingle = "";
    profile.employeeNamePlural = "  ";
    profile.dayOffNameSingle = "";
    profile.dayOffNamePlural = "";
    EXPECT_EQ(SaveDepartment(g.store, g.department, store.prompt(), FormCommand::Change, profile),
              SaveResult::Incomplete);
    EXPECT_EQ(profile, DepartmentProfile());
}

TEST_F(DepartmentsTest, are_refused_under_a_name_in_use_whatever_case_and_outer_blanks) {
    DepartmentProfile profile;
    for (const auto& [typed, shown] : {std::pair<const char*, const char*>{"Bakery", "Bakery"},
                                       {"BAKERY  ", "BAKERY"},
                                       {"  bakery", "  bakery"}}) {
        ExpectNameInUse(shown);
        profile.name = typed;
        EXPECT_EQ(Save(FormCommand::Add, profile), SaveResult::InUse) << typed;
        EXPECT_FALSE(store.db().InTransaction());
    }
    EXPECT_EQ(store.prompt().Beeps(), 3);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Stores", "Bakery"}));
}

TEST_F(DepartmentsTest, can_be_the_first_of_an_empty_table) {
    test::TestStore empty;
    DepartmentProfile profile;
    profile.name = "First";
    EXPECT_EQ(SaveDepartment(empty.g.store, empty.g.department, empty.prompt(), FormCommand::Add, profile),
              SaveResult::Saved);
    EXPECT_EQ(RowsOf(empty.db(), "Department", {"Department name"}), std::vector<std::string>{"First"});
}

TEST_F(DepartmentsTest, keep_names_in_any_script) {
    DepartmentProfile profile;
    profile.name = "Bäckerei 🥐 Пекарня";
    EXPECT_EQ(Save(FormCommand::Add, profile), SaveResult::Saved);
    EXPECT_EQ(Names().back(), profile.name);
    ExpectNameInUse("BÄCKEREI 🥐 ПЕКАРНЯ");
    profile.name = "BÄCKEREI 🥐 ПЕКАРНЯ";
    EXPECT_EQ(Save(FormCommand::Add, profile), SaveResult::InUse);
}

// ---- changing ----

TEST_F(DepartmentsTest, are_changed_with_their_words_and_the_change_is_in_force_at_once) {
    DepartmentProfile profile = Opened(FormCommand::Change);
    profile.name = "Patisserie";
    profile.firstWeekday = 7;
    profile.cutoffQuarters = 32;
    profile.editorOrder = 2;
    profile.weekMethod = 1;
    profile.employeeNameSingle = " Associate ";
    profile.employeeNamePlural = "Associates";
    profile.dayOffNameSingle = "Day off";
    profile.dayOffNamePlural = "";
    EXPECT_EQ(Save(FormCommand::Change, profile), SaveResult::Saved);
    EXPECT_EQ(Row(bakery), "2|Patisserie|2|732|1|Associate|Associates|Day off|Vacation days");
    profile.employeeNameSingle = "Associate";
    profile.dayOffNamePlural = "Vacation days";
    EXPECT_EQ(InForce(), profile);
}

TEST_F(DepartmentsTest, keep_their_own_name_without_a_question) {
    DepartmentProfile profile = Opened(FormCommand::Change);
    profile.editorOrder = 4;
    profile.name = " Bakery ";
    EXPECT_EQ(Save(FormCommand::Change, profile), SaveResult::Saved);
    EXPECT_EQ(Row(bakery).substr(0, 11), "2|Bakery|4|");
}

TEST_F(DepartmentsTest, find_themselves_as_a_duplicate_when_only_the_case_of_the_name_changes) {
    DepartmentProfile profile = Opened(FormCommand::Change);
    profile.name = "BAKERY";
    ExpectNameInUse("BAKERY");
    EXPECT_EQ(Save(FormCommand::Change, profile), SaveResult::InUse);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Stores", "Bakery"}));
}

TEST_F(DepartmentsTest, cannot_take_the_name_of_another) {
    DepartmentProfile profile = Opened(FormCommand::Change);
    profile.name = "stores";
    ExpectNameInUse("stores");
    EXPECT_EQ(Save(FormCommand::Change, profile), SaveResult::InUse);
    EXPECT_EQ(g.department.CurrentDepName, "Bakery");
}

TEST_F(DepartmentsTest, keep_longer_texts_of_another_program_while_nobody_touches_them) {
    const std::string wide(40, 'w');
    test::RunAsAnotherProgram(store.db(), "UPDATE Department SET [Department name] = '" + wide +
                                              "', EmployeeNamePlural = '" + wide +
                                              "' WHERE [Dep number] = 2");
    g.department.CurrentDepName = wide;
    DepartmentProfile profile = Opened(FormCommand::Change);
    EXPECT_EQ(profile.employeeNamePlural, wide);
    profile.editorOrder = 2;
    EXPECT_EQ(Save(FormCommand::Change, profile), SaveResult::Saved);
    EXPECT_EQ(Row(bakery), "2|" + wide + "|2|304|2|Employee|" + wide + "|Vacation day|Vacation days");
}

TEST_F(DepartmentsTest, take_words_of_14_characters_and_refuse_longer_ones) {
    DepartmentProfile profile = Opened(FormCommand::Change);
    profile.employeeNameSingle = std::string(15, 'e');
    ExpectLocked(3163);
    EXPECT_EQ(Save(FormCommand::Change, profile), SaveResult::Refused);
    profile.employeeNameSingle = std::string(14, 'e');
    EXPECT_EQ(Save(FormCommand::Change, profile), SaveResult::Saved);
}

// ---- two workstations ----

TEST_F(DepartmentsTest, stay_as_they_are_while_another_workstation_saves_and_take_the_second_try) {
    DepartmentProfile profile = Opened(FormCommand::Change);
    profile.name = "Patisserie";
    profile.employeeNamePlural = "Bakers";
    const DepartmentProfile typed = profile;
    other.Hold();
    ExpectLocked(3260);
    EXPECT_EQ(SaveDepartment(g.store, g.department, store.prompt(), FormCommand::Change, profile),
              SaveResult::Refused);
    EXPECT_EQ(profile, typed);
    EXPECT_EQ(g.department.CurrentDepName, "Bakery");
    EXPECT_EQ(store.script.prompt.Shape(), Pointer::Default);
    EXPECT_FALSE(store.db().InTransaction());
    other.LetGo();
    EXPECT_EQ(SaveDepartment(g.store, g.department, store.prompt(), FormCommand::Change, profile),
              SaveResult::Saved);
    EXPECT_EQ(Names().back(), "Patisserie");
}

TEST_F(DepartmentsTest, are_added_once_when_the_first_try_found_the_file_locked) {
    DepartmentProfile profile;
    profile.name = "Kitchen";
    other.Hold();
    ExpectLocked(3260);
    EXPECT_EQ(Save(FormCommand::Add, profile), SaveResult::Refused);
    other.LetGo();
    EXPECT_EQ(Save(FormCommand::Add, profile), SaveResult::Saved);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Stores", "Bakery", "Kitchen"}));
}

TEST_F(DepartmentsTest, that_two_workstations_change_keep_what_was_saved_last) {
    DepartmentProfile profile = Opened(FormCommand::Change);
    other.Change("Department", "Department name", "Bakery", "EmployeeNamePlural", "Bakers");
    other.Change("Department", "Department name", "Bakery", "Editor order", "3");
    profile.dayOffNameSingle = "Free day";
    EXPECT_EQ(Save(FormCommand::Change, profile), SaveResult::Saved);
    EXPECT_EQ(Row(bakery), "2|Bakery|5|304|2|Employee|Employees|Free day|Vacation days");
}

TEST_F(DepartmentsTest, that_another_workstation_renamed_are_not_saved_and_nothing_is_lost) {
    DepartmentProfile profile = Opened(FormCommand::Change);
    other.Change("Department", "Department name", "Bakery", "Department name", "Patisserie");
    profile.editorOrder = 1;
    ExpectLocked(3021);
    EXPECT_EQ(Save(FormCommand::Change, profile), SaveResult::Refused);
    EXPECT_EQ(Row(bakery).substr(0, 15), "2|Patisserie|5|");
}

TEST_F(DepartmentsTest, get_a_name_that_another_workstation_gave_meanwhile_refused) {
    DepartmentProfile profile;
    profile.name = "Counter";
    other.Change("Department", "Department name", "Stores", "Department name", "Counter");
    ExpectNameInUse("Counter");
    EXPECT_EQ(Save(FormCommand::Add, profile), SaveResult::InUse);
}

// ---- deleting ----

class DeleteDepartmentTest : public DepartmentsTest {
  protected:
    void SetUp() override {
        DepartmentsTest::SetUp();
        FillDepartment("Stores", 1);
        FillDepartment("Bakery", bakery);
    }
    void FillDepartment(const std::string& name, int number) {
        g.department.CurrentDepName = name;
        g.department.CurrentDepNumber = number;
        for (const char* person : {"Adams", "Brown"}) {
            const int key = store.AddEmployee({.lastName = person});
            store.PutDay(46082, key, test::StartsStops({{36, 68}}));
            store.PutDay(46083, key, test::StartsStops({{36, 68}}));
        }
        AddRow("Day Types", {{"Symbol", std::string("CA")}, {"Explaination", std::string("Cash")}});
        AddRow("Department day", {{"Day", std::int64_t{46082}}, {"Remarks", std::string("Party")}});
    }
    void AddRow(const char* table, const std::vector<std::pair<const char*, dao::Value>>& fields) {
        dao::Recordset rs = store.db().OpenRecordset(table);
        rs.AddNew();
        for (const auto& [field, value] : fields) rs.Fields(field) = value;
        rs.Fields("Dep number") = g.department.CurrentDepNumber;
        rs.Update();
    }
    void ExpectQuestion(Answer answer) {
        store.prompt().Expect("You are about to delete the Bakery from the database.  Are you sure?", 20,
                              "Delete Bakery", answer);
    }
    std::vector<std::string> All() {
        std::vector<std::string> all;
        for (const auto& [table, field] :
             {std::pair<const char*, const char*>{"Department", "Department name"},
              {"Employee", "Employee"},
              {"Day Types", "Dep number"},
              {"Department day", "Dep number"}})
            for (const std::string& row : RowsOf(store.db(), table, {field}))
                all.push_back(std::string(table) + " " + row);
        for (const std::string& row : RowsOf(store.db(), "Day Schedule", {"Day Julian", "Employee"}))
            all.push_back("Day " + row);
        return all;
    }
};

TEST_F(DeleteDepartmentTest, takes_its_people_daytypes_and_days_and_the_schedule_of_its_first_employee) {
    ExpectQuestion(Answer::Yes);
    EXPECT_TRUE(AskAndDeleteDepartment(g, store.prompt()));
    EXPECT_EQ(All(), (std::vector<std::string>{"Department Stores", "Employee 1", "Employee 2", "Day Types 1",
                                               "Department day 1", "Day 46082|1", "Day 46082|2",
                                               "Day 46082|4", "Day 46083|1", "Day 46083|2", "Day 46083|4"}));
    EXPECT_EQ(g.application.FormCommand, FormCommand::Delete);
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
}

TEST_F(DeleteDepartmentTest, does_nothing_on_a_no) {
    const auto before = All();
    g.application.FormCommand = FormCommand::None;
    ExpectQuestion(Answer::No);
    EXPECT_FALSE(AskAndDeleteDepartment(g, store.prompt()));
    EXPECT_EQ(All(), before);
    EXPECT_EQ(g.application.FormCommand, FormCommand::None);
}

TEST_F(DeleteDepartmentTest, of_nobody_leaves_every_schedule) {
    g.department.CurrentDepNumber = store.AddDepartment("Empty");
    store.prompt().WillAnswer(Answer::Yes);
    EXPECT_TRUE(AskAndDeleteDepartment(g, store.prompt()));
    EXPECT_EQ(RowsOf(store.db(), "Day Schedule", {"Employee"}).size(), 8U);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Stores", "Bakery"}));
}

TEST_F(DeleteDepartmentTest, works_while_no_schedule_is_stored_at_all) {
    test::TestStore bare;
    bare.AddDepartment("Bakery");
    bare.AddEmployee({.lastName = "Adams"});
    bare.prompt().WillAnswer(Answer::Yes);
    EXPECT_TRUE(AskAndDeleteDepartment(bare.g, bare.prompt()));
    EXPECT_TRUE(RowsOf(bare.db(), "Employee", {"Employee"}).empty());
}

TEST_F(DeleteDepartmentTest, leaves_a_shift_file_that_cannot_be_written_alone) {
    // A folder in the place of the file: nobody can write it, whatever his rights.
    const auto shiftFile = store.folder / "2.SFT";
    std::filesystem::create_directory(shiftFile);
    ExpectQuestion(Answer::Yes);
    EXPECT_TRUE(AskAndDeleteDepartment(g, store.prompt()));
    EXPECT_EQ(Names(), std::vector<std::string>{"Stores"});
    EXPECT_TRUE(std::filesystem::is_directory(shiftFile));
}

TEST_F(DeleteDepartmentTest, never_gives_its_number_and_so_its_side_files_to_the_next_one) {
    test::WriteFile(store.folder / "2.SFT", "\"Early\"\r\n0\r\n");
    ExpectQuestion(Answer::Yes);
    EXPECT_TRUE(AskAndDeleteDepartment(g, store.prompt()));
    EXPECT_EQ(store.AddDepartment("Kitchen"), 3);
}

TEST_F(DeleteDepartmentTest, takes_nobody_along_when_another_workstation_has_deleted_it) {
    other.Delete("Department", "Department name", "Bakery");
    ExpectQuestion(Answer::Yes);
    try {
        AskAndDeleteDepartment(g, store.prompt());
        FAIL() << "it is gone";
    } catch (const dao::DaoError& trouble) {
        EXPECT_EQ(trouble.Number(), 3021);
    }
    EXPECT_EQ(RowsOf(store.db(), "Employee", {"Employee"}).size(), 4U);
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
}

TEST_F(DeleteDepartmentTest, deletes_nothing_while_another_workstation_saves) {
    const auto before = All();
    other.Hold();
    ExpectQuestion(Answer::Yes);
    EXPECT_THROW(AskAndDeleteDepartment(g, store.prompt()), dao::DaoError);
    EXPECT_FALSE(store.db().InTransaction());
    other.LetGo();
    EXPECT_EQ(All(), before);
    ExpectQuestion(Answer::Yes);
    EXPECT_TRUE(AskAndDeleteDepartment(g, store.prompt()));
}

} // namespace
} // namespace tvx
