// The tables that the tests of this folder work on.
#pragma once

#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "support/TempFolder.h"
#include "support/TestEngine.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace tvx::test {

/// Numbered by the engine.
inline dao::TableDef TownList() {
    using enum dao::FieldType;
    return {"Town list",
            {{"Town number", AutoNumber, 0},
             {"Town name", Text, 12},
             {"Open", Boolean, 0},
             {"Hours", TimeText, 14}},
            {"Nbr", {"Town number"}},
            {{"By name", {"Town name"}}}};
}

/// One record a day and worker, with a field of every kind.
inline dao::TableDef ShiftList() {
    using enum dao::FieldType;
    return {"Shift list",
            {{"Day", Long, 0},
             {"Worker", Integer, 0},
             {"Label", Text, 6},
             {"Remarks", Memo, 0},
             {"Hours", TimeText, 14},
             {"Rate", Double, 0},
             {"Share", Single, 0},
             {"Off", Boolean, 0},
             {"Made", Date, 0}},
            {"Day and worker", {"Day", "Worker"}},
            {{"By worker", {"Worker", "Label"}}}};
}

/// A new file with both tables.
class DaoTest : public testing::Test {
  protected:
    TempFolder folder;
    const std::filesystem::path file = folder / "t.mdb";
    dao::Engine engine = TestEngine();
    std::unique_ptr<dao::Database> db;

    void SetUp() override { MakeTables(); }
    void MakeTables() {
        db = engine.CreateDatabase(file);
        db->CreateTable(TownList());
        db->CreateTable(ShiftList());
    }
    void AddTown(const std::string& name, bool open = true) const { AddTown(*db, name, open); }
    static void AddTown(dao::Database& database, const std::string& name, bool open = true) {
        dao::Recordset towns = database.OpenRecordset("Town list");
        towns.AddNew();
        towns.Fields("Town name") = name;
        towns.Fields("Open") = open;
        towns.Update();
    }
    void AddShift(int day, int worker, const std::string& label = "") const {
        dao::Recordset shifts = db->OpenRecordset("Shift list");
        shifts.AddNew();
        shifts.Fields("Day") = day;
        shifts.Fields("Worker") = worker;
        shifts.Fields("Label") = label;
        shifts.Update();
    }
    /// One shift of worker 1 on each day from 1 on.
    void FillDays(int days) const {
        dao::Transaction all(*db);
        dao::Recordset shifts = db->OpenRecordset("Shift list");
        for (int day = 1; day <= days; ++day) {
            shifts.AddNew();
            shifts.Fields("Day") = day;
            shifts.Fields("Worker") = 1;
            shifts.Update();
        }
        all.Commit();
    }
    /// One field of all records from the first on, a blank behind each; Null is a dash.
    static std::string All(dao::Recordset set, std::size_t field = 0) {
        std::string seen;
        for (; !set.AtEnd(); set.MoveNext()) seen += set.Fields(field).Text("-") + " ";
        return seen;
    }
    std::string All(const std::string& tableOrSql, std::size_t field = 0) const {
        return All(db->OpenRecordset(tableOrSql), field);
    }
    std::string TownNames() const { return All("Town list", 1); }
};

} // namespace tvx::test
