"""i3, which tiles windows and tells of no work area: the strip beside its bar, and the text in that bar."""

import shutil
import unittest

from desktop.glimmet import PANEL, STRIP
from desktop.panels import changed_area, wait_for_seconds
from desktop.processes import wait_for, watch_for
from desktop.screen import DOUBLE_CLICK_TIME, Area
from desktop.text_bars import I3_BAR, I3_CONFIGURATION
from desktop_case import BINARY, DesktopCase

FEED = BINARY.with_name("glimmet-feed")
COLORED_BAR = "bar {\n  position top\n  colors {\n    background #204060\n    statusline #ffeedd\n  }\n}\n"
BACKGROUND = bytes((0x20, 0x40, 0x60))
WIDEST_TEXT = 120


def reason_to_skip():
    return None if shutil.which("i3") else "i3 is not installed (scripts/setup desktops)"


class I3Case(DesktopCase):
    kind = "bare"
    bar = ""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.configuration = cls.desktop.folder / "i3.conf"
        cls.configure(cls.bar)
        cls.desktop.start("i3", ["i3", "-c", str(cls.configuration)])
        cls.desktop.wait_for_window_manager()
        cls.bar_area = wait_for(cls.find_bar, 15, "i3's bar") if cls.bar else None

    @classmethod
    def configure(cls, bar):
        cls.configuration.write_text(I3_CONFIGURATION + bar)

    @classmethod
    def find_bar(cls):
        return next(map(cls.screen.window_area, cls.screen.windows_of("i3bar")), None)

    def message(self, *words):
        """Has i3 do something, as its users' key bindings do."""
        self.desktop.run("i3-msg", *words)

    def restart(self, bar=None):
        """As after a change of the configuration."""
        self.configure(self.bar if bar is None else bar)
        self.message("restart")
        self.desktop.wait_for_window_manager()

    def open_window(self, name="another window"):
        window = self.desktop.start(name, ["xev", "-name", name])
        self.addCleanup(self.desktop.stop, window)
        self.screen.wait_for_window(name)

    def try_panel(self, x, y, assert_placed):
        """Opens the panel by each button at this place, and closes it in every way."""
        closers = {
            1: lambda: self.screen.click(x, y),
            2: lambda: self.screen.click(x, y, 2),
            3: lambda: self.screen.key("Escape"),
        }
        for button, close in closers.items():
            for close in (close, lambda: self.screen.click(60, 400)):
                self.screen.click(x, y, button)
                panel = self.glimmet.wait_for_panel()
                self.assert_on_screen(panel)
                wait_for(lambda: assert_placed(self.screen.area_of(PANEL)), 5, f"the panel at {x},{y}, not {panel}")
                self.keep_picture(f"i3-{type(self).__name__.lower()}")
                close()
                self.screen.wait_until_gone(PANEL)
                watch_for(DOUBLE_CLICK_TIME)


class StripCase(I3Case):
    def setUp(self):
        super().setUp()
        self.launch()
        self.strip = self.glimmet.wait_for_strip()

    def wait_for_strip_at(self, y):
        wait_for(lambda: self.glimmet.menu_bar_area().y == y, 10, f"the strip at {y}")
        return self.glimmet.menu_bar_area()

    def is_seen(self):
        """Whether the text's own second goes by where the strip is."""
        area = self.glimmet.menu_bar_area()
        before = self.screen.pixels(area)
        watch_for(1.2)
        changed = changed_area(before, self.screen.pixels(area), area)
        return changed is not None

    def wait_until_seen(self):
        wait_for(self.is_seen, 10, "the strip on top")


