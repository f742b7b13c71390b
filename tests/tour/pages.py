"""The screens of the program as a person knows them: what stands where and how it is worked."""
import ledger
from eyes import until, until_equal
from hands import colours

RED = (255, 0, 0)
BLACK = (0, 0, 0)
SILVER = (192, 192, 192)
PALETTE = {1: (0, 0, 128), 2: (0, 128, 0), 3: (0, 128, 128), 4: (128, 0, 0), 5: (128, 0, 128), 6: (128, 128, 0),
           9: (0, 0, 255), 13: (255, 0, 255)}


class Page:
    def __init__(self, station, window):
        self.station = station
        self.hands = station.hands
        self.window = window

    @property
    def title(self):
        return self.window.name

    def button(self, name):
        """The one of that name, whether it stays pressed or not."""
        return until(lambda: self.window.find("push button", name) or self.window.find("check box", name),
                     f"the button {name!r}")

    def click(self, thing):
        self.hands.click(thing.middle)

    def press(self, name):
        """Clicks the button of a name when it can be clicked."""
        button = self.button(name)
        until(lambda: button.enabled and button.shows, f"the button {name!r} to be ready")
        self.click(button)

    def says(self, name):
        """What the label of a name says."""
        return self.window.await_("label", name).description

    def leave(self, *keys):
        """Presses keys that close this window."""
        title = self.title
        self.hands.press(*keys)
        self.station.await_gone(title)


class Box(Page):
    """A message box."""

    @property
    def message(self):
        return "\n".join(label.name for label in self.window.all("label") if label.name)

    def answer(self, name):
        title = self.title
        self.press(name)
        self.station.await_gone(title)


class Menus(Page):
    """A window with a menu bar."""

    def bar(self):
        return self.window.await_("menu bar").children

    def states(self):
        """Every entry that can be seen in the menus: its path, and whether it can be chosen."""
        found = {}
        for menu in self.bar():
            entries = [entry for popup in menu.children for entry in popup.children if entry.role == "menu item"]
            found[menu.name.strip()] = menu.enabled
            for entry in entries:
                if self._is_placed(entry):
                    found[f"{menu.name.strip()}/{entry.name}"] = entry.enabled
        return found

    @staticmethod
    def _is_placed(entry):
        try:
            return entry.place[2] > 0
        except AttributeError:
            return False

    def menu(self, name):
        return next(menu for menu in self.bar() if menu.name.strip() == name)

    def open_menu(self, name):
        """Clicks a menu and gives its entries by name once they show."""
        menu = self.menu(name)
        self.click(menu)
        def look():
            entries = [entry for popup in menu.children for entry in popup.children if entry.role == "menu item"]
            shown = {entry.name: entry for entry in entries if entry.shows or not entry.enabled}
            return shown if menu.children[0].shows else None
        return until(look, f"the menu {name!r} to open")

    def close_menu(self, name):
        menu = self.menu(name)
        self.hands.press("Escape")
        until(lambda: not menu.children[0].shows, f"the menu {name!r} to close")
        self.hands.press("Escape")

    def choose(self, menu, entry):
        self.click(self.open_menu(menu)[entry])


class Console(Menus):
    @property
    def department(self):
        return self.says("Department")

    def schedule(self, note=True):
        """Opens the Main Editor, the first time in a run past the note on the example department."""
        self.press("Schedule Example department")
        if note:
            self.note().leave("Return")
        return self.station.editor()

    def note(self):
        return self.station.page("Examle department")

    def exit(self):
        self.press("Exit")
        return self.station.await_end()


