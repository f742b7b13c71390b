import ledger
from eyes import until, until_equal
from pages import BLACK
from play import Act, chapter


class Looks(Act):
    """the console and the Main Editor on other screens"""

    @chapter("on a small screen of 1024 x 768 everything stands inside its window")
    def small(self):
        editor = self._look("small-screen", 1024, 768)
        for option in (8, 11, 12):
            editor.choose_option(option)
            self.picture(f"small-screen-option-{option:02}", editor.station)
        editor.press("Show headcount")
        until(lambda: editor.colours_of_ruler().get(BLACK, 0) > 5000, "the headcount")
        self.picture("small-screen-headcount", editor.station)

    @chapter("on a screen of twice the resolution everything is twice as large and stands inside its window")
    def large(self):
        self._look("double-scale", 3840, 2160, QT_SCALE_FACTOR="2")

    @chapter("the same on a screen of 1920 x 1080")
    def laptop(self):
        self._look("double-scale-laptop", 1920, 1080, QT_SCALE_FACTOR="2")

    def _look(self, name, width, height, **environment):
        """Works by keys alone: at another scale the places that are told are not those of the mouse."""
        station = self.workstation(name, self.tour.stage.open_screen(width, height))
        console = station.start(**environment)
        self._expect_inside(console.window)
        self.picture(name + "-console", station)
        station.hands.press("Return")
        note = console.note()
        self._expect_inside(note.window)
        self.picture(name + "-note", station)
        note.leave("Return")
        editor = station.editor()
        week = ledger.Week(station.database, ledger.first_day_of_this_week())
        until_equal(editor.names.copy, [person.name for person in week.people], "the names")
        self._expect_inside(editor.window)
        self.picture(name + "-main-editor", station)
        return editor

    @staticmethod
    def _expect_inside(window):
        def outside():
            left, top, width, height = window.place
            found = []
            for thing in window.everything():
                if thing.role in ("push button", "label", "text", "check box", "radio button", "table row") and thing.shows:
                    x, y, wide, high = thing.place
                    if x < left or y < top or x + wide > left + width or y + high > top + height:
                        found.append((thing.role, thing.name, thing.place))
            return found
        until_equal(outside, [], f"the controls outside of {window.name!r}")
