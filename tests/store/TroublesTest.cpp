#include "store/Troubles.h"

#include "platform/dao/DaoError.h"
#include "platform/files/FileError.h"
#include "support/Scripted.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

TEST(TroubleOf, says_that_somebody_else_has_the_file) {
    for (const int number : {70, 3000, 3045, 3260, 3356}) {
        const Trouble trouble = TroubleOf(Occasion::Opening, number, "held by X");
        EXPECT_EQ(trouble.text, "Database is in use!\r\n\r\nTry later.\r\n\r\n(held by X)") << number;
        EXPECT_EQ(trouble.title, "Database");
        EXPECT_EQ(trouble.style, box::Stop);
        EXPECT_EQ(trouble.wayOn, WayOn::EndRun);
    }
}

TEST(TroubleOf, tells_a_missing_an_old_and_a_damaged_file_apart) {
    EXPECT_EQ(TroubleOf(Occasion::Opening, 3024, "").text, "Missing database file...");
    EXPECT_EQ(TroubleOf(Occasion::Opening, 3265, "").title, "Tvx.mdb wrong version...");
    EXPECT_EQ(TroubleOf(Occasion::Opening, 3343, "").style, box::Exclamation);
    for (const int number : {3024, 3265, 3343})
        EXPECT_EQ(TroubleOf(Occasion::Opening, number, "").wayOn, WayOn::EndRun);
}

TEST(TroubleOf, names_the_number_and_the_text_of_any_other_trouble_of_opening) {
    EXPECT_EQ(TroubleOf(Occasion::Opening, 3051, "100%n").text,
              "Database problem.. Error number is:3051.\n100%n");
}

TEST(TroubleOf, takes_every_refusal_of_a_save_for_a_lock) {
    for (const int number : {3260, 3167, 0}) {
        const Trouble trouble = TroubleOf(Occasion::Saving, number, "whatever", "schedule");
        EXPECT_EQ(trouble.text, "Could not save this schedule,\r\nthis page is locked by another user, try "
                                "again..\r\n\r\n(" +
                                    std::to_string(number) + ")");
        EXPECT_EQ(trouble.title, "Locked page...");
        EXPECT_EQ(trouble.style, box::Ok);
        EXPECT_EQ(trouble.wayOn, WayOn::TryAgain);
    }
}

TEST(TroubleOf, writes_number_and_text_behind_what_could_not_begin) {
    EXPECT_EQ(TroubleOf(Occasion::BeginningSave, 3078, "No table.").text,
              "Database error, try again..\r\n\r\n3078 No table.");
    EXPECT_EQ(TroubleOf(Occasion::ReadingDepartments, 3078, "No table.").text,
              "Database error, try again..3078 No table.");
    EXPECT_EQ(TroubleOf(Occasion::BeginningSave, 3078, "").title, "Database error...");
}

TEST(TroubleOf, knows_the_number_of_any_error_that_was_caught) {
    EXPECT_EQ(TroubleOf(Occasion::Opening, dao::DaoError(3024, "Gone.")).text, "Missing database file...");
    EXPECT_EQ(TroubleOf(Occasion::Opening, FileError(FileErrorNumber::DiskFull, "Full.")).text,
              "Database problem.. Error number is:61.\nFull.");
    EXPECT_EQ(TroubleOf(Occasion::Working, std::runtime_error("Torn.")).text, "Torn.");
    EXPECT_EQ(TroubleOf(Occasion::Working, dao::DaoError(3260, "Locked.")).title, "Tarvex");
    EXPECT_EQ(TroubleOf(Occasion::BeginningSave, dao::DaoError(3078, "no such table: Employee")).text,
              "Database error, try again..\r\n\r\n3078 A table is missing in the database.");
}

TEST(TroubleOf, has_a_plain_sentence_for_every_number_of_the_engine_and_none_of_its_words) {
    for (const EngineSentence& sentence : EngineSentences())
        EXPECT_EQ(TroubleOf(Occasion::Working, dao::DaoError(sentence.number, "database is locked")).text,
                  sentence.text);
    EXPECT_EQ(PlainText(dao::DaoError(9999, "SQL logic error")),
              "The database met trouble that has no name.");
}

TEST(TroubleOf, names_the_file_or_field_that_the_trouble_is_about) {
    EXPECT_EQ(TroubleOf(Occasion::Opening, dao::DaoError(3051, "Cannot open.", "/shared/TVX.MDB")).text,
              "Database problem.. Error number is:3051.\nThe database file cannot be opened or "
              "written.\r\n/shared/TVX.MDB");
}

TEST(TellTrouble, shows_the_box_and_answers_with_the_way_on) {
    test::ScriptedPorts script;
    script.prompt.Expect("Missing database file...", box::Exclamation, "Tvx.mdb is missing...");
    EXPECT_EQ(TellTrouble(script.prompt, TroubleOf(Occasion::Opening, 3024, "")), WayOn::EndRun);
    EXPECT_EQ(script.prompt.Beeps(), 1);
    script.prompt.Expect("Torn.", box::Stop, "Tarvex");
    EXPECT_EQ(TellTrouble(script.prompt, TroubleOf(Occasion::Working, 0, "Torn.")), WayOn::TryAgain);
    EXPECT_EQ(script.prompt.Beeps(), 1);
}

} // namespace
} // namespace tvx
