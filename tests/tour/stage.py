"""Where the tour plays: virtual screens with a window manager, buses of their own, temporary folders.

Whatever is started here ends with the tour: on success, on failure, on Ctrl-C, and when the tour is killed.
"""
import contextlib
import ctypes
import os
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

PR_SET_PDEATHSIG = 1
TOOLS = ["Xvfb", "openbox", "xdotool", "maim", "xprop", "dbus-daemon", "pdftotext", "pdftoppm"]


class StageTrouble(Exception):
    """The tour cannot play here; says why."""


def end_with_parent():
    """In a child between fork and exec: ask the kernel to end it when the tour is gone."""
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


def end(process, patience=5):
    if process.poll() is not None:
        return
    process.terminate()
    try:
        process.wait(patience)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


class Screen:
    """One virtual screen: its size and the environment that a program needs to show itself on it."""

    def __init__(self, display, width, height):
        self.display = display
        self.width = width
        self.height = height

    @property
    def environment(self):
        return dict(os.environ, DISPLAY=self.display, QT_QPA_PLATFORM="xcb")

    def icons_of(self, title):
        """What the window of that title tells the desktop about its icons."""
        return subprocess.run(["xprop", "-name", title, "_NET_WM_ICON"], env=self.environment, capture_output=True,
                              text=True, check=True).stdout


class Stage:
    def __init__(self):
        self._ending = contextlib.ExitStack()
        self.folder = None

    def __enter__(self):
        missing = [tool for tool in TOOLS if shutil.which(tool) is None]
        if missing:
            raise StageTrouble("not installed: " + ", ".join(missing) + " (see packaging/packages.txt)")
        try:
            self._set_up()
        except BaseException:
            self._ending.close()
            raise
        return self

    def __exit__(self, *_):
        self._ending.close()

    def _set_up(self):
        self.folder = Path(tempfile.mkdtemp(prefix="tarvex-tour-"))
        self._ending.callback(shutil.rmtree, self.folder, ignore_errors=True)
        for name in ("home", "run"):
            (self.folder / name).mkdir(mode=0o700)
        for name in ("WAYLAND_DISPLAY", "QT_ACCESSIBILITY", "QT_SCALE_FACTOR", "QT_STYLE_OVERRIDE", "LANGUAGE"):
            os.environ.pop(name, None)
        os.environ.update(HOME=str(self.folder / "home"), XDG_RUNTIME_DIR=str(self.folder / "run"),
                          LC_ALL="C.UTF-8", LANG="C.UTF-8", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.screen = self.open_screen(1920, 1080)
        os.environ["DISPLAY"] = self.screen.display
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._start_bus()

    def start(self, command, **options):
        """Starts a process that ends with the tour at the latest."""
        process = subprocess.Popen([str(part) for part in command], preexec_fn=end_with_parent,
                                   stdin=subprocess.DEVNULL, **options)
        self._ending.callback(end, process)
        return process

    def _start_bus(self):
        reading, writing = os.pipe()
        self.start(["dbus-daemon", "--session", "--nofork", "--nopidfile", f"--print-address={writing}"],
                   pass_fds=[writing], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as answer:
            address = answer.readline().strip()
        if not address:
            raise StageTrouble("the D-Bus session did not start")
        return address

    def open_screen(self, width, height):
        # Without -noreset the screen throws out whoever is just coming when its last client goes.
        reading, writing = os.pipe()
        self.start(["Xvfb", "-displayfd", writing, "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp",
                    "-noreset"], pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as answer:
            number = answer.readline().strip()
        if not number:
            raise StageTrouble("the virtual screen did not start")
        screen = Screen(":" + number, width, height)
        self.start(["openbox"], env=screen.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self._await_window_manager(screen)
        return screen

    @staticmethod
    def _await_window_manager(screen):
        limit = time.monotonic() + 30
        while time.monotonic() < limit:
            answer = subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], env=screen.environment,
                                    capture_output=True, text=True)
            if "window id" in answer.stdout:
                return
            time.sleep(0.02)
        raise StageTrouble("the window manager did not start")
