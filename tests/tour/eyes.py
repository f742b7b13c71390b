"""What an assistive tool sees of the program: windows, controls, names, texts, states and places.

Nothing is remembered between two looks, so that a look always tells the present.
"""
import re
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402
import pyatspi  # noqa: E402


class Failed(AssertionError):
    """Something that a person should have seen did not come."""


def until(look, what, limit=30):
    """Looks again and again until there is something to see, and gives it."""
    ends = time.monotonic() + limit
    while True:
        seen = _try(look)
        if seen:
            return seen
        if time.monotonic() > ends:
            raise Failed(f"waited {limit} seconds for {what}")
        time.sleep(0.02)


def until_equal(look, wanted, what, limit=30):
    """Looks until what is seen equals `wanted`; tells the last sight when it never does."""
    ends = time.monotonic() + limit
    while True:
        seen = _try(look)
        if seen == wanted:
            return seen
        if time.monotonic() > ends:
            raise Failed(f"{what}: after {limit} seconds\n" + _difference(seen, wanted))
        time.sleep(0.02)


def _difference(seen, wanted):
    if isinstance(seen, dict) and isinstance(wanted, dict):
        keys = [key for key in {**seen, **wanted} if seen.get(key) != wanted.get(key)]
        seen, wanted = ({key: side.get(key) for key in keys} for side in (seen, wanted))
    return f"   seen   {seen!r}\n   wanted {wanted!r}"


def _try(look):
    """A control may vanish while it is looked at; then there was nothing to see."""
    try:
        return look()
    except (GLib.Error, LookupError, AttributeError):
        return None


class Seen:
    """A window or control."""

    def __init__(self, accessible):
        self._it = accessible

    @property
    def name(self):
        return self._it.get_name()

    @property
    def description(self):
        return self._it.get_description()

    @property
    def role(self):
        return self._it.get_role_name()

    @property
    def text(self):
        """What stands in an edit box."""
        box = self._it.get_text_iface()
        return Atspi.Text.get_text(box, 0, Atspi.Text.get_character_count(box))

    @property
    def place(self):
        """Left, top, width, height on the screen."""
        box = self._it.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        return box.x, box.y, box.width, box.height

    @property
    def middle(self):
        left, top, width, height = self.place
        return left + width // 2, top + height // 2

    def _has(self, state):
        return self._it.get_state_set().contains(state)

    @property
    def shows(self):
        return self._has(pyatspi.STATE_SHOWING)

    @property
    def enabled(self):
        return self._has(pyatspi.STATE_SENSITIVE)

    @property
    def checked(self):
        return self._has(pyatspi.STATE_CHECKED)

    @property
    def active(self):
        return self._has(pyatspi.STATE_ACTIVE)

    @property
    def focused(self):
        return self._has(pyatspi.STATE_FOCUSED)

    @property
    def children(self):
        found = (self._it.get_child_at_index(i) for i in range(self._it.get_child_count()))
        return [Seen(child) for child in found if child is not None]

    def everything(self):
        """All below this control, in the order of the screen's making."""
        for child in self.children:
            yield child
            yield from child.everything()

    def all(self, role, name=None):
        return [thing for thing in self.everything()
                if thing.role == role and (name is None or _matches(thing.name, name))]

    def find(self, role, name=None):
        """The first control of a role and name that is below this one, None when there is none."""
        for thing in self.everything():
            if thing.role == role and (name is None or _matches(thing.name, name)):
                return thing
        return None

    def await_(self, role, name=None, limit=30):
        return until(lambda: self.find(role, name), f"{role} {name!r}", limit)


def _matches(name, wanted):
    return bool(wanted.search(name)) if isinstance(wanted, re.Pattern) else name == wanted


class Desk:
    """The programs that show themselves to assistive tools."""

    def __init__(self):
        Atspi.set_timeout(5000, 15000)
        self._it = pyatspi.Registry.getDesktop(0)
        self._it.set_cache_mask(Atspi.Cache.NONE)

    def program(self, process_id):
        for index in range(self._it.get_child_count()):
            found = self._it.get_child_at_index(index)
            if found is not None and found.get_process_id() == process_id:
                return Seen(found)
        return None
