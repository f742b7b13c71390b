"""What a person does at a screen: presses keys, clicks, drags; and a camera."""
import struct
import subprocess
from collections import Counter


class Hands:
    def __init__(self, screen):
        self.screen = screen

    def _do(self, *words):
        subprocess.run(["xdotool", *[str(word) for word in words]], env=self.screen.environment, check=True,
                       stdout=subprocess.DEVNULL)

    def press(self, *keys):
        """Keys by name, one after the other: "Return", "alt+f"."""
        self._do("key", *keys)

    def type(self, text):
        self._do("type", text)

    def click(self, place, button=1, held=None):
        """A click, perhaps while a key is held."""
        if held is None:
            self._do("mousemove", *place, "click", button)
        else:
            self._do("keydown", held, "mousemove", *place, "click", button, "keyup", held)

    def double_click(self, place):
        self._do("mousemove", *place, "click", "--repeat", 2, "--delay", 60, 1)

    def triple_click(self, place):
        """Marks a whole line of text."""
        self._do("mousemove", *place, "click", "--repeat", 3, "--delay", 60, 1)

    def drag(self, start, stop, steps=8):
        """Presses at one place, moves on in steps and lets go at the other."""
        self._do(*self._way(start, stop, steps), "mouseup", 1)

    def grab(self, start, stop, steps=8):
        """A drag that is not let go."""
        self._do(*self._way(start, stop, steps))

    def let_go(self):
        self._do("mouseup", 1)

    @staticmethod
    def _way(start, stop, steps):
        way = ["mousemove", *start, "mousedown", 1]
        for step in range(1, steps + 1):
            way += ["mousemove", *(a + (b - a) * step // steps for a, b in zip(start, stop))]
        return way

    def step_aside(self):
        """Moves the mouse where it lights nothing."""
        self._do("mousemove", self.screen.width - 2, self.screen.height - 2)


def photograph(screen, file, place=None):
    """A picture of the whole screen, or of a place on it, without the mouse."""
    command = ["maim", "-u"]
    if place is not None:
        left, top, width, height = place
        command += ["-g", f"{width}x{height}+{left}+{top}"]
    subprocess.run([*command, str(file)], env=screen.environment, check=True)


def colours(screen, place):
    """The colours at a place of the screen: how many points of which red, green, blue."""
    left, top, width, height = place
    shot = subprocess.run(["maim", "-u", "-f", "bmp", "-g", f"{width}x{height}+{left}+{top}"],
                          env=screen.environment, check=True, capture_output=True).stdout
    data, = struct.unpack_from("<I", shot, 10)
    wide, high = struct.unpack_from("<ii", shot, 18)
    step = struct.unpack_from("<H", shot, 28)[0] // 8
    line = (wide * step + 3) // 4 * 4  # lines are filled up to whole words
    found = Counter()
    for begin in range(data, data + abs(high) * line, line):
        points = shot[begin:begin + wide * step]
        found.update(zip(points[2::step], points[1::step], points[0::step]))
    return found
