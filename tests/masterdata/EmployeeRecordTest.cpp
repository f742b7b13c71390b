#include "masterdata/EmployeeRecord.h"

#include "editor/week/RosterBuilder.h"
#include "platform/dao/DaoError.h"
#include "shell/common/Conversions.h"
#include "store/rows/ApplicationRow.h"
#include "support/OtherWorkstation.h"
#include "support/Rows.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::FieldOf;
using test::RowsOf;

constexpr DaySerial Today = 46086; // 5 March 2026

class EmployeeRecordTest : public testing::Test {
  protected:
    test::OtherWorkstation other;
    test::TestStore store;
    GlobalState& g = store.g;
    int adams = 0;

    void SetUp() override {
        store.AddDepartment("Bakery");
        adams = store.AddEmployee({.lastName = "Adams", .firstName = "Anna", .pay = "7.25"});
        store.AddEmployee({.lastName = "Brown", .firstName = "Bob", .pay = "700", .hourly = false});
        other.Open(store.folder / "TVX.MDB");
    }
    EmployeeRecord Load(int key) { return LoadEmployeeRecord(g.store, g.application, g.rights, key); }
    SaveResult Add(EmployeeRecord record) {
        record.key = 0;
        return SaveEmployeeRecord(g.store, g.department, store.ports(), record);
    }
    SaveResult Change(const EmployeeRecord& record) {
        EXPECT_NE(record.key, 0);
        return SaveEmployeeRecord(g.store, g.department, store.ports(), record);
    }
    EmployeeRecord Named(const std::string& lastName) {
        EmployeeRecord record = NewEmployeeRecord(g.application.options);
        record.Text2[box_of::LastName] = lastName;
        return record;
    }
    dao::Value Stored(int key, const std::string& field) {
        return FieldOf(store.db(), "Employee", "Employee", key, field);
    }
    std::string StoredText(int key, const std::string& field) {
        return dao::ToText(Stored(key, field), "(null)");
    }
    void Put(int key, const std::string& field, const dao::Value& value) {
        test::PutField(store.db(), "Employee", "Employee", key, field, value);
    }
    void ExpectLocked(int number, const std::string& word = "Employee") {
        store.prompt().Expect("Could not save this " + word +
                                  ",\nthis page is locked by another user, try again..\n\n(" +
                                  std::to_string(number) + ")",
                              0, "Locked page...");
    }
};

/// Something in every box, as long as it can be.
EmployeeRecord FullRecord() {
    EmployeeRecord record;
    record.Text2 = {"",
                    "Anderson-Lindqvist",
                    "Elisabeth",
                    "A1-007",
                    "Cashier",
                    "1234.50",
                    "12345 Upper Riverside Avenue W",
                    "Llanfairpwllgwyngyll",
                    "OHX",
                    "44101-1234",
                    "",
                    "",
                    "+1 440 555 0101",
                    "+1 440 555 0161",
                    "+1 440 555 0171",
                    "000-00-0101",
                    "elisabeth.anderson-lindqvist@example.com"};
    record.hireDate = SerialFromParts(1998, 3, 2);
    record.birthDate = SerialFromParts(1972, 2, 29);
    record.comments = "Keys to the safe.\n\"Quoted\", with commas; and a second line.";
    record.hourly = false;
    record.active = false;
    record.laborOption = 3;
    record.barColor = 14;
    record.absence = DecodeAbsence(std::string(28, ' '), "\x80" + std::string(27, ' '));
    return record;
}

// ---- what the boxes are ----

TEST(EmployeeBoxes, take_as_many_characters_as_their_fields) {
    const std::array<int, 17> limits{0, 18, 9, 6, 7, 7, 30, 20, 3, 10, 12, 12, 15, 15, 15, 11, 40};
    for (int i = 1; i <= box_of::Last; ++i)
        EXPECT_EQ(EmployeeBoxes()[i].maxLength, limits[i]) << EmployeeBoxes()[i].label;
}

TEST(EmployeeBoxes, are_called_as_on_paper) {
    const std::array<const char*, 17> labels{
        "",       "Last name",    "First name", "I.D.",          "Assignmt.", "Pay ",
        "Street", "City",         "State",      "Zip",           "Hire date", "Birth date",
        "Phone",  "Emerg. Phone", "Cell phone", "Soc. Sec. Nbr", "Email"};
    for (int i = 1; i <= box_of::Last; ++i) EXPECT_STREQ(EmployeeBoxes()[i].label, labels[i]);
}

