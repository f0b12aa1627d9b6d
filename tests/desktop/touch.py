"""A finger on the screen of a GNOME Shell under Wayland, which Mutter's remote desktop lends to a test."""

from gi.repository import GLib

from desktop.mutter_screen import REMOTE
from desktop.processes import wait_for
from desktop.screen import steps_between

CAST = "org.gnome.Mutter.ScreenCast"
DISPLAYS = "org.gnome.Mutter.DisplayConfig"
# What shows that it was touched.
PROBE, PROBE_WINDOW = ["xev", "-event", "button"], "Event Tester"
FINGER = 0


def path_of(name):
    return "/" + name.replace(".", "/")


class Touch:
    """Places are those of the screen: of a stream of all of it, which Mutter gives to PipeWire and nobody watches."""

    def __init__(self, desktop):
        self._desktop = desktop
        desktop.start("pipewire", ["pipewire"])
        wait_for((desktop.runtime / "pipewire-0").exists, 10, "PipeWire")
        self._session, = self._ask(REMOTE, path_of(REMOTE), "CreateSession")
        own = desktop.bus.get(REMOTE, self._session, f"{REMOTE}.Session", "SessionId")
        cast, = self._ask(CAST, path_of(CAST), "CreateSession", "(a{sv})",
                          {"remote-desktop-session-id": GLib.Variant("s", own)})
        self._stream, = self._ask(CAST, cast, "RecordMonitor", "(sa{sv})", self._monitor(), {}, part=".Session")
        self._do("Start")
        self._wait_until_felt()

    def _ask(self, name, path, method, signature="()", *values, part=""):
        return self._desktop.bus.call(name, path, name + part, method, GLib.Variant(signature, values))

    def _do(self, method, signature="()", *values):
        self._ask(REMOTE, self._session, method, signature, *values, part=".Session")

    def _monitor(self):
        """The connector of the only one."""
        _serial, monitors, *_ = self._ask(DISPLAYS, path_of(DISPLAYS), "GetCurrentState")
        (connector, *_), *_ = monitors[0]
        return connector

    def _wait_until_felt(self):
        """XWayland learns that there is a finger by its first touch, which is lost to its windows."""
        probe = self._desktop.start("probe", PROBE)
        place = self._desktop.screen.wait_for_window(PROBE_WINDOW).middle

        def feels():
            self.tap(*place)
            return "ButtonRelease" in self._desktop.log("probe")

        wait_for(feels, 10, "a window to be touched")
        self._desktop.stop(probe)
        self._desktop.screen.wait_until_gone(PROBE_WINDOW)

    def _put(self, what, x, y):
        self._do(what, "(sudd)", self._stream, FINGER, float(x), float(y))

    def tap(self, x, y):
        self._put("NotifyTouchDown", x, y)
        self.lift()

    def drag(self, start, end):
        """Leaves the finger where it has come to, so that nothing moves on by itself: until it is lifted."""
        self._put("NotifyTouchDown", *start)
        for place in steps_between(start, end, 16):
            self._put("NotifyTouchMotion", *place)
            self._desktop.screen.wait_until_seen()

    def lift(self):
        self._do("NotifyTouchUp", "(u)", FINGER)
        self._desktop.screen.wait_until_seen()
