"""The virtual screen: its windows, its pointer and keyboard, and pictures of it."""

import re
import subprocess
from dataclasses import dataclass

from desktop.processes import wait_for

# Seconds; two clicks that are closer to each other are one double click.
DOUBLE_CLICK_TIME = 0.4


@dataclass(frozen=True)
class Area:
    """A rectangle in pixels of the screen."""
    x: int
    y: int
    width: int
    height: int

    @property
    def right(self):
        return self.x + self.width

    @property
    def bottom(self):
        return self.y + self.height

    @property
    def middle(self):
        return self.x + self.width // 2, self.y + self.height // 2

    def contains(self, other):
        return (self.x <= other.x and self.y <= other.y
                and other.right <= self.right and other.bottom <= self.bottom)

    def __str__(self):
        return f"{self.width}x{self.height}+{self.x}+{self.y}"


def steps_between(start, end, count=6):
    """The places that a hand comes by on its way, with the last one."""
    (left, top), (right, bottom) = start, end
    return [(left + (right - left) * i // count, top + (bottom - top) * i // count) for i in range(1, count + 1)]


class Screen:
    """Speaks to the X server named by the environment through the usual small tools."""

    def __init__(self, environment, size):
        self._environment = environment
        self.area = Area(0, 0, *size)

    def close(self):
        """Nothing is held of an X server."""

    def run(self, *command, check=True, text=True):
        result = subprocess.run(command, env=self._environment, capture_output=True, text=text, timeout=20)
        if check and result.returncode != 0:
            raise RuntimeError(f"{' '.join(command)} failed: {result.stderr}")
        return result.stdout

    def windows(self, name):
        """The ids of the visible windows with exactly this name."""
        found = self.run("xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(name)}$", check=False)
        return found.split()

    def windows_of(self, program):
        """The ids of the visible windows of a program, by its class."""
        return self.run("xdotool", "search", "--onlyvisible", "--class", f"^{re.escape(program)}$", check=False).split()

    def is_menu(self, window):
        """Whether the window says of itself that it is a menu that popped up."""
        return "_MENU" in self.run("xprop", "-id", window, "_NET_WM_WINDOW_TYPE", check=False)

    def transient_for(self, window):
        """The window that a dialog belongs to, None where it is on its own."""
        found = re.search(r"window id # (0x[0-9a-f]+)", self.run("xprop", "-id", window, "WM_TRANSIENT_FOR"))
        return int(found[1], 16) if found else None

    def window_area(self, window):
        """Where a window is, None when it has just gone."""
        text = self.run("xwininfo", "-id", window, check=False)
        fields = dict(re.findall(r"^\s*([^:\n]+):\s+(-?\d+)$", text, re.MULTILINE))
        if "Width" not in fields:
            return None
        return Area(int(fields["Absolute upper-left X"]), int(fields["Absolute upper-left Y"]),
                    int(fields["Width"]), int(fields["Height"]))

    def area_of(self, name):
        """Where the one visible window of this name is, None without one."""
        found = self.windows(name)
        return self.window_area(found[0]) if found else None

    def wait_for_window(self, name, seconds=10):
        return wait_for(lambda: self.area_of(name), seconds, f"a window “{name}”")

    def wait_until_gone(self, name, seconds=10):
        wait_for(lambda: not self.windows(name), seconds, f"the window “{name}” to go")

    def has_keyboard(self, name):
        """Whether what is typed now goes to the window of this name: a grab, too, would take it elsewhere."""
        return self.keyboard_owner() in self.windows(name)

    def keyboard_owner(self):
        """The id of the window to which what is typed now goes."""
        return self.run("xdotool", "getwindowfocus", check=False).strip()

    def wait_until_typed_into(self, name, seconds=10):
        wait_for(lambda: self.has_keyboard(name), seconds, f"the window “{name}” to have the keyboard")

    def activate(self, window):
        """Asks for the keyboard to go to a window, as a task switcher does; one that has just gone is no harm."""
        self.run("xdotool", "windowactivate", window, check=False)

    def root_property(self, name):
        return self.run("xprop", "-root", name)

    def move(self, x, y):
        self.run("xdotool", "mousemove", str(x), str(y))

    def click(self, x, y, button=1):
        self.run("xdotool", "mousemove", str(x), str(y), "click", str(button))

    def drag(self, start, end):
        """Presses at one place, moves as a hand does, and lets go at another."""
        moves = [word for x, y in steps_between(start, end) for word in ("mousemove", str(x), str(y))]
        self.run("xdotool", "mousemove", *map(str, start), "mousedown", "1", *moves, "mouseup", "1")

    def key(self, *keys):
        self.run("xdotool", "key", *keys)

    def type(self, text):
        self.run("xdotool", "type", text)

    def screenshot(self, path, area=None):
        """Writes a PNG of the whole screen or of one area of it."""
        crop = ["-crop", str(area), "+repage"] if area else []
        self.run("import", "-silent", "-window", "root", *crop, "-strip", f"png:{path}")

    def pixels(self, area):
        """The colours of an area, three bytes a pixel, row by row."""
        return self.run("import", "-silent", "-window", "root", "-crop", str(area), "-depth", "8", "rgb:-",
                        text=False)