// ---- keys ----

TEST(FilterEmployeeKey, refuses_the_double_quote_in_every_box) {
    for (int box = 1; box <= box_of::Last; ++box) EXPECT_EQ(FilterEmployeeKey(box, '"', "", '.'), 0) << box;
}

TEST(FilterEmployeeKey, passes_every_other_character_in_a_free_box) {
    for (const int code : {8, 13, 32, 39, 65, 97, 124, 126, 0xE9, 0x1F950})
        EXPECT_EQ(FilterEmployeeKey(box_of::LastName, code, "", '.'), code);
}

TEST(FilterEmployeeKey, takes_digits_and_one_point_as_pay) {
    for (int code = 1; code < 300; ++code) {
        const bool passes = code == 8 || code == 13 || (code >= '0' && code <= '9') || code == '.';
        EXPECT_EQ(FilterEmployeeKey(box_of::Pay, code, "7", '.'), passes ? code : 0) << code;
    }
    EXPECT_EQ(FilterEmployeeKey(box_of::Pay, '.', "7.2", '.'), 0);
    EXPECT_EQ(FilterEmployeeKey(box_of::Pay, '.', ".", '.'), 0);
}

TEST(FilterEmployeeKey, enters_the_point_of_a_pay_for_the_decimal_sign_of_the_country) {
    EXPECT_EQ(FilterEmployeeKey(box_of::Pay, ',', "15", ','), '.');
    EXPECT_EQ(FilterEmployeeKey(box_of::Pay, '.', "15", ','), '.');
    EXPECT_EQ(FilterEmployeeKey(box_of::Pay, ',', "15.5", ','), 0);
    EXPECT_EQ(FilterEmployeeKey(box_of::Pay, ',', "15", '.'), 0);
    EXPECT_EQ(FilterEmployeeKey(box_of::Pay, 0x66B, "15", 0x66B), '.') << "Arabic";
    EXPECT_EQ(FilterEmployeeKey(box_of::City, ',', "", ','), ',');
}

TEST(FilterEmployeeKey, makes_capitals_of_the_letters_of_a_state_alone) {
    EXPECT_EQ(FilterEmployeeKey(box_of::State, 'a', "", '.'), 'A');
    EXPECT_EQ(FilterEmployeeKey(box_of::State, 'z', "", '.'), 'Z');
    EXPECT_EQ(FilterEmployeeKey(box_of::State, '`', "", '.'), '`');
    EXPECT_EQ(FilterEmployeeKey(box_of::State, '{', "", '.'), '{');
    EXPECT_EQ(FilterEmployeeKey(box_of::State, 'Q', "", '.'), 'Q');
    EXPECT_EQ(FilterEmployeeKey(box_of::City, 'a', "", '.'), 'a');
}

TEST(BoxAfterEnter, goes_on_and_from_the_last_to_the_first) {
    for (int box = 1; box < box_of::Last; ++box) EXPECT_EQ(BoxAfterEnter(box, false), box + 1);
    EXPECT_EQ(BoxAfterEnter(16, false), 1);
    EXPECT_EQ(BoxAfterEnter(4, true), 6) << "pay is hidden";
    EXPECT_EQ(BoxAfterEnter(3, true), 4);
    EXPECT_EQ(BoxAfterEnter(16, true), 1);
}

TEST(BoxAfterArrow, goes_up_from_the_second_and_down_to_the_fifteenth) {
    EXPECT_EQ(BoxAfterArrow(1, -1, false), 1);
    for (int box = 2; box <= box_of::Last; ++box) EXPECT_EQ(BoxAfterArrow(box, -1, false), box - 1);
    for (int box = 1; box < 15; ++box) EXPECT_EQ(BoxAfterArrow(box, 1, false), box + 1);
    EXPECT_EQ(BoxAfterArrow(15, 1, false), 15);
    EXPECT_EQ(BoxAfterArrow(16, 1, false), 16);
    EXPECT_EQ(BoxAfterArrow(6, -1, true), 4) << "pay is hidden";
    EXPECT_EQ(BoxAfterArrow(4, 1, true), 6);
    EXPECT_EQ(BoxAfterArrow(7, -1, true), 6);
}

// ---- leaving a box ----

