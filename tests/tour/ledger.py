"""What the database file holds, read through a connection of its own, and what a screen must make of it.

Days are serials (day 0 is 30 December 1899), times are quarters of an hour. A week has eight days: the last is
the first of the week after it, into which a bar of the seventh day may run.
"""
import contextlib
import datetime
import sqlite3
from collections import namedtuple
from decimal import ROUND_HALF_UP, Decimal

QUARTERS = 96
SPAN = 8 * QUARTERS
WEEKDAYS = ["Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"]
MONTHS = ["January", "February", "March", "April", "May", "June", "July", "August", "September", "October",
          "November", "December"]
LABOR_TYPES = {0: "Full time", 1: "Part time", 2: "Student", 4: "Other"}

Person = namedtuple("Person", "key name pay hourly id assignment labor colour hired away")
Row = namedtuple("Row", "daytype starts_stops hours rate salary off")


def date_of(serial):
    return datetime.date(1899, 12, 30) + datetime.timedelta(days=serial)


def serial_of(date):
    return (date - datetime.date(1899, 12, 30)).days


def first_day_of_this_week():
    today = datetime.date.today()
    return serial_of(today) - (today.weekday() + 1) % 7


def long_date(serial):
    date = date_of(serial)
    return f"{date.day}-{MONTHS[date.month - 1][:3]}-{date.year}"


def title_of_week(department, start):
    return f"{department},  Week from {long_date(start)}  to  {long_date(start + 6)}"


@contextlib.contextmanager
def reading(file):
    with contextlib.closing(sqlite3.connect(f"file:{file}?mode=ro", uri=True, timeout=20)) as base:
        yield base


def is_sound(file):
    with reading(file) as base:
        return base.execute("PRAGMA integrity_check").fetchone() == ("ok",)


def rows_of_week(file, start):
    """The rows of the week's eight days, by day and employee."""
    with reading(file) as base:
        found = base.execute(
            "SELECT [Day Julian], [Employee], [DayType], [Starts & Stops], [Work hours], [Current Rate], [Salary],"
            " [Vacation day] FROM [Day Schedule] WHERE [Day Julian] BETWEEN ? AND ?", (start, start + 7))
        return {(day, who): Row(daytype or "", text, hours, rate, mark, bool(off))
                for day, who, daytype, text, hours, rate, mark, off in found}


def sales_of_week(file, start):
    with reading(file) as base:
        return dict(base.execute("SELECT [Day] - ?, [Sales] FROM [Department day] WHERE [Day] BETWEEN ? AND ?",
                                 (start - 1, start, start + 6)).fetchall())


def people(file, department=None):
    """The active employees in the order of their names, of one department if one is named."""
    with reading(file) as base:
        found = base.execute(
            "SELECT [Employee], [Last name] || ' ' || [First name], [Pay], [Wage or Sal], [ID], [Assignment],"
            " [Labor type], [EbarColor], [Hire Date], [Avail start], [Avail stop] FROM [Employee] JOIN [Department]"
            " USING ([Dep number]) WHERE [Active] AND [Department name] = ifnull(?, [Department name])"
            " ORDER BY [Last name], [First name]", (department,))
        return [Person(key, name, Decimal(pay), bool(hourly), number, job, LABOR_TYPES[labor], colour,
                       date_of(hired), periods_away(starts, stops))
                for key, name, pay, hourly, number, job, labor, colour, hired, starts, stops in found]


