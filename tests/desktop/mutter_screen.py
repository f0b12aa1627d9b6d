"""The virtual screen of a GNOME Shell under Wayland: its windows are XWayland's, its hands and its pictures the
shell's own."""

import re

from gi.repository import GLib

from desktop.bus import connect_when_there
from desktop.processes import wait_for
from desktop.screen import Area, Screen, steps_between

REMOTE = "org.gnome.Mutter.RemoteDesktop"
SHELL = ("org.gnome.Shell", "/org/gnome/Shell", "org.gnome.Shell")
SCREENSHOT = ("org.gnome.Shell.Screenshot", "/org/gnome/Shell/Screenshot", "org.gnome.Shell.Screenshot")
MONITORS = ("org.gnome.Mutter.DisplayConfig", "/org/gnome/Mutter/DisplayConfig", "org.gnome.Mutter.DisplayConfig")
TEMPORARILY = 1
NOT_ROTATED = 0
ARRANGEMENT = "(uua(iiduba(ssa{sv}))a{sv})"
# As the kernel numbers them.
BUTTONS = {1: 0x110, 3: 0x111, 2: 0x112}
# How many frames the shell has drawn, of which it is to draw another one.
COUNT_FRAMES = """
    if (globalThis.countedFrames === undefined) {
        globalThis.countedFrames = 0;
        global.stage.connect('after-paint', () => ++globalThis.countedFrames);
    }
    global.stage.queue_redraw();
    globalThis.countedFrames;
"""
# Newer libraries have the seat elsewhere.
MOVE_POINTER = """
    (imports.gi.Clutter.get_default_backend?.() ?? global.stage.context.get_backend()).get_default_seat()
        .warp_pointer({x}, {y});
"""
KEYS = {"End": 0xFF57, "Escape": 0xFF1B, "Tab": 0xFF09, "Shift_L": 0xFFE1}


class MutterScreen(Screen):
    """`folder` is where pictures lie for a moment. The shell runs in its unsafe mode, in which everybody may take
    them and run scripts inside it."""

    def __init__(self, environment, size, folder):
        super().__init__(environment, size)
        self._picture = str(folder / "screen.png")
        self._bus = connect_when_there(environment["DBUS_SESSION_BUS_ADDRESS"])
        self._session = self._bus.call(REMOTE, "/org/gnome/Mutter/RemoteDesktop", REMOTE, "CreateSession")[0]
        self._do("Start")

    def _do(self, what, signature="()", *values):
        self._bus.call(REMOTE, self._session, f"{REMOTE}.Session", what, GLib.Variant(signature, values))

    def _run_script(self, script):
        return self._bus.call(*SHELL, "Eval", GLib.Variant("(s)", (script,)))[1]

    def _count_frames(self):
        return int(self._run_script(COUNT_FRAMES))

    def move(self, x, y):
        # By the lower edge: a pointer that comes along the upper one is held at the bar's ends.
        self._do("NotifyPointerMotionRelative", "(dd)", 0.0, 10.0 * self.area.height)
        self._run_script(MOVE_POINTER.format(x=x, y=y))
        self.wait_until_seen()

    def monitors(self):
        """The names of all monitors that are plugged in, also of those that show nothing."""
        return sorted(self._modes()[1])

    def show_on(self, scales, primary):
        """Has these monitors, and no other, show the desktop, one beside the other: `scales` has the scale of each by
        its name, and the bar is on the `primary`. Returns where each is."""
        serial, modes = self._modes()
        areas, arrangement, left = {}, [], 0
        for name, scale in scales.items():
            mode, width, height = modes[name]
            areas[name] = Area(left, 0, width, height)
            arrangement.append((left, 0, scale, NOT_ROTATED, name == primary, [(name, mode, {})]))
            left += width
        self._bus.call(*MONITORS, "ApplyMonitorsConfig",
                       GLib.Variant(ARRANGEMENT, (serial, TEMPORARILY, arrangement, {})))
        self.area = Area(0, 0, left, max(area.height for area in areas.values()))
        return areas

    def is_known_to_programs(self):
        """Whether the X server tells of as large a desktop as the shell does."""
        root = re.search(r"Width: (\d+)\s+Height: (\d+)", self.run("xwininfo", "-root"))
        desktop = re.search(r"= (\d+), (\d+)", self.root_property("_NET_DESKTOP_GEOMETRY"))
        return root.groups() == desktop.groups()

    def _modes(self):
        """The state's number, and the first mode of each monitor by its name: what it is called, and its size."""
        serial, monitors, *_ = self._bus.call(*MONITORS, "GetCurrentState")
        return serial, {connector: modes[0][:3] for (connector, *_), modes, *_ in monitors}

    def wait_until_seen(self):
        """The shell handles what hands do only with its next frame, and then takes a press for one at what the pointer
        has reached by now."""
        before = self._count_frames()
        wait_for(lambda: self._count_frames() >= before + 2, 10, "the shell to draw")

    def click(self, x, y, button=1):
        self.move(x, y)
        for pressed in (True, False):
            self._do("NotifyPointerButton", "(ib)", BUTTONS[button], pressed)
        self.wait_until_seen()

    def key(self, *keys):
        for key in keys:
            for pressed in (True, False):
                self._do("NotifyKeyboardKeysym", "(ub)", KEYS[key], pressed)

    def drag(self, start, end):
        self.move(*start)
        self._do("NotifyPointerButton", "(ib)", BUTTONS[1], True)
        x, y = start
        for next_x, next_y in steps_between(start, end):
            self._do("NotifyPointerMotionRelative", "(dd)", float(next_x - x), float(next_y - y))
            self.wait_until_seen()
            x, y = next_x, next_y
        self._do("NotifyPointerButton", "(ib)", BUTTONS[1], False)
        self.wait_until_seen()

    def type(self, text):
        for character in text:
            for pressed in (True, False):
                # Those of Latin-1 are their own numbers as keys too.
                self._do("NotifyKeyboardKeysym", "(ub)", ord(character), pressed)

    def screenshot(self, path, area=None):
        self._take_picture()
        crop = ["-crop", str(area), "+repage"] if area else []
        self.run("convert", self._picture, *crop, "-strip", f"png:{path}")

    def pixels(self, area):
        self._take_picture()
        return self.run("convert", self._picture, "-crop", str(area), "-depth", "8", "rgb:-", text=False)

    def _take_picture(self):
        with_pointer, with_flash = False, False
        self._bus.call(*SCREENSHOT, "Screenshot", GLib.Variant("(bbs)", (with_pointer, with_flash, self._picture)))

    def close(self):
        self._bus.close()