TEST(NormalizedPay, is_the_leading_number_with_two_decimals) {
    for (const auto& [typed, shown] :
         std::vector<std::pair<const char*, const char*>>{{"7", "7.00"},
                                                          {"", ".00"},
                                                          {".", ".00"},
                                                          {".5", ".50"},
                                                          {"7.", "7.00"},
                                                          {"7.255", "7.26"},
                                                          {"7.254", "7.25"},
                                                          {"0007", "7.00"},
                                                          {"1234567", "1234567.00"},
                                                          {"12 Euro", "12.00"},
                                                          {"Euro", ".00"},
                                                          {"61.625", "61.63"}})
        EXPECT_EQ(NormalizedPay(typed), shown) << typed;
}

// ---- adding ----

TEST_F(EmployeeRecordTest, a_new_one_is_hourly_active_and_of_the_options_colour) {
    g.application.options.BarColor = 6;
    const EmployeeRecord record = NewEmployeeRecord(g.application.options);
    EXPECT_TRUE(record.hourly && record.active);
    EXPECT_EQ(record.laborOption, 0);
    EXPECT_EQ(record.barColor, 6);
    EXPECT_EQ(record.absence, Absence());
    g.application.options.BarColor = 15;
    EXPECT_EQ(NewEmployeeRecord(g.application.options).barColor, 2);
}

TEST_F(EmployeeRecordTest, every_field_is_stored_and_comes_back) {
    EmployeeRecord record = FullRecord();
    ASSERT_EQ(Add(record), SaveResult::Saved);
    record.key = 3;
    EXPECT_EQ(Load(3), record);
    const auto stored = [this](std::initializer_list<const char*> fields) {
        return RowsOf(store.db(), "Employee", fields).back();
    };
    EXPECT_EQ(stored({"Last name", "First name", "ID", "Assignment", "Pay", "Wage or Sal", "Active"}),
              "Anderson-Lindqvist|Elisabeth|A1-007|Cashier|1234.50|0|0");
    EXPECT_EQ(stored({"Street", "City", "State", "Zip"}),
              "12345 Upper Riverside Avenue W|Llanfairpwllgwyngyll|OHX|44101-1234");
    EXPECT_EQ(stored({"Hire Date", "Birth date", "Phone", "Emergency phone", "Page/Cell phone"}),
              "35856|26358|+1 440 555 0101|+1 440 555 0161|+1 440 555 0171");
    EXPECT_EQ(stored({"Soc Sec number", "Dep number", "Labor type", "EbarColor", "Email"}),
              "000-00-0101|1|4|14|elisabeth.anderson-lindqvist@example.com");
}

TEST_F(EmployeeRecordTest, empty_boxes_are_stored_as_blank_null_or_zero) {
    ASSERT_EQ(Add(Named("Clark")), SaveResult::Saved);
    EXPECT_EQ(StoredText(3, "Pay"), "0") << "the box never had the focus";
    EXPECT_EQ(StoredText(3, "Email"), " ");
    EXPECT_EQ(StoredText(3, "Hire Date"), "(null)");
    EXPECT_EQ(StoredText(3, "Birth date"), "(null)");
    EXPECT_EQ(StoredText(3, "Street"), "");
    EXPECT_EQ(StoredText(3, "Comments"), "");
    EXPECT_EQ(StoredText(3, "Avail start"), std::string(28, ' '));
    EXPECT_EQ(StoredText(3, "Avail stop"), std::string(28, ' '));
    EXPECT_EQ(dao::ToLong(Stored(3, "Wage or Sal")), -1);
    EXPECT_EQ(dao::ToLong(Stored(3, "Active")), -1);
}

TEST_F(EmployeeRecordTest, pay_is_stored_as_its_box_shows_it) {
    EmployeeRecord record = Named("Clark");
    for (const char* pay : {".00", "7.00", "7", "7.5", "1234567"}) {
        record.Text2[box_of::Pay] = pay;
        ASSERT_EQ(Add(record), SaveResult::Saved);
        EXPECT_EQ(RowsOf(store.db(), "Employee", {"Pay"}).back(), pay);
    }
}

TEST_F(EmployeeRecordTest, a_last_name_is_needed) {
    for (const char* name : {"", "   "}) {
        store.prompt().Expect("Last name must be filled out.", 0, "Last Name is blank");
        EXPECT_EQ(Add(Named(name)), SaveResult::Incomplete);
    }
    EXPECT_EQ(store.prompt().Beeps(), 2);
    EXPECT_EQ(RowsOf(store.db(), "Employee", {"Employee"}).size(), 2U);
}

