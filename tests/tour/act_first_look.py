import re

import ledger
from eyes import until, until_equal
from hands import colours
from pages import BLACK, PALETTE, RED, SILVER
from play import Act, chapter

CONSOLE_ENTRIES_THAT_WORK = {
    "File", "File/Exit", "Departments", "Departments/Add a new Department",
    "Departments/Change Example department settings", "Departments/Delete Example department", "Employees",
    "Employees/Add new Employee to Example department", "Employees/Change Example department Employee record",
    "Employees/Delete Employee from Example department", "Reports", "Help", "Help/About this program",
    "Help/Frequently Asked Questions"}
CONSOLE_ENTRIES_THAT_WAIT = {
    "File/Compact database", "File/Backup database", "File/Restore database", "File/Export file",
    "File/Delete all schedules prior to a date", "File/Network path", "Employees/Birthdays and Anniversaries",
    "Reports/Print Employees statistics between two dates",
    "Reports/Print Employees information for selected Departments", "Reports/Excel spreadsheet", "Password",
    "Options"}
EDITOR_ENTRIES_THAT_WORK = {
    "Schedules", "Schedules/Save current week", "Schedules/Close", "Copy", "Sort", "Shifts", "Daytypes",
    "Print schedules", "Hints/Help", "Hints/Help/Entering time", "Hints/Help/Daytypes", "Hints/Help/Show availability",
    "Hints/Help/Show headcount", "Print schedules/Department seven day schedule",
    "Print schedules/Seven day schedule, Long format", "Print schedules/Selected Employees seven day schedule",
    "Print schedules/One Employee", "Close"}
EDITOR_ENTRIES_THAT_WAIT = {
    "Schedules/Save current week as...", "Schedules/Load week schedule ", "Schedules/Clear current week",
    "Copy/Copy and save this week as week..", "Sort/Sort by Name", "Sort/Sort by ID", "Sort/Sort by Assignment",
    "Sort/Sort by Hired date", "Sort/Sort by Start time", "Sort/Sort by Stop time", "Sort/Sort by Daytypes",
    "Sort/Sort by Labor type", "Print schedules/Bar Charts schedule "}


def states_of(working, waiting):
    return {**{name: True for name in working}, **{name: False for name in waiting}}


