"""How the tour is told: acts of chapters. A chapter begins where the one before it ended."""
import re
import time
import traceback

from hands import photograph
from workstation import Workstation

CHAPTERS = "_chapter"


def chapter(sentence):
    """Marks a function of an act as a chapter and says what it shows."""
    def mark(function):
        setattr(function, CHAPTERS, sentence)
        return function
    return mark


class Act:
    """One story on fresh workstations."""

    def __init__(self, tour):
        self.tour = tour
        self.stations = []

    def workstation(self, name, screen=None):
        station = Workstation(self.tour.stage, self.tour.desk, self.tour.program_folder,
                              f"{type(self).__name__.lower()}-{name}", screen)
        self.stations.append(station)
        return station

    def set_up(self):
        """What must stand before the first chapter."""

    def tear_down(self):
        for station in self.stations:
            station.stop()

    def picture(self, name, station=None, window=None):
        """Leaves a picture of a workstation's screen, or of a window with a little around it."""
        station = station or self.stations[0]
        station.hands.step_aside()
        place = None
        if window is not None:
            left, top, width, height = window.place
            left, top = max(0, left - 24), max(0, top - 40)
            place = left, top, min(width + 48, station.screen.width - left), \
                min(height + 64, station.screen.height - top)
        self.tour.picture(name, station.screen, place)

    @classmethod
    def chapters(cls):
        return [(getattr(function, CHAPTERS), function) for function in vars(cls).values()
                if hasattr(function, CHAPTERS)]


class Tour:
    def __init__(self, stage, desk, program_folder, out_folder):
        self.stage = stage
        self.desk = desk
        self.program_folder = program_folder
        self.out_folder = out_folder
        self.pictures = 0
        self.passed = 0
        self.failed = 0

    def picture(self, name, screen, place=None):
        self.pictures += 1
        photograph(screen, self.out_folder / f"{self.pictures:02}-{name}.png", place)

    def play(self, act_class):
        act = act_class(self)
        chapters = act_class.chapters()
        try:
            if self._run(f"set-up of {act_class.__doc__}", act, lambda: act.set_up(), quiet=True):
                while chapters:
                    sentence, function = chapters.pop(0)
                    if not self._run(sentence, act, lambda: function(act)):
                        break
            for sentence, _ in chapters:
                self.failed += 1
                print(f"--  {sentence} (not reached)", flush=True)
        finally:
            act.tear_down()

    def _run(self, sentence, act, step, quiet=False):
        begun = time.monotonic()
        try:
            step()
        except Exception as trouble:  # whatever goes wrong is a failure of this chapter
            self.failed += 1
            print(f"FAILED  {sentence}", flush=True)
            self._tell(sentence, act, trouble)
            return False
        if not quiet:
            self.passed += 1
            print(f"ok  {sentence} ({time.monotonic() - begun:.1f} s)", flush=True)
        return True

    def _tell(self, sentence, act, trouble):
        print("".join(traceback.format_exception(trouble)))
        name = re.sub(r"[^a-z0-9]+", "-", sentence.lower()).strip("-")[:60]
        for number, station in enumerate(act.stations, 1):
            try:
                file = self.out_folder / f"failure-{name}-{number}.png"
                photograph(station.screen, file)
                print(f"The screen at that moment: {file}")
            except Exception as also:
                print(f"No picture of that moment: {also}")
            if station.complaints():
                print(f"What the program said on {station.folder.name}:\n{station.complaints()}")