TEST_F(EmployeeRecordTest, nobody_is_added_beyond_the_last_number) {
    const auto give = [&](int key) {
        test::RunAsAnotherProgram(store.db(), "UPDATE Employee SET Employee = " + std::to_string(key) +
                                                  " WHERE [Last name] = 'Brown'");
    };
    give(32766);
    EXPECT_EQ(Add(Named("Clark")), SaveResult::Saved);
    g.department.EmployeeNameSingle = "Associate";
    g.department.EmployeeNamePlural = "Associates";
    store.prompt().Expect(
        "Could not add this Associate.\n\nAssociates are numbered from 1 to 32,767, and the "
        "last number has been given.",
        0, "No number left...");
    EXPECT_EQ(Add(Named("Dale")), SaveResult::Refused);
    EXPECT_FALSE(store.db().InTransaction());
    EXPECT_EQ(RowsOf(store.db(), "Employee", {"Last name"}),
              (std::vector<std::string>{"Adams", "Brown", "Clark"}));
    EXPECT_EQ(Change(Load(32767)), SaveResult::Saved);
}

TEST_F(EmployeeRecordTest, a_hidden_pay_is_not_loaded_and_stays_as_it_is_stored) {
    Put(adams, "Pay", std::string("61.4372"));
    Put(adams, "Wage or Sal", std::int64_t{0});
    g.rights.HideWages = true;
    EmployeeRecord record = Load(adams);
    EXPECT_EQ(record.Text2[box_of::Pay], "");
    record.Text2[box_of::Phone] = "555";
    Put(adams, "Pay", std::string("62.5")); // another workstation, meanwhile
    EXPECT_EQ(Change(record), SaveResult::Saved);
    EXPECT_EQ(StoredText(adams, "Pay"), "62.5");
    EXPECT_EQ(StoredText(adams, "Wage or Sal"), "0");
    EXPECT_EQ(StoredText(adams, "Phone"), "555");
    Put(adams, "Pay", dao::Null{});
    EXPECT_EQ(Change(record), SaveResult::Saved);
    EXPECT_EQ(StoredText(adams, "Pay"), "(null)");
}

TEST_F(EmployeeRecordTest, equal_ids_are_taken) {
    EmployeeRecord record = Named("Clark");
    record.Text2[box_of::Id] = "7";
    EXPECT_EQ(Add(record), SaveResult::Saved);
    EXPECT_EQ(Add(record), SaveResult::Saved);
}

TEST_F(EmployeeRecordTest, each_labor_type_has_its_code) {
    EmployeeRecord record = Named("Clark");
    for (const auto& [option, code] : {std::pair{0, 0}, {1, 1}, {2, 2}, {3, 4}, {-1, 0}}) {
        record.laborOption = option;
        ASSERT_EQ(Add(record), SaveResult::Saved);
        EXPECT_EQ(RowsOf(store.db(), "Employee", {"Labor type"}).back(), std::to_string(code));
    }
}

// ---- loading ----

TEST_F(EmployeeRecordTest, missing_fields_leave_their_boxes_empty) {
    for (const char* field : {"First name", "Email", "Comments", "Avail start", "Avail stop", "Hire Date"})
        Put(adams, field, dao::Null{});
    const EmployeeRecord record = Load(adams);
    EXPECT_EQ(record.Text2[box_of::LastName], "Adams");
    EXPECT_EQ(record.Text2[box_of::FirstName], "");
    EXPECT_EQ(record.Text2[box_of::Email], "");
    EXPECT_EQ(record.hireDate, std::nullopt);
    EXPECT_EQ(record.comments, "");
    EXPECT_EQ(record.absence, Absence());
}

TEST_F(EmployeeRecordTest, stored_labor_types_without_an_option_choose_none) {
    for (const auto& [code, option] : std::vector<std::pair<dao::Value, int>>{{std::int64_t{0}, 0},
                                                                              {std::int64_t{1}, 1},
                                                                              {std::int64_t{2}, 2},
                                                                              {std::int64_t{3}, -1},
                                                                              {std::int64_t{4}, 3},
                                                                              {std::int64_t{5}, -1},
                                                                              {std::int64_t{-1}, -1},
                                                                              {dao::Null{}, 0}}) {
        Put(adams, "Labor type", code);
        EXPECT_EQ(Load(adams).laborOption, option) << dao::ToText(code, "Null");
    }
}