class Editor(Menus):
    """The Main Editor with the grid of the week's bars."""

    OPTIONS = 12

    def __init__(self, station, window):
        super().__init__(station, window)
        self.grid = window.await_("table", "Time bars")
        self.header = window.await_("page tab list", "Days of the week")
        self.options = window.all("radio button")
        self._index_rows()
        # The sums stand below the grid; the value column has a heading of the same name above it.
        self.totals = {name: window.all("label", name)[-1]
                       for name in ("Day time", "Week time", "Day wages", "Week wages")}

    def _index_rows(self):
        """The controls beside each lane: they follow one another from the name to the daytype box."""
        self.names = [row.name.split(":")[0] for row in self.grid.children]
        self.cells, self.daytypes = {}, {}
        current = None
        for thing in self.window.everything():
            if thing.role == "label" and thing.name in self.names:
                current = self.cells[thing.name] = []
            elif current is not None and thing.role == "text":
                self.daytypes[thing.name.removeprefix("Daytype of ")] = thing
                current = None
            elif current is not None:
                current.append(thing)

    # ---- what it shows ----

    def lanes(self):
        return [row.name for row in self.grid.children]

    def expect(self, week, day):
        """Waits until the whole grid and the sums show a day of a week."""
        until_equal(self.lanes, week.lanes(day), f"the bars of {ledger.WEEKDAYS[day - 1]}")
        wanted = {"Day time": week.total_time(day), "Week time": week.total_time(),
                  "Day wages": " " + week.total_wages(day), "Week wages": " " + week.total_wages()}
        until_equal(lambda: {name: label.description for name, label in self.totals.items()}, wanted, "the totals")

    def values(self):
        """The value column: for each employee the texts that show beside the name."""
        return {name: [cell.name for cell in cells if cell.role == "label" and cell.shows]
                for name, cells in self.cells.items()}

    def squares(self, name):
        """The colours of the squares that tell on which days somebody works."""
        place = next(cell for cell in self.cells[name] if cell.role == "filler").place
        return colours(self.station.screen, place)

    def colours_of_lane(self, name):
        return colours(self.station.screen, self.lane_of(name).place)

    def colours_of_ruler(self):
        left, _, width, _ = self.grid.place
        _, top, _, height = self.window.await_("filler", "Hours of the day").place
        return colours(self.station.screen, (left, top, width, height))

    # ---- what a person does ----

    def choose_day(self, day):
        left, top, width, height = self.header.place
        self.hands.click((left + width * (2 * day - 1) // 14, top + height // 2))
        until(lambda: self.header.description.startswith(ledger.WEEKDAYS[day - 1]),
              f"{ledger.WEEKDAYS[day - 1]} to be chosen")

    def choose_option(self, option):
        button = self.options[option - 1]
        self.click(button)
        until(lambda: button.checked, f"the option {button.name!r} to be chosen")

    def lane_of(self, name):
        return next(row for row in self.grid.children if row.name.startswith(name + ":"))

    def spot(self, name, quarter):
        """Where a quarter of the day lies on somebody's lane."""
        left, top, width, height = self.lane_of(name).place
        return left + round(width * quarter / ledger.QUARTERS), top + height // 2 - 1

    def drag(self, name, start, stop):
        """Drags on a lane from one quarter to another; both may have fractions."""
        self.hands.drag(self.spot(name, start), self.spot(name, stop))

    def type_daytype(self, name, text):
        box = self.daytypes[name]
        self.click(box)
        until(lambda: box.focused, f"the daytype box of {name} to take the keys")
        self.hands.type(text)
        return box

    def previous_week(self):
        self.press("Previous week")

    def next_week(self):
        self.press("Next week")

    def save(self):
        self.press("Save current week")

    def close(self):
        self.press("Back to the console")

    def save_first(self):
        """The box that asks before a changed week is left."""
        box = self.station.box("You made changes")
        until_equal(lambda: box.message, "Save the changes first?", "the question")
        return box


class Schedules(Page):
    """The form that prints schedules, with its options."""

    def button(self, name):
        """The one that shows: the preview has buttons of the same names."""
        return until(lambda: next((button for button in self.window.all("push button", name) if button.shows), None),
                     f"the button {name!r}")

    def tick(self, name):
        box = self.window.await_("check box", name)
        left, top, _, height = box.place
        if not box.checked:
            self.hands.click((left + 8, top + height // 2))
        until(lambda: box.checked, f"{name!r} to be ticked")

    def ticked(self, name):
        return self.window.await_("check box", name).checked

    def choose(self, name):
        option = self.window.await_("radio button", name)
        left, top, _, height = option.place
        self.hands.click((left + 8, top + height // 2))
        until(lambda: option.checked, f"{name!r} to be chosen")

    def pick(self, names):
        """Picks people in the list, and nobody else."""
        rows = self.window.await_("list", "Employees").children
        for number, name in enumerate(names):
            row = next(row for row in rows if row.name.startswith(name))
            left, top, width, height = row.place
            self.hands.click((left + 40, top + height // 2), held="ctrl" if number else None)

    def preview(self, title="Review print pages..."):
        return Preview(self.station, self.station.window(title))

    def print_to(self, file):
        """Prints into a file by the desktop's dialog."""
        self.press("Print")
        dialog = self.station.page("Print")
        box = dialog.window.await_("text", "Output file:")
        self.hands.triple_click(box.middle)
        self.hands.type(file)
        until_equal(lambda: box.text, str(file), "the name of the file")
        dialog.press("Print")
        self.station.await_gone(dialog.title)

    def save_as(self, file):
        """Saves a web page by the desktop's dialog."""
        self.press("Save HTML")
        dialog = self.station.page("Save HTML")
        box = dialog.window.await_("text", "File name:")
        self.hands.triple_click(box.middle)
        self.hands.type(file)
        until_equal(lambda: box.text, str(file), "the name of the file")
        self.hands.press("Return")
        self.station.await_gone(dialog.title)


class Preview(Schedules):
    """The same form while it shows the pages."""

    @property
    def page(self):
        """The number of the page that shows, and of all."""
        words = self.says("Page").split()
        return int(words[1]), int(words[3])

    @property
    def pages(self):
        return self.page[1]

    @property
    def paper(self):
        """Where the pages show."""
        return self.window.await_("filler", "Preview of the pages").place