class Strip(StripCase):
    """Below a bar at the upper edge."""
    bar = I3_BAR.format("top", "i3status")

    def test_stands_below_the_bar_with_the_panel_right_under_it(self):
        strip = self.wait_for_strip_at(self.bar_area.bottom)
        self.assertLess(strip.width, 160, "and is not tiled")

        self.open_window()
        self.wait_until_seen()
        self.try_panel(*strip.middle, lambda panel: panel.y == strip.bottom + 4)

    def test_stands_above_windows_that_come_and_float(self):
        self.open_window("one")
        self.open_window("two")
        self.message("floating", "enable")
        self.message("move", "absolute", "position", str(self.strip.x - 20), "0")

        self.wait_until_seen()

    def test_stands_below_a_window_that_fills_the_screen(self):
        self.open_window()

        self.message("fullscreen", "enable")
        wait_for(lambda: not self.is_seen(), 10, "the strip to be covered")

        self.message("fullscreen", "disable")
        self.wait_until_seen()

    def test_stands_below_a_container_that_fills_the_screen(self):
        self.open_window("one")
        self.open_window("two")
        self.message("split", "v")
        self.open_window("three")
        self.wait_until_seen()
        self.message("focus", "parent")

        self.message("fullscreen", "enable")
        wait_for(lambda: not self.is_seen(), 10, "the strip to be covered")

        self.message("fullscreen", "disable")
        self.wait_until_seen()
        self.assertEqual(self.glimmet.menu_bar_area().y, self.bar_area.bottom)

    def test_stays_below_a_locker(self):
        """Which fills the screen and is no window of i3's."""
        self.open_window()
        self.open_window("locker")
        window, = self.screen.windows("locker")
        self.screen.run("xdotool", "windowunmap", "--sync", window, "set_window", "--overrideredirect", "1", window)
        self.screen.run("xdotool", "windowmap", "--sync", window, "windowmove", window, "0", "0",
                        "windowsize", window, "100%", "100%", "windowraise", window)
        wait_for(lambda: not self.is_seen(), 10, "the strip to be covered")

        self.message("focus", "left")
        watch_for(1)
        self.assertFalse(self.is_seen())

    def test_comes_back_on_top_when_i3_restarts(self):
        self.open_window()

        self.restart()

        self.wait_until_seen()
        self.screen.click(*self.glimmet.click_point())
        self.glimmet.wait_for_panel()
        self.glimmet.close_panel()

    def test_follows_a_bar_that_goes_and_comes(self):
        self.addCleanup(self.restart)
        self.restart(bar="")
        self.wait_for_strip_at(0)
        self.restart()

        self.wait_for_strip_at(self.bar_area.bottom)

    def test_is_drawn_in_the_colours_of_the_bar(self):
        self.glimmet.stop()
        self.addCleanup(self.restart)
        self.restart(COLORED_BAR)
        self.launch()
        strip = self.glimmet.wait_for_strip()

        corner = Area(strip.x + 2, strip.bottom - 4, 1, 1)
        wait_for(lambda: self.screen.pixels(corner) == BACKGROUND, 10, "a strip in the bar's colour")
        ink = self.screen.pixels(self.glimmet.menu_bar_area())
        self.assertGreater(max(ink[::3]), 0xC0, "and a light text")

    def test_closes_the_panel_where_another_window_or_workspace_comes(self):
        for change in (lambda: self.open_window("new"), lambda: self.message("workspace", "2")):
            self.screen.click(*self.glimmet.click_point())
            self.glimmet.wait_for_panel()
            watch_for(DOUBLE_CLICK_TIME)
            change()
            self.screen.wait_until_gone(PANEL)
        self.message("workspace", "1")


class FeedInBar(I3Case):
    bar = I3_BAR.format("bottom", f"{FEED} --i3bar -- i3status")

    def test_shows_its_text_in_the_bar_with_the_panel_above_it_and_no_strip(self):
        self.launch()
        found = wait_for_seconds(self.screen, self.bar_area, WIDEST_TEXT)
        self.open_window()
        self.try_panel(*found.middle, lambda panel: panel.bottom == self.bar_area.y - 4)

        self.assertEqual(self.screen.windows(STRIP), [])


del I3Case, StripCase, DesktopCase

if __name__ == "__main__":
    unittest.main()