TEST_F(EmployeeRecordTest, stored_colours_beyond_the_palette_become_green) {
    g.application.options.BarColor = 5;
    for (const auto& [stored, shown] : std::vector<std::pair<dao::Value, int>>{{std::int64_t{1}, 1},
                                                                               {std::int64_t{14}, 14},
                                                                               {std::int64_t{15}, 2},
                                                                               {std::int64_t{99}, 2},
                                                                               {std::int64_t{-1}, 2},
                                                                               {std::int64_t{0}, 0},
                                                                               {dao::Null{}, 5}}) {
        Put(adams, "EbarColor", stored);
        EXPECT_EQ(Load(adams).barColor, shown) << dao::ToText(stored, "Null");
    }
}

TEST_F(EmployeeRecordTest, pay_shows_as_an_amount_whatever_is_stored) {
    for (const auto& [stored, shown] : std::vector<std::pair<const char*, const char*>>{
             {"7.25", "7.25"}, {"7", "7.00"}, {"", ".00"}, {"abc", ".00"}}) {
        Put(adams, "Pay", std::string(stored));
        EXPECT_EQ(Load(adams).Text2[box_of::Pay], shown);
    }
    Put(adams, "Pay", dao::Null{});
    EXPECT_EQ(Load(adams).Text2[box_of::Pay], ".00");
}

TEST_F(EmployeeRecordTest, dates_are_whole_days) {
    Put(adams, "Hire Date", std::int64_t{Today});
    Put(adams, "Birth date", 36526.75);
    EXPECT_EQ(Load(adams).hireDate, Today);
    EXPECT_EQ(Load(adams).birthDate, 36526);
}

TEST_F(EmployeeRecordTest, of_nobody_cannot_be_loaded) {
    EXPECT_THROW(Load(99), dao::DaoError);
}

TEST_F(EmployeeRecordTest, keys_come_in_the_order_of_the_last_names_with_inactive_people) {
    test::TestEmployee aaron;
    aaron.lastName = "aaron";
    aaron.active = false;
    store.AddEmployee(aaron);
    store.AddDepartment("Stores");
    store.AddEmployee({.lastName = "Aardvark"});
    g.department.CurrentDepNumber = 1;
    EXPECT_EQ(EmployeeKeys(g.store, g.department), (std::vector<int>{3, 1, 2}));
}

// ---- changing ----

TEST_F(EmployeeRecordTest, a_change_is_written_to_the_record_that_was_loaded) {
    for (const char* phone : {"555-1", "555-2"}) {
        EmployeeRecord record = Load(adams);
        record.Text2[box_of::Phone] = phone;
        EXPECT_EQ(Change(record), SaveResult::Saved);
        EXPECT_EQ(StoredText(adams, "Phone"), phone);
    }
    EXPECT_EQ(RowsOf(store.db(), "Employee", {"Last name"}), (std::vector<std::string>{"Adams", "Brown"}));
}

TEST_F(EmployeeRecordTest, an_untouched_one_is_stored_as_it_was) {
    ASSERT_EQ(Add(FullRecord()), SaveResult::Saved);
    const auto before =
        RowsOf(store.db(), "Employee", {"Last name", "Pay", "Hire Date", "Avail stop", "Email"});
    const EmployeeRecord record = Load(3);
    EXPECT_EQ(Change(record), SaveResult::Saved);
    EXPECT_EQ(RowsOf(store.db(), "Employee", {"Last name", "Pay", "Hire Date", "Avail stop", "Email"}),
              before);
}

TEST_F(EmployeeRecordTest, longer_texts_of_another_program_stay_while_nobody_touches_them) {
    const std::string wide(60, 'w');
    for (const std::string field :
         {"Last name", "First name", "ID", "Assignment", "Street", "City", "State", "Zip", "Phone",
          "Emergency phone", "Page/Cell phone", "Soc Sec number", "Email"})
        test::RunAsAnotherProgram(store.db(), "UPDATE Employee SET [" + field + "] = '" + wide + "'");
    EmployeeRecord record = Load(adams);
    record.comments = "only this";
    EXPECT_EQ(Change(record), SaveResult::Saved);
    EXPECT_EQ(StoredText(adams, "Comments"), "only this");
    EXPECT_EQ(StoredText(adams, "Last name"), wide);
    EXPECT_EQ(StoredText(adams, "Email"), wide);
}

