// Whatever the engine says when it refuses, a person reads plain sentences.
#include "editor/week/LoadWeek.h"
#include "editor/week/RosterBuilder.h"
#include "editor/week/SaveWeek.h"
#include "masterdata/DaytypeList.h"
#include "masterdata/Departments.h"
#include "masterdata/EmployeeRecord.h"
#include "masterdata/EmployeeSearch.h"
#include "platform/basic/Text.h"
#include "shell/common/TVXMOD1.h"
#include "shell/console/Console.h"
#include "support/FailingSession.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

#include <iostream>

namespace tvx {
namespace {

constexpr DaySerial Sunday = 46082; // 1 March 2026

/// Words of the engine, in capitals; the faults speak them too.
const std::vector<std::string> EngineWords{
    "SQL",           "MALFORMED",      "DATABASE IS LOCKED", "TABLE IS LOCKED", "DISK I/O",     "CONSTRAINT",
    "NO SUCH TABLE", "NO SUCH COLUMN", "OUT OF MEMORY",      "NOT A DATABASE",  "UNIQUE",       "PRAGMA",
    "COMMIT",        "SCHEMA",         "TRANSACTION",        "STATEMENT",       "SYNTAX ERROR", "DISK IMAGE",
    "READONLY",      "UNABLE TO OPEN", "BIND OR COLUMN"};

class PlainWordsTest : public testing::Test {
  public:
    std::shared_ptr<test::Faults> faults = std::make_shared<test::Faults>();
    dao::Engine engine{test::TestEngineOptions(), test::FailingSessions(faults)};
    test::TestStore store{engine};
    GlobalState& g = store.g;

    void SetUp() override {
        store.AddDepartment("Bakery");
        store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
        store.OpenWeek(Sunday);
        store.prompt().AlwaysAnswer(Answer::Ok);
    }
    void Start() {
        GlobalState other;
        ConsoleFace face;
        other.store.Engine = engine;
        other.paths.ProgramPath = store.folder.Path();
        LoadConsole(other, store.ports(), face);
        if (other.store.Db) PrepareSchedule(other, store.ports());
    }
    void SaveAdams() { SaveEmployeeRecord(g.store, g.department, store.ports(), ReadAdams()); }
    EmployeeRecord ReadAdams() { return LoadEmployeeRecord(g.store, g.application, g.rights, 1); }
    void SaveNew() {
        EmployeeRecord record = NewEmployeeRecord(g.application.options);
        record.Text2[box_of::LastName] = "New";
        SaveEmployeeRecord(g.store, g.department, store.ports(), record);
    }
    void SaveBakery() {
        auto profile = OpenProfile(g.store, g.department, store.prompt(), FormCommand::Change);
        if (profile) SaveDepartment(g.store, g.department, store.prompt(), FormCommand::Change, *profile);
    }
    void SaveAWeek() {
        test::SetBars(g, 1, {{1 + ++saves % 40, 90}});
        SaveWeek(g, store.ports(), store.gauge, [] {});
    }
    void LoadAWeek() { LoadWeek(g, store.ports(), Sunday); }
    void AddADaytype() {
        AddDaytype(g.store, g.department, g.daytypes, store.prompt(), "X", "Xmas");
        DeleteDaytype(g.store, g.department, g.daytypes, store.prompt(), 1);
    }

    /// What leaves a handler reaches the net around all events.
    void Guarded(void (PlainWordsTest::*work)()) {
        try {
            (this->*work)();
        } catch (const std::exception& trouble) {
            StoreTeller(store.prompt()).Tell(trouble);
        }
    }
    void ExpectPlainBoxes() {
        const auto& boxes = store.prompt().Boxes();
        for (; read < boxes.size(); ++read)
            for (const std::string& word : EngineWords)
                for (const std::string& text : {boxes[read].text, boxes[read].title, boxes[read].detail})
                    ASSERT_EQ(UpperCase(text).find(word), std::string::npos) << text;
    }
    std::size_t read = 0; // boxes
    int saves = 0;
};

TEST_F(PlainWordsTest, are_read_whichever_call_of_the_engine_fails_with_whichever_number) {
    using Work = void (PlainWordsTest::*)();
    int failed = 0;
    for (const Work work : {&PlainWordsTest::Start, &PlainWordsTest::SaveAdams, &PlainWordsTest::SaveNew,
                            &PlainWordsTest::SaveBakery, &PlainWordsTest::SaveAWeek,
                            &PlainWordsTest::LoadAWeek, &PlainWordsTest::AddADaytype})
        for (const EngineSentence& trouble : EngineSentences())
            for (const test::Call call : {test::Call::Prepare, test::Call::Step, test::Call::Begin,
                                          test::Call::Commit, test::Call::Committed})
                failed += test::FailEachInTurn(
                    *faults, call, trouble.number, [&] { Guarded(work); }, [&](int) { ExpectPlainBoxes(); });
    std::cout << failed << " calls failed, " << read << " boxes read: no word of the engine\n";
    EXPECT_GT(failed, 1000);
    EXPECT_GT(read, 500U);
}

} // namespace
} // namespace tvx
