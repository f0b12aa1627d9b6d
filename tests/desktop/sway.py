"""sway on a screen without hardware: its X windows are XWayland's, its hands and its pictures the compositor's own."""

import json
import os

from desktop.processes import wait_for
from desktop.screen import Area, Screen
from desktop.wayland_input import LEFT, MIDDLE, RIGHT, WaylandInput

ENVIRONMENT = {
    "XDG_CURRENT_DESKTOP": "sway",
    "XDG_SESSION_TYPE": "wayland",
    "WLR_BACKENDS": "headless",
    "WLR_LIBINPUT_NO_DEVICES": "1",
    "WLR_RENDERER": "pixman",
}
# sway takes no command of root's, also of one who could not become root again: there root is somebody else.
AS_SOMEBODY = ("unshare", "--user", "--map-user=1000", "--map-group=1000")
# What sway itself starts would be somebody else too, whom GLib's buses refuse.
AS_ROOT_AGAIN = ("unshare", "--user", "--map-root-user") if os.geteuid() == 0 else ()
CONFIGURATION = """
output HEADLESS-1 resolution {width}x{height}
exec env >{environment}
"""
TOLD = ("WAYLAND_DISPLAY", "DISPLAY", "SWAYSOCK")
BUTTONS = {1: LEFT, 2: MIDDLE, 3: RIGHT}


def start(desktop, size):
    """Starts it, and has the desktop's environment name its displays."""
    configuration, told = desktop.folder / "sway.conf", desktop.folder / "sway.environment"
    configuration.write_text(CONFIGURATION.format(width=size[0], height=size[1], environment=told))
    command = ["sway", "--config", str(configuration)]
    desktop.start("sway", [*AS_SOMEBODY, *command] if os.geteuid() == 0 else command)
    wait_for(lambda: told.exists() and all(f"\n{name}=" in "\n" + told.read_text() for name in TOLD), 20, "sway")
    lines = dict(line.split("=", 1) for line in told.read_text().splitlines() if "=" in line)
    desktop.environment |= {name: lines[name] for name in TOLD}
    desktop.screen = SwayScreen(desktop.environment, size, desktop.runtime / lines["WAYLAND_DISPLAY"])


class SwayScreen(Screen):
    def __init__(self, environment, size, socket):
        super().__init__(environment, size)
        self._input = WaylandInput(socket, size)

    def close(self):
        self._input.close()

    def message(self, *words):
        """Has sway do something, as its users' key bindings do."""
        self.run("swaymsg", *words)

    def own_windows(self):
        """Those that programs have of the compositor itself, as it tells of them."""
        found, nodes = [], [json.loads(self.run("swaymsg", "-t", "get_tree", "-r"))]
        for node in nodes:
            nodes += node["nodes"] + node["floating_nodes"]
            if node.get("app_id"):
                found.append(node)
        return found

    def add_output_beside(self):
        """A second output of the same size, right of the first one."""
        width, height = self.area.width, self.area.height
        self.message("create_output")
        self.message("output", "HEADLESS-2", "resolution", f"{width}x{height}")
        self.area = Area(0, 0, 2 * width, height)
        self._input.size = 2 * width, height

    def move(self, x, y):
        self._input.move(x, y)

    def click(self, x, y, button=1):
        self._input.click(x, y, BUTTONS[button])

    def tap(self, x, y, onward):
        """A click that is let go at once, by a pointer that goes on at once."""
        self._input.click(x, y, held=0)
        self._input.move(*onward)

    def drag(self, start, end):
        self._input.drag(start, end)

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
