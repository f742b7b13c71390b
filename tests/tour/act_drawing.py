import ledger
from eyes import until, until_equal
from play import Act, chapter

MONDAY, TUESDAY = 2, 3
CASHIER = "O'Brien Maeve"  # free on Monday
DRIVER = "Petersen Olaf"  # free on Monday and Tuesday
COOK = "Quinn Rosa"  # at work on Monday from 10:30 to 14:30


class Drawing(Act):
    """drawing a week and keeping it"""

    def set_up(self):
        self.station = self.workstation("office")
        self.editor = self.station.start().schedule()
        self.start = ledger.first_day_of_this_week()
        self.week = ledger.Week(self.station.database, self.start)
        self.cashier, self.driver, self.cook = (self.week.person(name).key for name in (CASHIER, DRIVER, COOK))
        self.editor.choose_day(MONDAY)
        self.editor.expect(self.week, MONDAY)

    def stored(self):
        return ledger.rounded(ledger.rows_of_week(self.station.database, self.start))

    def expect_stored(self, week):
        until_equal(self.stored, ledger.rounded(week.rows()), "the rows in the file")

    # ---- drawing ----

    @chapter("draws a bar on an empty lane, and the time of the bar stands beside the ruler meanwhile")
    def draws(self):
        editor, hands = self.editor, self.station.hands
        hands.grab(editor.spot(CASHIER, 32), editor.spot(CASHIER, 48))
        until_equal(lambda: editor.says("Time of the bar"), "8:00am - Noon", "the time of the bar")
        self.tour.picture("drawing-a-bar", self.station.screen)
        hands.let_go()
        self.week.add(self.cashier, MONDAY, 32, 48)
        editor.expect(self.week, MONDAY)
        until_equal(lambda: editor.says("Time of the bar"), "", "the time of the bar")

    @chapter("stretches its right end")
    def stretches(self):
        self.editor.drag(CASHIER, 48, 56)
        self.week.change(self.cashier, MONDAY, 32, 32, 56)
        self.editor.expect(self.week, MONDAY)

    @chapter("moves it as a whole")
    def moves(self):
        self.editor.drag(CASHIER, 40, 48)
        self.week.change(self.cashier, MONDAY, 32, 40, 64)
        self.editor.expect(self.week, MONDAY)

    @chapter("draws a second bar, and merges the two by stretching one into the other")
    def merges(self):
        self.editor.drag(CASHIER, 76, 84)
        self.week.add(self.cashier, MONDAY, 76, 84)
        self.editor.expect(self.week, MONDAY)
        self.picture("two-bars")
        self.editor.drag(CASHIER, 76, 60)
        self.week.change(self.cashier, MONDAY, 76, 60, 84)
        self.editor.expect(self.week, MONDAY)
        assert self.week.lane(self.week.person(CASHIER), MONDAY) == CASHIER + ": 10:00am - 9:00pm"
        self.picture("merged-bars")

    @chapter("deletes it by dragging one end onto the other")
    def deletes(self):
        self.editor.drag(CASHIER, 84, 40)
        self.week.drop(self.cashier, MONDAY, 40)
        self.editor.expect(self.week, MONDAY)

    @chapter("draws up to midnight and on from midnight the next day, and the two become one bar")
    def over_midnight(self):
        self._draw_over_midnight()
        lane = DRIVER + ": 8:00pm - 2:00am"
        assert self.week.lane(self.week.person(DRIVER), TUESDAY) == lane
        self.picture("over-midnight")
        self.editor.choose_day(MONDAY)
        self.editor.expect(self.week, MONDAY)
        assert self.week.lane(self.week.person(DRIVER), MONDAY) == lane

    def _draw_over_midnight(self):
        self.editor.drag(DRIVER, 80, 97)
        self.week.add(self.driver, MONDAY, 80, 96)
        self.editor.expect(self.week, MONDAY)
        self.editor.choose_day(TUESDAY)
        self.editor.expect(self.week, TUESDAY)
        self.editor.drag(DRIVER, 8, -1)
        self.week.add(self.driver, TUESDAY, 0, 8)
        self.editor.expect(self.week, TUESDAY)

    # ---- daytypes ----

    @chapter("types a daytype, in capitals whatever is typed, and goes on to the next row with Down")
    def daytype(self):
        box = self.editor.type_daytype(CASHIER, "ca")
        until_equal(lambda: box.text, "CA", "the daytype")
        self.week.set_daytype(self.cashier, MONDAY, "CA")
        self.station.hands.press("Down")
        until(lambda: self.editor.daytypes[DRIVER].focused, "the next daytype box to take the keys")

    @chapter("refuses a W as a daytype with a message")
    def refused_daytype(self):
        box = self.editor.daytypes[DRIVER]
        self.station.hands.type("w")
        refusal = self.station.box("Font for W is to wide.")
        until_equal(lambda: refusal.message, "The <W> cannot be used as a Daytype...", "the message")
        self.picture("refused-daytype")
        refusal.answer("OK")
        until(lambda: box.focused, "the daytype box to take the keys again")
        assert box.text == "", box.text
        self.station.hands.type("dl")
        until_equal(lambda: box.text, "DL", "the daytype")
        self.week.set_daytype(self.driver, MONDAY, "DL")

    @chapter("the labor figures follow an edit")
    def labor_figures(self):
        sales = ledger.sales_of_week(self.station.database, self.start)
        self._expect_labor(sales)
        self.editor.drag(CASHIER, 32, 48)
        self.week.add(self.cashier, MONDAY, 32, 48)
        self.editor.expect(self.week, MONDAY)
        self._expect_labor(sales)

    def _expect_labor(self, sales):
        """Wages and the hours of those paid by the hour, unless the productivity settings say otherwise."""
        for span, day, sold in (("Day", MONDAY, sales[MONDAY]), ("Week", None, sum(sales.values()))):
            paid = [person for person in self.week.people if person.hourly]
            hours = sum(self.week.quarters(person, day) for person in paid) / 4
            cost = sum(self.week.wages(person, day) for person in paid)
            until_equal(lambda: self.editor.says(f"{span} Sales/hrs"), " " + ledger.money(sold / hours), "sales")
            until_equal(lambda: self.editor.says(f"{span} Labor %"), " " + ledger.money(float(cost) * 100 / sold),
                        "labor")

    # ---- leaving the week ----

    @chapter("a week arrow asks about unsaved changes: Cancel stays")
    def cancel_stays(self):
        self.editor.next_week()
        box = self.editor.save_first()
        self.picture("save-first")
        box.answer("Cancel")
        assert self.editor.title == ledger.title_of_week("Example department", self.start)
        self.editor.expect(self.week, MONDAY)

    @chapter("No drops the changes: the rows stay, and the week is shown from them again")
    def no_drops(self):
        before = self.week.frozen
        self.editor.next_week()
        self.editor.save_first().answer("No")
        self._expect_week(1)
        self.picture("next-week")
        assert ledger.rows_of_week(self.station.database, self.start) == before
        self.editor.previous_week()
        self._expect_week(0)

    def _expect_week(self, number):
        """Waits until a week is shown as the file has it: 0 is this week, 1 the next."""
        start = self.start + 7 * number
        until_equal(lambda: self.editor.title, ledger.title_of_week("Example department", start), "the title")
        week = ledger.Week(self.station.database, start)
        self.editor.expect(week, MONDAY)
        if number == 0:
            self.week = week

    @chapter("Yes saves the changes before it goes on")
    def yes_saves(self):
        self.editor.drag(CASHIER, 32, 48)
        self.week.add(self.cashier, MONDAY, 32, 48)
        self.editor.expect(self.week, MONDAY)
        self.editor.next_week()
        self.editor.save_first().answer("Yes")
        self._expect_week(1)
        self.expect_stored(self.week)
        self.editor.previous_week()
        self._expect_week(0)

    @chapter("Save writes the rows exactly as drawn, and deletes that of a day that was emptied")
    def saves(self):
        self._draw_over_midnight()
        self.editor.choose_day(MONDAY)
        self.editor.drag(COOK, 58, 42)
        self.week.drop(self.cook, MONDAY, 42)
        self.editor.type_daytype(CASHIER, "cs")
        self.week.set_daytype(self.cashier, MONDAY, "CS")
        self.editor.expect(self.week, MONDAY)
        self.editor.save()
        self.expect_stored(self.week)
        stored = ledger.rows_of_week(self.station.database, self.start)
        assert stored[self.start + 1, self.driver].starts_stops == "p      \x80      "
        assert stored[self.start + 2, self.driver].starts_stops == "       (      "
        assert (self.start + 1, self.cook) not in stored
        self.picture("saved")

    @chapter("a saved week is left without a question")
    def saved_is_left(self):
        self.editor.next_week()
        self._expect_week(1)
        self.editor.previous_week()
        self._expect_week(0)

    @chapter("Close asks about unsaved changes: Cancel stays, No goes and keeps the rows")
    def close_with_changes(self):
        before = self.stored()
        self.editor.drag(CASHIER, 60, 72)
        self.week.add(self.cashier, MONDAY, 60, 72)
        self.editor.expect(self.week, MONDAY)
        self.editor.choose("Schedules", "Close")
        self.editor.save_first().answer("Cancel")
        self.editor.expect(self.week, MONDAY)
        self.editor.close()
        self.editor.save_first().answer("No")
        self.station.await_gone(self.editor.title)
        assert self.stored() == before

    @chapter("so does the key that closes a window, and Yes saves")
    def close_by_key(self):
        self.editor = self.station.console().schedule(note=False)
        self.editor.choose_day(MONDAY)
        self.week = ledger.Week(self.station.database, self.start)
        self.editor.expect(self.week, MONDAY)
        self.editor.drag(CASHIER, 60, 72)
        self.week.add(self.cashier, MONDAY, 60, 72)
        self.editor.expect(self.week, MONDAY)
        self.station.hands.press("alt+F4")
        self.editor.save_first().answer("Yes")
        self.station.await_gone(self.editor.title)
        self.expect_stored(self.week)

    @chapter("after a restart the week is there, exactly")
    def restart(self):
        assert self.station.console().exit() == 0
        self.editor = self.station.start().schedule()
        for day in range(1, 8):
            self.editor.choose_day(day)
            self.editor.expect(self.week, day)
        self.editor.close()
        self.station.await_gone(self.editor.title)
        self.expect_stored(self.week)

    @chapter("ends by the Exit entry of the menu")
    def exit(self):
        self.station.console().choose("File", "Exit")
        assert self.station.await_end() == 0
        assert ledger.is_sound(self.station.database)
