import re
import shutil
import subprocess

import ledger
from eyes import until, until_equal
from hands import colours
from play import Act, chapter

SHORT, LONG, PICKED = ("Department seven day schedule", "Seven day schedule, Long format",
                       "Selected Employees seven day schedule")


def squeezed(text):
    """The text with every run of blanks as one."""
    return re.sub(" +", " ", text)


class Printing(Act):
    """the week on paper and as web pages"""

    def set_up(self):
        self.station = self.workstation("office")
        self.editor = self.station.start().schedule()
        self.start = ledger.first_day_of_this_week()
        self.week = ledger.Week(self.station.database, self.start)

    def tear_down(self):
        for file in self.station.folder.glob("*.pdf"):
            shutil.copy2(file, self.tour.out_folder)
        for file in self.station.folder.glob("*.htm"):
            shutil.copy2(file, self.tour.out_folder)
        super().tear_down()

    # ---- what the chapters share ----

    def open(self, entry):
        self.editor.choose("Print schedules", entry)
        return self.station.schedules(picked=entry == PICKED)

    def expect_totals(self, text):
        """The department's totals in a text are those that stand below the grid."""
        text = squeezed(text.replace(",", ""))
        shown = {name: label.description.strip() for name, label in self.editor.totals.items()}
        assert f"total time: {shown['Week time']}\n" in text, (shown, text[-1500:])
        assert f"total wages: {shown['Week wages']}\n" in text, (shown, text[-1500:])

    def pdf_text(self, name):
        """The text of a PDF; its pages stay as pictures."""
        file = self.station.folder / name
        until(file.exists, f"the file {name}")
        subprocess.run(["pdftoppm", "-r", "80", "-png", file, self.tour.out_folder / file.stem], check=True)
        return subprocess.run(["pdftotext", "-layout", file, "-"], check=True, capture_output=True, text=True).stdout

    def page_text(self, name):
        """The text of a web page without its markup, a line for each table."""
        file = self.station.folder / name
        until(file.exists, f"the file {name}")
        body = file.read_text().split("</style>")[1]
        return re.sub("<[^>]*>", "", body.replace("</table>", "\n"))

    # ---- the short schedule ----

    @chapter("the short schedule shows in a preview before it is printed")
    def preview(self):
        self.form = self.open(SHORT)
        self.picture("schedule-form", window=self.form.window)
        for option in ("Total Hours", "Total Wages/Salaries", "Print time bars (Not on HTML)", "Print day comments",
                       "Productivity summary"):
            self.form.tick(option)
        self.form.press("Preview")
        self.preview_ = self.form.preview()
        until_equal(lambda: self.preview_.page, (1, self.preview_.pages), "the first page")
        assert self.preview_.pages > 1, "the whole department on one page"
        self.picture("preview")

    @chapter("its pages turn by keys and by buttons and stop at both ends")
    def pages(self):
        preview, hands = self.preview_, self.station.hands
        count = preview.pages
        for key, page in (("Next", 2), ("Prior", 1), ("Prior", 1), ("End", count), ("Next", count), ("Home", 1)):
            hands.press(key)
            until_equal(lambda: preview.page, (page, count), f"the page after {key}")
        preview.press("Next page")
        until_equal(lambda: preview.page, (2, count), "the next page")
        self.picture("preview-page-2")
        preview.press("Page before")
        until_equal(lambda: preview.page, (1, count), "the page before")

    @chapter("a double click zooms in, the mouse moves the page, and a double click zooms out")
    def zoom(self):
        preview, hands = self.preview_, self.station.hands
        left, top, width, height = preview.paper
        whole = self._look()
        hands.double_click((left + width // 2, top + height // 4))
        until(lambda: self._look() != whole, "the larger page")
        self.picture("preview-zoomed")
        zoomed = self._look()
        hands.drag((left + width // 2, top + height // 2), (left + width // 2, top + height // 4))
        until(lambda: self._look() not in (whole, zoomed), "the page to move")
        self.picture("preview-moved")
        hands.double_click((left + width // 2, top + height // 2))
        until_equal(self._look, whole, "the whole page")

    def _look(self):
        return colours(self.station.screen, self.preview_.paper)

    @chapter("another paper shows at once and is kept beside the program")
    def paper(self):
        upright = self._look()
        self.preview_.choose("Landscape")
        until(lambda: self._look() != upright, "the paper to turn")
        self.picture("preview-landscape")
        settings = (self.station.folder / "1.Sho").read_text()
        assert settings.split("\n")[4].strip() == "1", settings

    @chapter("cancelling the print dialog leaves the preview; printing to a file writes the totals of the screen")
    def print_short(self):
        self.preview_.press("Print")
        self.station.page("Print").leave("Escape")
        preview = self.form.preview()
        preview.print_to(self.station.folder / "short.pdf")
        self.form = self.station.schedules()
        text = self.pdf_text("short.pdf")
        self.expect_totals(text)
        for person in self.week.people:
            assert person.name in text, person.name
        assert squeezed(ledger.title_of_week("Example department", self.start)) in squeezed(text), text[:300]

    @chapter("the short schedule is saved as a web page after a look at it")
    def save_short(self):
        self.form.press("Preview HTML")
        preview = self.form.preview("Review HTML pages...")
        self.picture("preview-html")
        preview.save_as(self.station.folder / "short.htm")
        self.form = self.station.schedules()
        self.expect_totals(self.page_text("short.htm"))
        self.form.leave("Escape")

    # ---- the others ----

    @chapter("the long schedule is printed and saved, and its totals are those of the screen")
    def long(self):
        form = self.open(LONG)
        assert form.ticked("Total Hours") and form.ticked("Total Wages/Salaries"), "the options are forgotten"
        form.print_to(self.station.folder / "long.pdf")
        self.expect_totals(self.pdf_text("long.pdf"))
        form = self.station.schedules()
        form.save_as(self.station.folder / "long.htm")
        self.expect_totals(self.page_text("long.htm"))
        self.station.schedules().leave("Escape")

    @chapter("picked people get a page each, in both forms, with the hours of their rows")
    def picked(self):
        form = self.open(PICKED)
        people = [self.week.people[0], self.week.people[5]]
        form.pick([person.name for person in people])
        self.picture("picked-people", window=form.window)
        form.print_to(self.station.folder / "picked.pdf")
        pages = self.pdf_text("picked.pdf").split("\f")
        assert len(pages) == len(people) + 1, f"{len(pages) - 1} pages"
        form = self.station.schedules(picked=True)
        form.save_as(self.station.folder / "picked.htm")
        text = self.page_text("picked.htm")
        for person, page in zip(people, pages):
            total = "Total: " + ledger.duration(self.week.quarters(person)).strip()
            assert f"Schedule for: {person.name}" in page, page
            assert total in squeezed(page), (total, page)
            assert total in squeezed(text), (total, text)
        self.station.schedules(picked=True).leave("Escape")

    @chapter("printing has changed no row of the file, and the editor is not asked to save")
    def leave(self):
        assert ledger.rows_of_week(self.station.database, self.start) == self.week.frozen, "printing changed rows"
        self.editor.close()
        self.station.await_gone(self.editor.title)
        assert self.station.console().exit() == 0
