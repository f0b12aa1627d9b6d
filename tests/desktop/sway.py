"""sway on a screen without hardware, and what its own messages do and tell. Its outputs are nothing at all, or windows
of another X server's, which can be unplugged: they go when they are closed."""

import json
import os
import re

from desktop import wlroots
from desktop.processes import wait_for
from desktop.screen import Area

ENVIRONMENT = wlroots.ENVIRONMENT | {"XDG_CURRENT_DESKTOP": "sway"}
ENVIRONMENT_IN_WINDOWS = ENVIRONMENT | {"WLR_BACKENDS": "x11"}
# sway takes no command of root's, also of one who could not become root again: there root is somebody else.
AS_SOMEBODY = ("unshare", "--user", "--map-user=1000", "--map-group=1000")
# What sway itself starts would be somebody else too, whom GLib's buses refuse.
AS_ROOT_AGAIN = ("unshare", "--user", "--map-root-user") if os.geteuid() == 0 else ()
CONFIGURATION = """
output {kind}-1 resolution {width}x{height} position 0 0
exec env >{environment}
"""
TOLD = ("WAYLAND_DISPLAY", "DISPLAY", "SWAYSOCK")


def start(desktop, size, host=None):
    """Starts it, and has the desktop's environment name its displays. `host`: the screen for its outputs' windows."""
    configuration, told = desktop.folder / "sway.conf", desktop.folder / "sway.environment"
    kind = "X11" if host else "HEADLESS"
    configuration.write_text(CONFIGURATION.format(kind=kind, width=size[0], height=size[1], environment=told))
    command = ["sway", "--config", str(configuration)]
    socket = wlroots.start(desktop, [*AS_SOMEBODY, *command] if os.geteuid() == 0 else command, told, TOLD)
    desktop.screen = SwayScreen(desktop.environment, size, socket, host)


class SwayScreen(wlroots.WlrootsScreen):
    def __init__(self, environment, size, socket, host):
        super().__init__(environment, size, socket)
        self._host = host

    def message(self, *words):
        """Has sway do something, as its users' key bindings do."""
        self.run("swaymsg", *words)

    def told(self, what):
        return json.loads(self.run("swaymsg", "-t", what, "-r"))

    def own_windows(self):
        """Those that programs have of the compositor itself, as it tells of them."""
        found, nodes = [], [self.told("get_tree")]
        for node in nodes:
            nodes += node["nodes"] + node["floating_nodes"]
            if node.get("app_id"):
                found.append(node)
        return found

    def outputs(self):
        """Where each one that is on lies, by its name."""
        return {each["name"]: Area(**each["rect"]) for each in self.told("get_outputs") if each["active"]}

    def add_output_beside(self, scale=1):
        """A second output of as many pixels, right of the first one. Returns its name."""
        before, area = self.outputs(), self.area
        self.message("create_output")
        name, = wait_for(lambda: self.outputs().keys() - before.keys(), 5, "another output")
        self.message("output", name, "resolution", f"{area.width}x{area.height}", "position", str(area.right), "0",
                     "scale", str(scale))
        self._look_anew()
        return name

    def unplug(self, name):
        """Closes the window that the output is."""
        window = re.search(rf'(0x[0-9a-f]+) "wlroots - {name}"', self._host.run("xwininfo", "-root", "-tree"))[1]
        self._host.activate(window)
        wait_for(lambda: self._host.keyboard_owner() == str(int(window, 16)), 5, "the output's window to be active")
        self._host.key("alt+F4")
        wait_for(lambda: name not in self.outputs(), 5, "the output to be gone")
        self._look_anew()

    def _look_anew(self):
        areas = self.outputs().values()
        left, top = (min(getattr(each, side) for each in areas) for side in ("x", "y"))
        right, bottom = (max(getattr(each, side) for each in areas) for side in ("right", "bottom"))
        self.lie_over(Area(left, top, right - left, bottom - top))
