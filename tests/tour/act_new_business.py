import ledger
from eyes import until, until_equal
from hands import colours
from pages import Editor, Page
from play import Act, chapter

CAFE = "Corner Cafe"
WHITE = (255, 255, 255)
TUESDAY, WEDNESDAY, THURSDAY = 3, 4, 5
BELL, COLE, DIAZ, EVANS, FORD = "Bell Amy", "Cole Ben", "Diaz Carla", "Evans Dan", "Ford Eve"

# Last name, first name, ID, assignment, pay, hire date
PEOPLE = [("Bell", "Amy", "B1", "Counter", "12.5", "2-Mar-2020"),
          ("Cole", "Ben", "B2", "Counter", "11", "12/23/2021"),
          ("Diaz", "Carla", "B3", "Oven", "13.25", "Apr-12-22"),
          ("Evans", "Dan", "B4", "Oven", "12", "5-Jan-2023"),
          ("Ford", "Eve", "B5", "Lead", "840", "1-Feb-2019")]

EARLY, LATE = (24, 54), (66, 98)  # the late one goes on until half past midnight


class Screen(Page):
    """A screen with boxes that are filled in."""

    def fill(self, name, text):
        box = self.window.await_("text", name)
        self.click(box)
        until(lambda: box.focused, f"the box {name!r} to take the keys")
        self.hands.press("ctrl+a")
        self.hands.type(text)
        return box

    def mark(self, name):
        """Chooses an option or a colour."""
        option = self.window.await_("radio button", name)
        self.click(option)
        until(lambda: option.checked, f"the option {name!r} to be chosen")