TEST_F(EmployeeRecordTest, the_last_quarter_of_a_day_survives_byte_for_byte) {
    const std::string stop = "\x80" + std::string(26, ' ') + "\x80";
    const std::string start = std::string(27, ' ') + "P";
    EmployeeRecord record = Named("Clark");
    record.absence = DecodeAbsence(start, stop);
    record.absence.AvailStart[7][4] = 48;
    record.absence.AvailStop[7][4] = 96;
    ASSERT_EQ(Add(record), SaveResult::Saved);
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(StoredText(3, "Avail stop"), stop);
        EXPECT_EQ(StoredText(3, "Avail start"), start);
        ASSERT_EQ(Change(Load(3)), SaveResult::Saved);
    }
}

TEST_F(EmployeeRecordTest, texts_in_any_script_come_back) {
    EmployeeRecord record = Named("Łukasiewicz 🥐");
    record.Text2[box_of::FirstName] = "𝒜𝓃𝓃𝒶";
    record.Text2[box_of::City] = "北京";
    record.Text2[box_of::Street] = "O'Brien's [Lane]; DROP TABLE";
    record.comments = "👩‍🍳 bakes";
    ASSERT_EQ(Add(record), SaveResult::Saved);
    const EmployeeRecord again = Load(3);
    EXPECT_EQ(again.Text2[box_of::LastName], "Łukasiewicz 🥐");
    EXPECT_EQ(again.Text2[box_of::FirstName], "𝒜𝓃𝓃𝒶");
    EXPECT_EQ(again.Text2[box_of::City], "北京");
    EXPECT_EQ(again.Text2[box_of::Street], "O'Brien's [Lane]; DROP TABLE");
    EXPECT_EQ(again.comments, "👩‍🍳 bakes");
}

TEST_F(EmployeeRecordTest, its_loading_and_saving_leaves_the_people_of_the_roster_to_the_roster) {
    store.OpenEditor();
    store.AddDepartment("Stores");
    store.AddEmployee({"Aardvark"});
    g.department.CurrentDepNumber = 1;
    g.department.EditorOrder = 0; // of no meaning: the people of the last roster stay
    EXPECT_EQ(EmployeeKeys(g.store, g.department).size(), 2U);
    ASSERT_EQ(Change(Load(adams)), SaveResult::Saved);
    ASSERT_EQ(Add(Named("Clark")), SaveResult::Saved);
    ASSERT_EQ(BuildRoster(g), RosterResult::Ready);
    EXPECT_EQ(g.roster.RosterName1, (std::vector<std::string>{"", "Adams", "Brown"}));
}

// ---- two workstations ----

TEST_F(EmployeeRecordTest, a_save_beside_another_one_tells_the_lock_and_the_second_try_works) {
    EmployeeRecord record = Load(adams);
    record.Text2[box_of::Phone] = "555-0101";
    other.Hold();
    g.department.EmployeeNameSingle = "Associate";
    ExpectLocked(3260, "Associate");
    EXPECT_EQ(Change(record), SaveResult::Refused);
    EXPECT_FALSE(store.db().InTransaction());
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
    other.LetGo();
    EXPECT_EQ(Change(record), SaveResult::Saved);
    EXPECT_EQ(StoredText(adams, "Phone"), "555-0101");
}

TEST_F(EmployeeRecordTest, an_addition_beside_another_save_is_made_once) {
    other.Hold();
    ExpectLocked(3260);
    EXPECT_EQ(Add(Named("Clark")), SaveResult::Refused);
    other.LetGo();
    EXPECT_EQ(Add(Named("Clark")), SaveResult::Saved);
    EXPECT_EQ(RowsOf(store.db(), "Employee", {"Last name"}),
              (std::vector<std::string>{"Adams", "Brown", "Clark"}));
}

TEST_F(EmployeeRecordTest, of_two_workstations_the_last_save_wins) {
    EmployeeRecord record = Load(adams);
    other.Change("Employee", "Employee", "1", "Phone", "555-9999");
    record.Text2[box_of::Street] = "Mill Lane";
    EXPECT_EQ(Change(record), SaveResult::Saved);
    EXPECT_EQ(StoredText(adams, "Phone"), "");
    EXPECT_EQ(StoredText(adams, "Street"), "Mill Lane");
}

