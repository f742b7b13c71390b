import os
import random
import time

import ledger
from eyes import until_equal
from play import Act, chapter
from workstation import DATABASE, READY_MADE

WEDNESDAY = 4
CLERK = "Lindqvist Sara"  # free on Wednesday
LONGEST_SAVE = 0.03  # seconds from the click until the rows are in the file


class Accidents(Act):
    """accidents: the program is killed, the file is missing or no database"""

    def set_up(self):
        self.station = self.workstation("office")
        self.start = ledger.first_day_of_this_week()
        self.open()

    def open(self):
        """Starts the program; it must show the week as the file has it."""
        self.editor = self.station.start().schedule()
        self.week = ledger.Week(self.station.database, self.start)
        self.clerk = self.week.person(CLERK).key
        self.editor.choose_day(WEDNESDAY)
        self.editor.expect(self.week, WEDNESDAY)

    def stored(self):
        return ledger.rounded(ledger.rows_of_week(self.station.database, self.start))

    @chapter("killed in the middle of a drag: the next start opens the file with the old week")
    def killed_in_a_drag(self):
        before = self.stored()
        hands = self.station.hands
        hands.grab(self.editor.spot(CLERK, 20), self.editor.spot(CLERK, 30))
        until_equal(lambda: self.editor.says("Time of the bar"), "5:00am - 7:30am", "the time of the bar")
        self.station.kill()
        hands.let_go()
        self.open()
        assert self.stored() == before
        assert ledger.is_sound(self.station.database)

    @chapter("killed in the middle of a save: the next start opens the file with the old week or the new one")
    def killed_in_a_save(self):
        seed = int(os.environ.get("TOUR_SEED", time.time_ns() % 100000))
        moments = random.Random(seed)
        outcomes = []
        for begin in (8, 24):
            old = self.stored()
            self.editor.drag(CLERK, begin, begin + 8)
            self.week.add(self.clerk, WEDNESDAY, begin, begin + 8)
            new = ledger.rounded(self.week.rows())
            self.editor.expect(self.week, WEDNESDAY)
            self.editor.save()
            moment = moments.uniform(0, LONGEST_SAVE)
            time.sleep(moment)
            self.station.kill()
            self.open()  # before anybody else looks: the start must clear up what the kill left
            now = self.stored()
            assert now in (old, new), f"a torn week after {moment:.3f} s, seed {seed}"
            outcomes.append("old" if now == old else "new")
            assert ledger.is_sound(self.station.database)
        print(f"    (seed {seed}: {', '.join(outcomes)})")

    @chapter("leaves the week by Close and the program by the Exit button")
    def exit(self):
        self.editor.close()
        self.station.await_gone(self.editor.title)
        assert self.station.console().exit() == 0

    @chapter('without TVX.MDB and TVX.JAN the start says "Missing database file..." and makes none')
    def missing(self):
        station = self.workstation("without-database")
        (station.folder / READY_MADE).unlink()
        station.process = station.launch()
        box = station.box("Tvx.mdb is missing...")
        until_equal(lambda: box.message, f"Missing database file...\nThe file is {DATABASE}\nin the folder {station.folder}",
                    "the message")
        self.picture("missing-database", station)
        box.press("OK")
        assert station.await_end() == 0
        assert not station.database.exists()

    @chapter("a file that is no database is told of and left as it is")
    def no_database(self):
        station = self.workstation("letter")
        letter = b"Dear Grace, the flour comes at nine. " * 200
        (station.folder / DATABASE).write_bytes(letter)
        station.process = station.launch()
        box = station.box("Damaged database file.")
        self.picture("damaged-database", station)
        box.press("OK")
        station.await_end()
        assert (station.folder / DATABASE).read_bytes() == letter