class Record(Screen):
    """The record of one employee."""

    def box(self, name):
        return self.window.await_("text", name)

    def enter(self, person):
        """Fills in somebody from the keyboard alone, beginning in the box of the last name."""
        until(lambda: self.box("Last name").focused, "the last name to take the keys")
        for text in person:
            self.hands.type(text)
            self.hands.press("Return")
            if text == person[-2]:
                self.hands.press(*["Return"] * 4)  # past the address
        shown = ledger.long_date(ledger.serial_of(HIRED[person[-1]]))
        until_equal(lambda: self.box("Hire date").text, shown, "the hire date")

    def paint_away(self, weekday, start, stop):
        """Paints hours of absence on a day, Sunday is 1."""
        left, top, width, height = self.window.await_("filler", "Hours of absence").place
        y = top + height * (2 * weekday - 1) // 14
        self.hands.drag((left + width * start * 90 // 8670, y), (left + width * stop * 90 // 8670, y))

    def save_new(self):
        self.press("OK")
        until(lambda: self.box("Last name").text == "" and self.box("Last name").focused,
              "the screen to be ready for the next one")


HIRED = {text: ledger.datetime.date(*date) for text, date in
         {"2-Mar-2020": (2020, 3, 2), "12/23/2021": (2021, 12, 23), "Apr-12-22": (2022, 4, 12),
          "5-Jan-2023": (2023, 1, 5), "1-Feb-2019": (2019, 2, 1)}.items()}


class NewBusiness(Act):
    """a business enters itself and plans its week from stored shifts"""

    def set_up(self):
        self.station = self.workstation("office")
        self.console = self.station.start()
        self.hands = self.station.hands
        self.start = ledger.first_day_of_this_week()
        self.before = ledger.rows_of_week(self.station.database, self.start)

    def rows(self, sql, *values):
        with ledger.reading(self.station.database) as base:
            return base.execute(sql, values).fetchall()

    def screen(self, title, kind=Screen):
        return kind(self.station, self.station.window(title))

    # ---- the department ----

    @chapter("a second department is added, and is the current one at once")
    def add_department(self):
        self.console.choose("Departments", "Add a new Department")
        profile = self.screen("Add a new Department")
        self.hands.type(CAFE)
        self.picture("new-department", window=profile.window)
        profile.leave("Return")
        self.console = self.station.console()
        until(lambda: self.console.window.find("push button", "Schedule " + CAFE), "the new department")
        assert self.rows("SELECT [Department name], [First weekday] FROM Department") == [
            ("Example department", 100), (CAFE, 100)]

    @chapter("it gets words of its own, and they show in the menus at once")
    def own_words(self):
        self.console.choose("Departments", f"Change {CAFE} settings")
        profile = self.screen("Change Department information")
        for name, text in (("Generic name for Employees, Single", "Barista"),
                           ("Generic name for Employees, Plural", "Baristas"),
                           ("Generic name for requested days off, Single", "Free day"),
                           ("Generic name for requested days off, Plural", "Free days")):
            profile.fill(name, text)
        self.picture("own-words", window=profile.window)
        profile.leave("Return")
        self.console = self.station.console()
        assert self.entry("Add new") in self.console.open_menu("Baristas")
        self.picture("menu-with-own-words", window=self.console.window)
        self.console.close_menu("Baristas")
        assert self.rows("SELECT EmployeeNameSingle, EmployeeNamePlural, DayOffNameSingle, DayOffNamePlural"
                         " FROM Department WHERE [Department name] = ?", CAFE) == [
            ("Barista", "Baristas", "Free day", "Free days")]

    @staticmethod
    def entry(what):
        return {"Add new": f"Add new Barista to {CAFE}", "Change": f"Change {CAFE} Barista record"}[what]

    # ---- its people ----

    @chapter("five people are entered from the keyboard, one with hours of absence that the mouse paints")
    def add_people(self):
        self.console.choose("Baristas", self.entry("Add new"))
        record = self.screen(f"{CAFE}: Add new Barista", Record)
        for person in PEOPLE:
            record.enter(person)
            if person[0] == "Diaz":
                record.paint_away(WEDNESDAY, 0, 32)
                record.paint_away(WEDNESDAY, 72, 96)
                record.mark("Bright blue")
                self.picture("new-employee", window=record.window)
            if person[0] == "Ford":
                record.mark("Weekly salary")
            record.save_new()
        record.leave("Escape")
        self.expect_people()

    def expect_people(self):
        found = self.rows("SELECT [Last name], [First name], ID, Assignment, Pay, [Wage or Sal], [Hire Date]"
                          " FROM Employee JOIN Department USING ([Dep number]) WHERE [Department name] = ?"
                          " ORDER BY [Last name]", CAFE)
        wanted = [(last, first, number, job, f"{float(pay):.2f}", 0 if last == "Ford" else -1,
                   ledger.serial_of(HIRED[hired])) for last, first, number, job, pay, hired in PEOPLE]
        assert found == wanted, (found, wanted)
        people = {person.name: person for person in ledger.people(self.station.database, CAFE)}
        assert people[DIAZ].away == [(WEDNESDAY, 0, 32), (WEDNESDAY, 72, 96)], people[DIAZ]
        assert all(person.away == [] for name, person in people.items() if name != DIAZ)
        # The colour stays chosen for the next one, who is likely to be of the same kind.
        assert [people[name].colour for name in (COLE, DIAZ, EVANS)] == [people[COLE].colour, 9, 9]

    @chapter("one is found by the beginning of the name and changed")
    def change_somebody(self):
        self.console = self.station.console()
        self.console.choose("Baristas", self.entry("Change"))
        search = self.screen("Change Barista")
        self.hands.type("ev")
        self.picture("search", window=search.window)
        search.leave("Return")
        record = self.screen(f"{CAFE}: Change Barista record", Record)
        until_equal(lambda: record.box("Last name").text, "Evans", "the record")
        record.mark("Green")
        self.hands.press("alt+o")
        until(lambda: self.rows("SELECT EbarColor FROM Employee WHERE [Last name] = 'Evans' AND ID = 'B4'")
              == [(2,)], "the colour in the file")
        self.picture("changed-employee", window=record.window)
        record.leave("Escape")
        self.console = self.station.console()

    # ---- its week ----

    @chapter("the Main Editor opens on its five people and an empty week")
    def open_week(self):
        self.console.press("Schedule " + CAFE)
        self.take_editor()
        until_equal(self.editor.names.copy, [BELL, COLE, DIAZ, EVANS, FORD], "the names")
        self.week = ledger.Week(self.station.database, self.start, CAFE)
        self.key = {person.name: person.key for person in self.week.people}
        self.editor.choose_day(TUESDAY)
        self.editor.expect(self.week, TUESDAY)
        self.editor.press("Show availability")
        self.picture("empty-week")

    def take_editor(self):
        self.editor = Editor(self.station, self.station.window(f"{CAFE},  Week*"))

    def row_in_focus(self, name):
        box = self.editor.daytypes[name]
        self.editor.click(box)
        until(lambda: box.focused, f"the row of {name} to take the keys")
        return box

    @chapter("a daytype is added from the Main Editor and picked for a day")
    def daytypes(self):
        box = self.row_in_focus(BELL)
        self.editor.click(self.editor.menu("Daytypes"))
        daytypes = self.screen(f"{CAFE}: {BELL}")
        daytypes.press("Other activity...")
        daytypes.press("Add")
        until(lambda: daytypes.window.find("text", "Symbol").focused, "the symbol to take the keys")
        self.hands.type("opopens")  # after two characters the keys go on to the explanation
        self.picture("new-daytype", window=daytypes.window)
        self.hands.press("alt+s")
        until(lambda: self.rows("SELECT Symbol, Explaination FROM [Day types] JOIN Department USING ([Dep number])"
                                " WHERE [Department name] = ?", CAFE) == [("OP", "Opens")],
              "the daytype in the file")
        daytypes.leave("Escape")
        self.take_editor()
        self.editor.click(self.editor.menu("Daytypes"))
        self.screen(f"{CAFE}: {BELL}").leave("Return")
        self.take_editor()
        until_equal(lambda: box.text, "OP", "the daytype")
        self.week.set_daytype(self.key[BELL], TUESDAY, "OP")

    def line_menu(self, name, *keys):
        """Works the menu of somebody's lane by its letters."""
        left, top = self.editor.spot(name, 30)
        self.hands.click((left, top), button=3)
        # Such a menu is hidden from assistive tools as long as nothing in it is chosen; its ground is white
        # where below the five lanes there was the window's.
        below = left + 10, top + 90, 80, 6
        until(lambda: colours(self.station.screen, below).get(WHITE, 0) > 100, "the menu of the lane")
        self.hands.press(*keys)

    def store(self, name, shift, title):
        """Draws a shift on a lane and stores it under a name."""
        begin, end = shift
        self.editor.drag(name, begin, min(end, 97))
        self.week.add(self.key[name], TUESDAY, begin, min(end, 96))
        self.editor.expect(self.week, TUESDAY)
        self.line_menu(name, "a")
        screen = self.screen("Put a shift in storage for later copy")
        self.hands.type(title)
        self.picture("store-a-shift-" + title.split(",")[0].lower(), window=screen.window)
        screen.leave("Return")
        self.take_editor()

    @chapter("two shifts are drawn on a day and stored from there")
    def store_shifts(self):
        self.store(BELL, EARLY, "Early, with opening")
        # What runs past midnight is drawn on both days.
        self.editor.choose_day(WEDNESDAY)
        self.editor.drag(COLE, LATE[1] - 96, -1)
        self.week.add(self.key[COLE], WEDNESDAY, 0, LATE[1] - 96)
        self.editor.expect(self.week, WEDNESDAY)
        self.editor.choose_day(TUESDAY)
        self.store(COLE, LATE, "Late")
        file = (self.station.folder / "2.SFT").read_bytes()
        assert file == b'"Early, with opening"\r\n1\r\n24\r\n54\r\n"Late"\r\n1\r\n66\r\n98\r\n', file

    def paste_from_menu(self, name, day, shift, downs):
        """Through the menu of shifts, on the row in focus."""
        self.row_in_focus(name)
        self.editor.click(self.editor.menu("Shifts"))
        picked = self.screen(f"{CAFE}: {name}")
        if (name, day) == (DIAZ, THURSDAY):
            self.picture("pick-a-shift", window=picked.window)
        picked.leave(*["Down"] * downs, "Return")
        self.take_editor()
        self.week.add(self.key[name], day, *shift)

    @chapter("the shifts are pasted on other people and days, and the bars and sums follow")
    def paste(self):
        self.paste_from_menu(DIAZ, TUESDAY, EARLY, 0)
        self.paste_from_menu(FORD, TUESDAY, LATE, 1)
        self.editor.expect(self.week, TUESDAY)
        self.editor.choose_day(THURSDAY)
        for name, shift, downs in ((BELL, EARLY, 0), (EVANS, EARLY, 0), (COLE, LATE, 1), (DIAZ, LATE, 1)):
            self.paste_from_menu(name, THURSDAY, shift, downs)
        self.editor.expect(self.week, THURSDAY)
        self.picture("pasted-thursday")

    @chapter("so does a paste from the menu of a lane")
    def paste_on_lane(self):
        self.editor.choose_day(WEDNESDAY)
        for name, shift, downs in ((BELL, EARLY, 1), (EVANS, LATE, 2)):
            self.line_menu(name, "s")
            self.picture("shifts-for-a-lane-" + str(downs))
            self.hands.press(*["Down"] * downs, "Return")
            self.week.add(self.key[name], WEDNESDAY, *shift)
            self.editor.expect(self.week, WEDNESDAY)

    @chapter("Save writes their rows and leaves those of the other department alone")
    def save(self):
        self.editor.save()
        until_equal(lambda: self.stored(), ledger.rounded(self.week.rows()), "the rows in the file")
        others = {place: row for place, row in ledger.rows_of_week(self.station.database, self.start).items()
                  if place[1] not in self.week.bars}
        assert others == self.before, "rows of the other department changed"
        assert self.stored()[self.start + 2, self.key[BELL]].daytype == "OP"
        self.picture("planned-week")

    def stored(self):
        rows = ledger.rows_of_week(self.station.database, self.start)
        return ledger.rounded({place: row for place, row in rows.items() if place[1] in self.week.bars})

    @chapter("after a restart both departments stand as they were left")
    def restart(self):
        self.editor.close()
        self.station.await_gone(f"{CAFE},  Week*")
        assert self.station.console().exit() == 0
        self.console = self.station.start()
        until(lambda: self.console.window.find("push button", "Schedule Example department"), "the first department")
        combo = self.console.window.await_("combo box", "Example department")
        until_equal(lambda: combo.description, "Department", "what the list of departments is for")
        self.console.click(combo)
        self.hands.press("Down", "Return")
        until(lambda: self.console.window.find("push button", "Schedule " + CAFE), "the second department")
        self.picture("console-of-two-departments", window=self.console.window)
        self.console.press("Schedule " + CAFE)
        self.take_editor()
        for day in (TUESDAY, WEDNESDAY, THURSDAY):
            self.editor.choose_day(day)
            self.editor.expect(self.week, day)
        self.editor.close()
        self.station.await_gone(f"{CAFE},  Week*")
        assert self.station.console().exit() == 0
        assert ledger.is_sound(self.station.database)
