"""Wayland compositors of the wlroots kind on a screen without hardware: their X windows are XWayland's, hands and
pictures the compositor's own."""

from desktop.processes import wait_for
from desktop.screen import Screen
from desktop.wayland_input import LEFT, MIDDLE, RIGHT, WaylandInput

ENVIRONMENT = {
    "XDG_SESSION_TYPE": "wayland",
    "WLR_BACKENDS": "headless",
    "WLR_LIBINPUT_NO_DEVICES": "1",
    "WLR_RENDERER": "pixman",
}
BUTTONS = {1: LEFT, 2: MIDDLE, 3: RIGHT}


def start(desktop, command, told, names):
    """Starts the compositor, which writes its programs' environment to `told`, and has the desktop's name its displays:
    `names` of that."""
    desktop.start(desktop.kind, command)
    wait_for(lambda: told.exists() and all(f"\n{name}=" in "\n" + told.read_text() for name in names), 20, desktop.kind)
    lines = dict(line.split("=", 1) for line in told.read_text().splitlines() if "=" in line)
    desktop.environment |= {name: lines[name] for name in names}
    return desktop.runtime / lines["WAYLAND_DISPLAY"]


class WlrootsScreen(Screen):
    """`socket`: the compositor's."""

    def __init__(self, environment, size, socket):
        super().__init__(environment, size)
        self._input = WaylandInput(socket, size)

    def close(self):
        self._input.close()

    def lie_over(self, area):
        """Has its outputs take all of `area` from now on."""
        self.area = area
        self._input.size = area.width, area.height

    def _place(self, x, y):
        """What the pointer's place is told from."""
        return x - self.area.x, y - self.area.y

    def move(self, x, y):
        self._input.move(*self._place(x, y))

    def click(self, x, y, button=1):
        self._input.click(*self._place(x, y), BUTTONS[button])

    def tap(self, x, y, onward):
        """A click that is let go at once, by a pointer that goes on at once."""
        self._input.click(*self._place(x, y), held=0)
        self.move(*onward)

    def drag(self, start, end):
        self._input.drag(self._place(*start), self._place(*end))

    def key(self, *keys):
        self._input.key(*keys)

    def wait_until_typed_into(self, name, seconds=10):
        """The X server's focus is not what decides here: the tests type instead."""

    def screenshot(self, path, area=None):
        self._picture(area, "png", str(path))

    def pixels(self, area):
        # The header of this form is three lines.
        return self._picture(area, "ppm", "-").split(b"\n", 3)[3]

    def _picture(self, area, form, target):
        place = ["-g", f"{area.x},{area.y} {area.width}x{area.height}"] if area else []
        return self.run("grim", "-s", "1", *place, "-t", form, target, text=False)
