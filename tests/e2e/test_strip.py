"""The strip of glimmet's own, on a desktop without a host for items."""

import re
import time
import unittest

from desktop.bus import DAEMON
from desktop.glimmet import PANEL, STRIP
from desktop.processes import wait_for, watch_for
from desktop.screen import Area
from desktop_case import DesktopCase

ROUNDS = 10


class Strip(DesktopCase):
    def setUp(self):
        super().setUp()
        self.launch()
        self.strip = self.glimmet.wait_for_strip()
        self.shown_after = time.monotonic() - self.glimmet.started

    def test_appears_only_after_some_five_seconds_without_a_host(self):
        self.assertGreater(self.shown_after, 4)
        self.assertLess(self.shown_after, 8)

    def test_lies_at_the_top_edge_as_wide_as_its_text(self):
        self.assertEqual(self.strip.y, 0)
        self.assertLess(self.strip.width, 160)
        self.assertGreater(self.strip.x, self.screen.area.width * 3 // 4)
        self.assertLess(self.strip.right, self.screen.area.width - 100, "over the buttons of a window in the corner")

    def work_area(self):
        return Area(*map(int, re.findall(r"\d+", self.screen.root_property("_NET_WORKAREA"))[:4]))

    def test_takes_no_space_from_other_windows(self):
        self.assertEqual(self.work_area(), self.screen.area)

    def test_stands_below_a_bar_that_comes_and_back_where_it_goes(self):
        width, height = self.screen.area.width, self.screen.area.height
        self.addCleanup(self.tell_work_area, 0, 0, width, height)
        self.tell_work_area(0, 40, width, height - 40)
        wait_for(lambda: self.screen.area_of(STRIP).y == 40, 10, "the strip below the bar")

        self.assert_under(self.glimmet.open_panel(), self.screen.area_of(STRIP))
        self.glimmet.close_panel()

        self.tell_work_area(0, 0, width, height)
        wait_for(lambda: self.screen.area_of(STRIP).y == 0, 10, "the strip at the edge")

    def tell_work_area(self, *area):
        """As the window manager does for a bar."""
        self.screen.run("xprop", "-root", "-f", "_NET_WORKAREA", "32c", "-set", "_NET_WORKAREA",
                        ",".join(map(str, area * 4)))

    def test_is_dragged_along_the_edge_and_no_further(self):
        x, y = self.strip.middle

        self.screen.drag((x, y), (x - 500, y + 300))

        moved = wait_for(lambda: next((area for area in [self.screen.area_of(STRIP)]
                                       if abs(area.x - self.strip.x + 500) < 24), None), 10, "the strip elsewhere")
        self.assertEqual(moved.y, 0)
        self.assertFalse(self.glimmet.is_panel_open())
        self.assert_under(self.glimmet.open_panel(), moved)
        self.keep_picture("strip")
        self.glimmet.close_panel()
        self.screen.drag(moved.middle, (0, y))
        wait_for(lambda: self.screen.area_of(STRIP).x == 0, 10, "the strip at the edge's beginning")

    def test_shows_a_text_that_changes_each_second(self):
        pictures = set()

        seconds = watch_for(4, lambda: pictures.add(self.screen.pixels(self.strip)))

        self.assertAlmostEqual(len(pictures), seconds, delta=1.5)

    def test_has_nothing_of_the_machine_that_the_bus_would_start_but_the_password_dialog(self):
        names, = self.desktop.bus.call(*DAEMON, "ListActivatableNames")

        self.assertEqual(set(names), {"org.freedesktop.DBus", "org.gnome.keyring.SystemPrompter"})

    def brightness(self):
        """Of the strip's left end, where no text is, from 0 to 255."""
        return max(self.screen.pixels(Area(self.strip.x, self.strip.y, 8, self.strip.height)))

    def test_follows_the_desktop_from_light_to_dark_and_back(self):
        self.addCleanup(self.desktop.prefer, "light")
        self.desktop.prefer("dark")
        wait_for(lambda: self.brightness() < 128, 15, "a dark strip")

        self.desktop.prefer("light")

        wait_for(lambda: self.brightness() > 128, 15, "a light strip")

    def test_opens_and_closes_the_panel_by_single_clicks(self):
        for _ in range(ROUNDS):
            panel = self.glimmet.open_panel()
            self.assert_under(panel, self.strip)
            self.assert_on_screen(panel)
            self.screen.click(*self.glimmet.click_point())
            self.screen.wait_until_gone(PANEL)

    def test_opens_on_a_right_and_on_a_middle_click(self):
        for button in (3, 2):
            self.screen.click(*self.glimmet.click_point(), button)
            self.glimmet.wait_for_panel()
            self.glimmet.close_panel()

    def test_the_panel_closes_on_escape(self):
        self.glimmet.open_panel()

        self.glimmet.close_panel()

        self.assertFalse(self.glimmet.is_panel_open())

    def test_the_panel_closes_on_a_click_elsewhere(self):
        self.glimmet.open_panel()

        self.click_elsewhere()

        self.screen.wait_until_gone(PANEL)

    def test_quit_takes_strip_and_program_away(self):
        self.glimmet.open_panel()

        self.glimmet.control("Quit", "push button").press()

        self.assertEqual(self.glimmet.process.wait(5), 0)
        self.screen.wait_until_gone(STRIP)


if __name__ == "__main__":
    unittest.main()