TEST_F(EmployeeRecordTest, one_that_another_workstation_deleted_is_not_saved) {
    const EmployeeRecord record = Load(adams);
    other.Delete("Employee", "Employee", "1");
    ExpectLocked(3167);
    EXPECT_EQ(Change(record), SaveResult::Refused);
    EXPECT_FALSE(store.db().InTransaction());
}

TEST_F(EmployeeRecordTest, a_text_that_does_not_fit_is_refused_whole) {
    EmployeeRecord record = Load(adams);
    record.Text2[box_of::FirstName] = std::string(10, 'x');
    record.Text2[box_of::Phone] = "555";
    ExpectLocked(3163);
    EXPECT_EQ(Change(record), SaveResult::Refused);
    EXPECT_EQ(StoredText(adams, "Phone"), "(null)");
    EXPECT_EQ(StoredText(adams, "First name"), "Anna");
}

// ---- notices and titles ----

TEST_F(EmployeeRecordTest, somebody_is_under_age_until_the_day_before_the_birthday) {
    g.application.options.UnderAge = {16, "16"};
    g.department.EmployeeNameSingle = "Associate";
    const auto notice = [&](int year, int month, int day) {
        return UnderAgeNotice(SerialFromParts(year, month, day), g, store.ports());
    };
    EXPECT_EQ(notice(2010, 3, 6), "Associate is under the age of 16.");
    EXPECT_EQ(notice(2010, 3, 5), "") << "on the birthday itself";
    EXPECT_EQ(notice(2010, 3, 4), "");
    EXPECT_EQ(notice(2026, 1, 1), "Associate is under the age of 16.");
    EXPECT_EQ(UnderAgeNotice(std::nullopt, g, store.ports()), "");
}

TEST_F(EmployeeRecordTest, somebody_born_on_29_February_comes_of_age_on_that_day_or_the_next) {
    g.application.options.UnderAge = {17, "17"};
    store.script.clock.Set(SerialFromParts(2025, 2, 28));
    EXPECT_NE(UnderAgeNotice(SerialFromParts(2008, 2, 29), g, store.ports()), "");
    store.script.clock.Set(SerialFromParts(2025, 3, 1));
    EXPECT_EQ(UnderAgeNotice(SerialFromParts(2008, 2, 29), g, store.ports()), "");
    store.script.clock.Set(SerialFromParts(2028, 2, 29));
    EXPECT_EQ(UnderAgeNotice(SerialFromParts(2011, 3, 1), g, store.ports()), "")
        << "17 years before 29 February is 1 March";
}

TEST_F(EmployeeRecordTest, an_age_that_is_no_number_is_0) {
    for (const char* age : {"", "abc", "-3"}) {
        ApplicationRow row;
        row.underAge = age;
        g.application.options = OptionsOf(row);
        EXPECT_EQ(UnderAgeNotice(SerialFromParts(2020, 1, 1), g, store.ports()), "") << age;
        EXPECT_EQ(UnderAgeNotice(SerialFromParts(2030, 1, 1), g, store.ports()),
                  g.department.EmployeeNameSingle + " is under the age of " + age + ".");
    }
}

TEST_F(EmployeeRecordTest, the_hint_of_the_dates_follows_the_country) {
    store.script.clock.Set(Today);
    for (const char* setting : {"MM-DD-YYYY", "DD-MM-YYYY"}) {
        g.application.DateFormatSetting = setting;
        EXPECT_EQ(DateHint(g, store.ports()), "Use format like 2-Jan-2026 or Apr-12-26");
    }
    g.application.DateFormatSetting = "YYYY-MM-DD";
    EXPECT_EQ(DateHint(g, store.ports()), "Use format like Jan-12-26 or 26-Apr-12");
}

TEST_F(EmployeeRecordTest, the_title_tells_department_and_task) {
    g.department.EmployeeNameSingle = "Associate";
    EXPECT_EQ(EmployeeTitle(g.department, true), "Bakery: Add new Associate");
    EXPECT_EQ(EmployeeTitle(g.department, false), "Bakery: Change Associate record");
    g.department.CurrentDepName = "מאפייה";
    EXPECT_EQ(EmployeeTitle(g.department, true), "\u2068מאפייה\u2069: Add new Associate");
}

} // namespace
} // namespace tvx
