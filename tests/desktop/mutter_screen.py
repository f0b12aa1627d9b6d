"""The virtual screen of a GNOME Shell under Wayland: its windows are XWayland's, its hands and its pictures the
shell's own."""

from gi.repository import GLib

from desktop.bus import connect_when_there
from desktop.processes import wait_for
from desktop.screen import Screen, steps_between

REMOTE = "org.gnome.Mutter.RemoteDesktop"
SHELL = ("org.gnome.Shell", "/org/gnome/Shell", "org.gnome.Shell")
SCREENSHOT = ("org.gnome.Shell.Screenshot", "/org/gnome/Shell/Screenshot", "org.gnome.Shell.Screenshot")
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

    def _count_frames(self):
        return int(self._bus.call(*SHELL, "Eval", GLib.Variant("(s)", (COUNT_FRAMES,)))[1])

    def move(self, x, y):
        # Places are told only by their distance from the last one: away to the corner where nothing reacts, and back.
        self._do("NotifyPointerMotionRelative", "(dd)", 10.0 * self.area.width, 10.0 * self.area.height)
        self._do("NotifyPointerMotionRelative", "(dd)", x + 1.0 - self.area.width, y + 1.0 - self.area.height)
        self.wait_until_seen()

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
