#include "desktop/SaveNote.h"

#include <gtest/gtest.h>

namespace tvx::qt {
namespace {

constexpr int EveningAt = (19 * 60 + 22) * 60 + 59;

TEST(SaveNote, tells_when_the_last_save_was) {
    SaveNote note;
    EXPECT_EQ(note.text(), "");
    note.Tell(true, EveningAt);
    EXPECT_EQ(note.text(), "Saved 19:22");
    note.Edited();
    EXPECT_EQ(note.text(), "Saved 19:22");
    note.Tell(true, 5 * 60);
    EXPECT_EQ(note.text(), "Saved 00:05");
}

TEST(SaveNote, tells_of_a_refused_save_until_the_next_edit) {
    SaveNote note;
    note.Tell(true, EveningAt);
    note.Tell(false, EveningAt);
    EXPECT_EQ(note.text(), "Not saved");
    note.Edited();
    EXPECT_EQ(note.text(), "");
}

} // namespace
} // namespace tvx::qt
