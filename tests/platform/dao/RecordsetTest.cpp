#include "platform/dao/Recordset.h"

#include "platform/dao/DaoError.h"
#include "platform/dao/Database.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace tvx::dao {
namespace {

TableDef Towns() {
    return {"Town list",
            {{"Town number", FieldType::AutoNumber, 0},
             {"Town name", FieldType::Text, 12},
             {"Open", FieldType::Boolean, 0},
             {"Hours", FieldType::TimeText, 14}},
            {"Nbr", {"Town number"}},
            {{"By name", {"Town name"}}}};
}

class RecordsetTest : public testing::Test {
  protected:
    test::TempFolder folder;
    Engine engine;
    std::unique_ptr<Database> db = engine.CreateDatabase(folder / "t.mdb");
    void SetUp() override { db->CreateTable(Towns()); }
    void Add(const std::string& name, bool open = true) {
        Recordset towns = db->OpenRecordset("town LIST");
        towns.AddNew();
        towns.Fields("town NAME") = name;
        towns.Fields("Open") = open;
        towns.Update();
    }
};

TEST_F(RecordsetTest, AddNew_gives_ascending_numbers_and_keeps_the_current_record) {
    Add("Ulm");
    Recordset towns = db->OpenRecordset("Town list");
    towns.AddNew();
    towns.Fields("Town name") = "Bonn";
    towns.Update();
    EXPECT_EQ(towns.Fields("Town name").Text(), "Ulm");
    towns.MoveLast();
    EXPECT_EQ(towns.Fields(0).Long(), 2);
    EXPECT_EQ(towns.Fields("Town name").Text(), "Bonn");
}

TEST_F(RecordsetTest, Select_orders_without_case_and_breaks_ties_by_key) {
    Add("ulm");
    Add("Bonn", false);
    Add("ULM");
    Add("aachen");
    Recordset towns =
        db->OpenRecordset("SELECT * FROM [Town List] WHERE [open] = true ORDER BY [Town name] ASC;");
    std::string seen;
    while (!towns.AtEnd()) {
        seen += towns.Fields(1).Text() + towns.Fields(0).Text() + " ";
        towns.MoveNext();
    }
    EXPECT_EQ(seen, "aachen4 ulm1 ULM3 ");
}

TEST_F(RecordsetTest, Time_text_keeps_code_128) {
    Recordset towns = db->OpenRecordset("Town list");
    towns.AddNew();
    const std::string bytes = std::string(6, ' ') + "\x80" + std::string(7, ' ');
    towns.Fields("Hours") = bytes;
    towns.Update();
    towns.MoveFirst();
    EXPECT_EQ(towns.Fields("Hours").Text(), bytes);
}

} // namespace
} // namespace tvx::dao