class FirstLook(Act):
    """a first look around on one workstation"""

    def set_up(self):
        self.station = self.workstation("office")

    @chapter('the splash shows, and the console follows with "Example department"')
    def splash(self):
        self.station.process = self.station.launch()
        until(self._splash_is_painted, "the splash to be painted", limit=60)
        self.picture("splash")
        console = self.station.console()
        until_equal(lambda: console.department, "------ Example department ------", "the department")
        self.picture("console", window=console.window)
        assert len(self.station.visible("Tarvex")) == 1, "the splash is still there"
        assert "Icon (48 x 48)" in self.station.screen.icons_of("Tarvex"), "the console has no icon"

    def _splash_is_painted(self):
        """Its colours stand in the middle of the screen, and the console, which is taller, does not show yet."""
        screen = self.station.screen
        x, y = screen.width // 2, screen.height // 2
        inside = colours(screen, (x - 220, y - 80, 440, 160))
        above = colours(screen, (x - 220, y - 125, 440, 10))
        return PALETTE[9] in inside and set(above) == {BLACK}

    @chapter('a second start says "Tarvex already running" and ends, and the first goes on')
    def second_start(self):
        before = self._files()
        second = self.station.launch()
        box = self.station.box("Tarvex", process=second)
        until_equal(lambda: box.message, "Tarvex already running", "the message")
        self.picture("second-start")
        box.press("OK")
        assert self.station.await_end(second) == 0
        assert self._files() == before, "the second start touched a file"
        assert self.station.process.poll() is None, "the first run ended too"
        until(lambda: self.station.console().department, "the first console to answer")

    def _files(self):
        return {file.name: file.read_bytes() for file in self.station.folder.iterdir() if file.is_file()}

    @chapter("entries of the console whose screens are not there yet stand in the menus, disabled")
    def console_menus(self):
        console = self.station.console()
        for menu in ("File", "Departments", "Employees", "Reports", "Help"):
            console.open_menu(menu)
            self.picture("menu-" + menu.lower(), window=console.window)
            console.close_menu(menu)
        until_equal(console.states, states_of(CONSOLE_ENTRIES_THAT_WORK, CONSOLE_ENTRIES_THAT_WAIT), "the menus")

    @chapter("the screens behind the console's menus open and are left by Escape, and the file stays as it was")
    def console_screens(self):
        before = self.station.database.read_bytes()
        console = self.station.console()
        for menu, entry in (("Departments", "Add a new Department"),
                            ("Departments", "Change Example department settings"),
                            ("Employees", "Add new Employee to Example department"),
                            ("Employees", "Change Example department Employee record")):
            console.choose(menu, entry)
            self._look_and_leave(console, entry)
            self.station.console()
        assert self.station.database.read_bytes() == before, "looking changed the file"

    def _look_and_leave(self, below, entry):
        """Takes a picture of the screen that has come over another one and leaves it."""
        screen = self.station.page_over(below)
        self.picture("screen-" + re.sub(r"\W+", "-", entry.lower()), window=screen.window)
        screen.leave("Escape")

    @chapter("the About box names the version and tells about the system")
    def about(self):
        console = self.station.console()
        console.choose("Help", "About this program")
        about = self.station.page("About Tarvex")
        until_equal(lambda: about.says("Version"), "Version 1  Revision 0", "the version")
        self.picture("about", window=about.window)
        about.press("System information")
        system = self.station.box("System information")
        assert f"Database folder: {self.station.folder}" in system.message, system.message
        self.picture("system-information", window=system.window)
        system.leave("Return")
        about.leave("Escape")

    @chapter("Schedule shows the note on the example department first")
    def note(self):
        console = self.station.console()
        console.press("Schedule Example department")
        note = console.note()
        said = note.window.await_("filler", "Example department").description
        assert "Add Employees to that new Department." in said, said
        self.picture("note-on-the-example", window=note.window)
        note.leave("Return")

    @chapter("the Main Editor opens on this week with the bars of the ready-made database")
    def editor_opens(self):
        self.start = ledger.first_day_of_this_week()
        self.week = ledger.Week(self.station.database, self.start)
        assert sum(len(bars) for bars in self.week.bars.values()) > 60, "the ready-made week is empty"
        self.editor = self.station.editor()
        assert self.editor.title == ledger.title_of_week("Example department", self.start), self.editor.title
        assert self.editor.names == [person.name for person in self.week.people]
        today = ledger.serial_of(ledger.datetime.date.today()) - self.start + 1
        self.editor.expect(self.week, today)
        self.picture("main-editor")

    @chapter("entries of the Main Editor whose screens are not there yet are disabled")
    def editor_menus(self):
        for menu in ("Schedules", "Copy", "Sort", "Print schedules", "Hints/Help"):
            self.editor.open_menu(menu)
            self.picture("editor-menu-" + menu.split("/")[0].split()[0].lower())
            self.editor.close_menu(menu)
        days = {"Copy/" + ledger.long_date(self.start + d) for d in range(7)}
        wanted = states_of(EDITOR_ENTRIES_THAT_WORK, EDITOR_ENTRIES_THAT_WAIT | days)
        until_equal(self.editor.states, wanted, "the menus")
        waiting = [button.name for button in self.editor.window.all("push button") if not button.enabled]
        assert waiting == ["Load week", "Day graph, bars only", "Day graph", "Sales and transactions"], waiting

    @chapter("the lists of daytypes and shifts open over the Main Editor and are left by Escape")
    def editor_lists(self):
        before = self.station.database.read_bytes()
        for menu in ("Daytypes", "Shifts"):
            self.editor.click(self.editor.menu(menu))
            self._look_and_leave(self.editor, menu)
            self.station.editor()
        assert self.station.database.read_bytes() == before, "looking changed the file"

    @chapter("help tells how time is entered, beside the Main Editor")
    def help(self):
        self.editor.choose("Hints/Help", "Entering time")
        topic = self.station.page("Tarvex help")
        page = until(lambda: next((thing for thing in topic.window.everything() if thing.name == "Help topic"), None),
                     "the page of the topic")
        until(lambda: "All times snap to quarters of an hour." in page.text, "the topic")
        self.picture("help")
        topic.leave("Escape")
        self.station.editor()

    @chapter("a click in the header shows each day of the week")
    def days(self):
        for day in (1, 2, 3, 4, 5, 6, 7):
            self.editor.choose_day(day)
            self.editor.expect(self.week, day)
            if day in (1, 4):
                self.picture("day-" + ledger.WEEKDAYS[day - 1].lower())

    @chapter("the value column shows what each of the twelve options promises")
    def options(self):
        day = 4
        self.editor.choose_day(day)
        for option in range(1, 13):
            self.editor.choose_option(option)
            wanted = {person.name: self._values(option, person, day) for person in self.week.people}
            until_equal(self.editor.values, wanted, f"the values of option {option}")
            if option == 9:
                self._check_squares()
            self.picture(f"option-{option:02}")
        self.editor.choose_option(1)

    def _values(self, option, person, day):
        """The texts beside a name, by option."""
        week = self.week
        day_time, week_time = (ledger.duration(week.quarters(person, d)) for d in (day, None))
        if person.hourly:
            day_wages, week_wages = (ledger.money(week.wages(person, d)) for d in (day, None))
        else:
            day_wages = week_wages = "Salary  " if option == 8 else "Salary "
        return {1: [day_time], 2: [day_wages], 3: [week_time], 4: [week_wages], 5: [person.id],
                6: [person.assignment], 7: [" " + day_time, " " + week_time], 8: [day_wages, week_wages], 9: [],
                10: [person.labor], 11: ["Example department"],
                12: [f"{ledger.MONTHS[person.hired.month - 1]}-{person.hired.year}"]}[option]

    def _check_squares(self):
        """A day with work has the colour of the bars, the others are silver; all are of one size."""
        for person in self.week.people:
            worked = len(self.week.days_with_work(person))
            def share():
                found = self.editor.squares(person.name)
                own, silver = found.get(PALETTE[person.colour], 0), found.get(SILVER, 0)
                return round(7 * own / (own + silver)) if own + silver else None
            until_equal(share, worked, f"the days of {person.name}")

    @chapter("availability marks the hours at which somebody is away, and goes again")
    def availability(self):
        day = 1
        self.editor.choose_day(day)
        away = {person.name for person in self.week.people if any(when == day for when, _, _ in person.away)}
        assert away == {"Baker Luis", "Ivanova Nadia"}, away
        self._expect_red(set())
        self.editor.press("Show availability")
        self._expect_red(away)
        self.picture("availability")
        self.editor.press("Show availability")
        self._expect_red(set())

    def _expect_red(self, names):
        until_equal(lambda: {name for name in self.editor.names if RED in self.editor.colours_of_lane(name)}, names,
                    "the lanes with red marks")

    @chapter("headcount stands under the hours, and goes again")
    def headcount(self):
        until(lambda: self._black() < 100, "a ruler without the headcount")
        self.editor.press("Show headcount")
        until(lambda: self._black() > 10000, "the headcount")
        self.picture("headcount")
        self.editor.press("Show headcount")
        until(lambda: self._black() < 100, "the headcount to go")

    def _black(self):
        return self.editor.colours_of_ruler().get(BLACK, 0)

    @chapter("the totals box sums the week")
    def totals(self):
        self.editor.press("Weekly hours and compensation totals")
        box = self.station.page("Current weekly hours and compensation totals")
        week = self.week
        wages = sum(week.wages(person) for person in week.people)
        salaries = sum(person.pay for person in week.people if not person.hourly)
        paid = sum(week.quarters(person) for person in week.people if person.hourly)
        salaried = sum(week.quarters(person) for person in week.people if not person.hourly)
        for row, amount, quarters in (("Wages", wages, paid), ("Salaries", salaries, salaried),
                                      ("Total", wages + salaries, paid + salaried)):
            until_equal(lambda: box.says(row + " compensation"), ledger.money(amount), row)
            until_equal(lambda: box.says(row + " hours"), ledger.duration(quarters), row)
        self.picture("totals", window=box.window)
        box.leave("Escape")

    @chapter("Close goes back to the console, and Exit ends the run")
    def leave(self):
        self.editor.close()
        self.station.await_gone(self.editor.title)
        assert self.station.console().exit() == 0
        assert ledger.rows_of_week(self.station.database, self.start) == self.week.frozen, "looking changed rows"
