"""A workstation: a folder with a fresh copy of the program, and the run of it on a screen."""
import shutil
import time

from eyes import Failed, until
from hands import Hands
from pages import Box, Console, Editor, Page, Schedules
from stage import end

DATABASE = "TVX.MDB"
READY_MADE = "TVX.JAN"
SHIPPED = ["tarvex", READY_MADE, "1.SFT", "help"]


class Workstation:
    def __init__(self, stage, desk, program_folder, name, screen=None):
        self.stage = stage
        self.desk = desk
        self.screen = screen or stage.screen
        self.hands = Hands(self.screen)
        self.folder = stage.folder / name
        self.database = self.folder / DATABASE
        self.process = None
        self.messages = stage.folder / f"{name}.stderr"
        self._install(program_folder)

    def _install(self, program_folder):
        """Copies the program and what is shipped with it, but nothing that a run has left beside it."""
        self.folder.mkdir()
        for name in SHIPPED:
            source = program_folder / name
            if source.is_dir():
                shutil.copytree(source, self.folder / name)
            elif source.exists():
                shutil.copy2(source, self.folder)

    def share(self, other):
        """Makes the database of another workstation this one's, as its network path."""
        (self.folder / "NetworkPath.DAT").write_bytes(f'"{other.folder}"\r\n0\r\n'.encode())
        self.database = other.database

    # ---- the run ----

    def launch(self, **environment):
        """Starts the program without waiting for anything."""
        with open(self.messages, "ab") as messages:
            return self.stage.start([self.folder / "tarvex"], cwd=self.folder, stdout=messages, stderr=messages,
                                    env=dict(self.screen.environment, **environment))

    def start(self, **environment):
        """Starts the program and waits for its console."""
        self.process = self.launch(**environment)
        return self.console()

    def kill(self):
        self.process.kill()
        self.process.wait()

    def stop(self):
        if self.process is not None:
            end(self.process)

    def await_end(self, process=None, limit=30):
        process = process or self.process
        ends = time.monotonic() + limit
        while process.poll() is None:
            if time.monotonic() > ends:
                raise Failed(f"the program did not end within {limit} seconds")
            time.sleep(0.02)
        return process.returncode

    def complaints(self):
        return self.messages.read_text(errors="replace") if self.messages.exists() else ""

    # ---- its windows ----

    def windows(self, process=None):
        program = self.desk.program((process or self.process).pid)
        return program.children if program else []

    def visible(self, title, process=None):
        """The windows of a title that show; a title that ends in * may go on."""
        def fits(name):
            return name.startswith(title[:-1]) if title.endswith("*") else name == title
        return [window for window in self.windows(process) if fits(window.name) and window.shows]

    def window(self, title, process=None, role=None):
        """The window of a title, and of a role if one is named, once it is in front."""
        def look():
            return next((window for window in self.visible(title, process)
                         if window.active and role in (None, window.role)), None)
        return until(look, f"the window {title!r} to come to the front", limit=60)

    def await_gone(self, title):
        until(lambda: not self.visible(title), f"the window {title!r} to go")

    def console(self):
        return Console(self, self.window("Tarvex"))

    def editor(self):
        return Editor(self, self.window("Example department,  Week*"))

    def box(self, title, process=None):
        return Box(self, self.window(title, process, role="alert"))

    def schedules(self, picked=False):
        title = "Printing schedules for selected Employees" if picked else "Include in schedule"
        return Schedules(self, self.window(title))

    def page_over(self, below):
        """The screen that has come to the front over another one, whatever its title."""
        def look():
            return next((window for window in self.windows() if window.shows and window.active
                         and window.name != below.title), None)
        return Page(self, until(look, f"a screen over {below.title!r}", limit=60))

    def page(self, title):
        return Page(self, self.window(title))
