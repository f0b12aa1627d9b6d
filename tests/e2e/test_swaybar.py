"""sway's own bar, whose tray shows an item's symbol and no text: the strip below it, and the text in it."""

import shutil
import unittest

from desktop.glimmet import PANEL, STRIP
from desktop.panels import WATCHER
from desktop.processes import wait_for, watch_for
from desktop.screen import Area
from desktop.sway import AS_ROOT_AGAIN
from desktop.text_bars import I3_BAR
from wlroots_case import FEED, WlrootsCase

BAR = "bar {{\n  position {}\n  tray_output *\n  status_command {}\n}}\n"
STATUS = "while echo status; do sleep 60; done"
# Of a bar with sway's usual font.
HIGHEST_BAR = 30
STRIP_HEIGHT = 26
LIGHT = 160


def reason_to_skip():
    return None if shutil.which("swaybar") else "swaybar is not installed (scripts/setup desktops)"


class SwaybarCase(WlrootsCase):
    kind = "sway"
    host = "swaybar"

    def setUp(self):
        super().setUp()
        file = self.desktop.folder / "sway.conf"
        before = file.read_text()
        self.addCleanup(self.configure, file, before)
        self.configure(file, before + self.bar)
        wait_for(lambda: self.desktop.bus.owner(WATCHER), 15, "the bar's tray")

    def configure(self, file, text):
        file.write_text(text)
        self.screen.message("reload")
        # The bar of before may go only now.
        if "bar {" not in text:
            wait_for(lambda: not self.desktop.bus.owner(WATCHER), 15, "the bar to be gone")


class Item(SwaybarCase):
    bar = I3_BAR.format("top", STATUS)

    def icon(self):
        """The right end of the bar, where its tray has one square."""
        return Area(self.screen.area.right - 22, 2, 20, 18)

    def wait_for_icon(self):
        wait_for(lambda: max(self.screen.pixels(self.icon())) > LIGHT, 15, "a light symbol on the dark bar")

    def test_shows_a_light_symbol_in_the_bar_and_the_text_below_it(self):
        self.launch()

        self.wait_for_icon()
        text = self.wait_for_text(10, HIGHEST_BAR + STRIP_HEIGHT)
        self.try_panel(*text.middle, text.middle[1] + STRIP_HEIGHT // 2)

    def test_opens_and_closes_by_each_button_on_the_symbol(self):
        self.launch()
        self.wait_for_icon()
        self.wait_for_text(10, HIGHEST_BAR + STRIP_HEIGHT)

        for button in (1, 2, 3):
            self.screen.click(*self.icon().middle, button)
            panel = self.screen.wait_for_window(PANEL)
            self.assert_on_screen(panel)
            self.assertGreater(panel.right, self.icon().x, "at the symbol, not at the strip")
            self.assertLess(panel.y, HIGHEST_BAR + 8)
            self.wait_for_keyboard()
            watch_for(1)
            self.screen.click(*self.icon().middle, button)
            self.screen.wait_until_gone(PANEL)
            watch_for(1)


class FeedInBar(SwaybarCase):
    bar = I3_BAR.format("top", " ".join([*AS_ROOT_AGAIN, f"{FEED} --i3bar -- i3status"]))

    def test_shows_its_text_in_the_bar_with_the_panel_under_it_and_no_strip(self):
        self.launch()
        text = self.wait_for_text(0, HIGHEST_BAR - 10)

        self.screen.click(*text.middle)

        panel = self.screen.wait_for_window(PANEL)
        self.assert_on_screen(panel)
        self.assertLess(panel.y, HIGHEST_BAR + 8)
        self.wait_for_keyboard()
        self.keep_picture("swaybar-feed")
        self.screen.click(200, 600)
        self.screen.wait_until_gone(PANEL)
        below = Area(0, HIGHEST_BAR, self.screen.area.width, STRIP_HEIGHT)
        self.elsewhere()
        before = self.screen.pixels(below)
        watch_for(7)
        self.assertEqual(self.screen.pixels(below), before, "a strip")
        self.assertEqual(self.screen.windows(STRIP), [])


del WlrootsCase, SwaybarCase

if __name__ == "__main__":
    unittest.main()
