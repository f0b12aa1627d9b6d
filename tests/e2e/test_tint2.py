"""tint2, which takes no items: the strip beside it, and the text in it."""

import shutil
import unittest

from desktop.glimmet import PANEL, STRIP
from desktop.panels import wait_for_seconds
from desktop.processes import wait_for, watch_for
from desktop.screen import DOUBLE_CLICK_TIME, Area
from desktop.text_bars import TINT2_BAR, TINT2_EXECUTOR, TINT2_HEIGHT
from desktop_case import BINARY, DesktopCase

FEED = BINARY.with_name("glimmet-feed")
WIDEST_TEXT = 120


def reason_to_skip():
    return None if shutil.which("tint2") else "tint2 is not installed (scripts/setup desktops)"


class Tint2Case(DesktopCase):
    def start_bar(self, configuration):
        file = self.desktop.folder / "tint2rc"
        file.write_text(configuration)
        bar = self.desktop.start("tint2", ["tint2", "-c", str(file)])
        self.addCleanup(self.desktop.stop, bar)
        wait_for(lambda: self.screen.windows_of("tint2"), 15, "the bar")
        return bar

    def try_panel(self, x, y, under):
        for close in (lambda: self.screen.click(x, y), self.click_elsewhere, lambda: self.screen.key("Escape")):
            self.screen.click(x, y)
            panel = self.glimmet.wait_for_panel()
            self.assert_on_screen(panel)
            self.assertLess(abs(panel.y - under), 8, panel)
            self.keep_picture(f"tint2-{type(self).__name__.lower()}")
            close()
            self.screen.wait_until_gone(PANEL)
            watch_for(DOUBLE_CLICK_TIME)


class Strip(Tint2Case):
    def test_stands_below_a_bar_that_starts_late_and_goes(self):
        self.launch().wait_for_strip()
        bar = self.start_bar(TINT2_BAR.format("T", "top"))

        wait_for(lambda: self.screen.area_of(STRIP).y == TINT2_HEIGHT, 10, "the strip below the bar")
        self.try_panel(*self.glimmet.click_point(), self.screen.area_of(STRIP).bottom)
        self.desktop.stop(bar)

        wait_for(lambda: self.screen.area_of(STRIP).y == 0, 10, "the strip at the edge")

    def test_is_no_task_in_the_bar(self):
        """Of which nothing changes with the strip."""
        self.start_bar(TINT2_BAR.format("T", "bottom"))
        place = Area(0, self.screen.area.height - TINT2_HEIGHT, self.screen.area.width, TINT2_HEIGHT)
        watch_for(1)
        before = self.screen.pixels(place)

        self.launch().wait_for_strip()
        self.glimmet.open_panel()
        watch_for(1)

        self.assertEqual(self.screen.pixels(place), before)
        self.glimmet.close_panel()


class FeedInBar(Tint2Case):
    def test_shows_its_text_in_the_bar_with_the_panel_under_it_and_no_strip(self):
        self.start_bar(TINT2_BAR.format("TE", "top") + TINT2_EXECUTOR.format(feed=FEED))
        self.launch()
        found = wait_for_seconds(self.screen, Area(0, 0, self.screen.area.width, TINT2_HEIGHT), WIDEST_TEXT)

        self.try_panel(*found.middle, TINT2_HEIGHT + 4)
        self.assertEqual(self.screen.windows(STRIP), [])


del Tint2Case, DesktopCase

if __name__ == "__main__":
    unittest.main()
