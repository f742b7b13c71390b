import contextlib
import sqlite3

import ledger
from eyes import until_equal
from play import Act, chapter

TUESDAY = 3
CLERK = "Lindqvist Sara"  # free on Tuesday
DRIVER = "Petersen Olaf"  # free on Tuesday


class Sharing(Act):
    """two workstations on one file"""

    def set_up(self):
        self.first = self.workstation("first")
        self.editor = self.first.start().schedule()
        self.start = ledger.first_day_of_this_week()
        self.editor.choose_day(TUESDAY)
        self.take_week()
        self.editor.expect(self.week, TUESDAY)

    def take_week(self):
        self.week = ledger.Week(self.first.database, self.start)

    def expect_stored(self):
        until_equal(lambda: ledger.rounded(ledger.rows_of_week(self.first.database, self.start)),
                    ledger.rounded(self.week.rows()), "the rows in the file")

    def draw(self, editor, name, begin, end):
        editor.drag(name, begin, end)
        self.week.add(self.week.person(name).key, TUESDAY, begin, end)
        editor.expect(self.week, TUESDAY)

    @staticmethod
    def turn_over_and_back(editor, start):
        """To the next week and back, which reads the week from the file again."""
        editor.next_week()
        until_equal(lambda: editor.title, ledger.title_of_week("Example department", start + 7), "the title")
        editor.previous_week()
        until_equal(lambda: editor.title, ledger.title_of_week("Example department", start), "the title")

    @chapter("a second workstation shows what the first one saved")
    def second_shows(self):
        self.draw(self.editor, CLERK, 36, 52)
        self.editor.save()
        self.expect_stored()
        self.second = self.workstation("second", self.tour.stage.open_screen(1920, 1080))
        self.second.share(self.first)
        console = self.second.start()
        self.picture("console-of-the-second-workstation", self.second, console.window)
        self.other = console.schedule()
        for day in range(1, 8):
            self.other.choose_day(day)
            self.other.expect(self.week, day)
        assert not (self.second.folder / "TVX.MDB").exists(), "the second workstation made a file of its own"

    @chapter("what the second one saves, the first one shows after going to the next week and back")
    def first_follows(self):
        before = self.editor.lanes()
        self.other.choose_day(TUESDAY)
        self.draw(self.other, DRIVER, 28, 44)
        self.other.save()
        self.expect_stored()
        assert self.editor.lanes() == before, "the first workstation changed under the hands"
        self.turn_over_and_back(self.editor, self.start)
        self.editor.expect(self.week, TUESDAY)
        self.picture("first-workstation-follows", self.first)

    @chapter("while somebody else writes, Save says so and loses nothing, and reading goes on")
    def locked(self):
        stored = ledger.rows_of_week(self.first.database, self.start)
        with contextlib.closing(sqlite3.connect(self.first.database, isolation_level=None)) as somebody:
            somebody.execute("BEGIN IMMEDIATE")
            self.draw(self.editor, CLERK, 60, 76)
            self.editor.save()
            box = self.first.box("Locked page...")
            said = "Could not save this schedule,\nthis page is locked by another user, try again..\n\n("
            assert box.message.startswith(said), box.message
            self.picture("locked-page", self.first)
            box.answer("OK")
            self.editor.expect(self.week, TUESDAY)
            self.turn_over_and_back(self.other, self.start)
            somebody.execute("ROLLBACK")
        assert ledger.rows_of_week(self.first.database, self.start) == stored

    @chapter("the next Save succeeds, and the second workstation shows it")
    def saved_at_last(self):
        self.editor.save()
        self.expect_stored()
        self.turn_over_and_back(self.other, self.start)
        self.other.expect(self.week, TUESDAY)
        self.picture("second-workstation-follows", self.second)