def periods_away(starts, stops):
    """(weekday, start, stop) of what an employee is not available for; weekday 1 is Sunday."""
    return [(place // 4 + 1, ord(starts[place]) - 32, ord(stops[place]) - 32)
            for place in range(28) if ord(stops[place]) > 32]


def periods_of(text):
    """The work periods in a row's fourteen characters."""
    text = (text or "").ljust(14)
    return [(ord(text[p]) - 32, ord(text[p + 7]) - 32) for p in range(7) if ord(text[p + 7]) > 32]


def text_of(periods):
    starts = "".join(chr(32 + start) for start, _ in periods).ljust(7)
    stops = "".join(chr(32 + stop) for _, stop in periods).ljust(7)
    return starts + stops


class Week:
    """A week of work as it should stand on the screen: begun from the rows, then changed as a person changes it."""

    def __init__(self, file, start, department=None):
        self.start = start
        self.people = people(file, department)
        self.bars = {person.key: [] for person in self.people}
        self.daytypes = {}
        self.days_off = set()
        self.frozen = {}
        for (serial, who), row in rows_of_week(file, start).items():
            if who not in self.bars:
                continue
            day = serial - start + 1
            self.frozen[serial, who] = row
            self.daytypes[who, day] = row.daytype
            if row.off:
                self.days_off.add((who, day))
            for begin, end in periods_of(row.starts_stops):
                self.add(who, day, begin, end)

    def person(self, name):
        return next(person for person in self.people if person.name == name)

    # ---- changes ----

    def add(self, who, day, begin, end):
        """A bar on a day; bars that touch or overlap become one."""
        offset = (day - 1) * QUARTERS
        bars = sorted(self.bars[who] + [(begin + offset, end + offset)])
        merged = []
        for begin, end in bars:
            if merged and begin <= merged[-1][1]:
                merged[-1] = (merged[-1][0], max(end, merged[-1][1]))
            else:
                merged.append((begin, end))
        self.bars[who] = merged

    def drop(self, who, day, begin):
        """The bar that begins on a day at a quarter goes."""
        start = (day - 1) * QUARTERS + begin
        kept = [bar for bar in self.bars[who] if bar[0] != start]
        assert len(kept) == len(self.bars[who]) - 1, "the tour itself is wrong: no such bar"
        self.bars[who] = kept

    def change(self, who, day, begin, new_begin, new_end):
        self.drop(who, day, begin)
        self.add(who, day, new_begin, new_end)

    def set_daytype(self, who, day, text):
        self.daytypes[who, day] = text

    # ---- what the screen must say ----

    def lane(self, person, day):
        low, high = (day - 1) * QUARTERS, day * QUARTERS
        words = [f" {clock(begin)} - {clock(end)}" for begin, end in self.bars[person.key]
                 if end > low and begin < high]
        if (person.key, day) in self.days_off:
            words.append(" Vacation day")
        return person.name + ":" + "".join(words)

    def lanes(self, day):
        return [self.lane(person, day) for person in self.people]

    def quarters(self, person, day=None):
        """Work of a day, or of the seven days of the week."""
        low, high = ((day - 1) * QUARTERS, day * QUARTERS) if day else (0, 7 * QUARTERS)
        return sum(max(0, min(end, high) - max(begin, low)) for begin, end in self.bars[person.key])

    def wages(self, person, day=None):
        return person.pay * self.quarters(person, day) / 4 if person.hourly else Decimal(0)

    def total_time(self, day=None):
        return duration(sum(self.quarters(person, day) for person in self.people))

    def total_wages(self, day=None):
        return money(sum(self.wages(person, day) for person in self.people))

    def days_with_work(self, person):
        return {begin // QUARTERS + 1 for begin, _ in self.bars[person.key]} - {8}

    # ---- what the file must hold ----

    def rows(self):
        """The rows after a save: an employee's day that holds nothing has none."""
        found = {}
        for person in self.people:
            for day in range(1, 9):
                row = self._row(person, day)
                if row is not None:
                    found[self.start + day - 1, person.key] = row
        return found

    def _row(self, person, day):
        low, high = (day - 1) * QUARTERS, day * QUARTERS
        periods = [(max(begin, low) - low, min(end, high) - low) for begin, end in self.bars[person.key]
                   if end > low and begin < high]
        daytype = self.daytypes.get((person.key, day), "")
        off = (person.key, day) in self.days_off
        if not periods and not daytype.strip() and not off:
            return None
        hours = sum(end - begin for begin, end in periods) / 4
        old = self.frozen.get((self.start + day - 1, person.key))
        rate = float(person.pay) if person.hourly else float(person.pay) / 7
        return Row(daytype, text_of(periods), hours, old.rate if old else rate, "W" if person.hourly else "S", off)


def rounded(rows):
    """Rows with their real numbers cut to what a comparison may ask of them."""
    return {key: row._replace(hours=round(row.hours, 4), rate=round(row.rate, 4)) for key, row in rows.items()}


def clock(quarter):
    """A time of day in words: 8:00am, Noon, Midn."""
    minutes = quarter % QUARTERS * 15
    if minutes == 0:
        return "Midn."
    if minutes == 720:
        return "Noon"
    hour = minutes // 60
    return f"{(hour - 1) % 12 + 1}:{minutes % 60:02}{'pm' if hour >= 12 else 'am'}"


def duration(quarters):
    return f"{quarters // 4:2}:{quarters % 4 * 15:02}"


def money(amount):
    text = str(Decimal(amount).quantize(Decimal("0.01"), ROUND_HALF_UP))
    return text[1:] if text.startswith("0.") else text
