"""The text as an item in GNOME Shell's top bar."""

import time
import unittest

from desktop import gnome
from desktop.glimmet import ITEM_INTERFACE, NAME, PANEL, STRIP
from desktop.processes import wait_for, watch_for
from desktop.screen import DOUBLE_CLICK_TIME
from desktop_case import DesktopCase

ROUNDS = 10
# Seconds; longer than any host takes to tell of a click while it has nothing else to do.
BUSY_TIME = 1.2


class GnomeItem(DesktopCase):
    kind = "gnome"

    def setUp(self):
        super().setUp()
        self.launch()
        self.item = self.glimmet.wait_until_clickable()
        self.statuses = []
        self.addCleanup(self.desktop.bus.follow(NAME, ITEM_INTERFACE, "NewStatus", self.statuses.append))

    def toggle(self, button=1):
        self.item = self.glimmet.wait_until_clickable()
        self.screen.click(*self.item.middle, button)

    def wait_for_status(self, status):
        wait_for(lambda: status in self.statuses, 10, f"the item to be {status}")

    def test_shows_the_clock_in_the_top_bar(self):
        self.glimmet.wait_for_menu_bar()

        self.assertRegex(self.glimmet.label, r"^\d\d:\d\d:\d\d$")

    def test_changes_the_shown_text_each_second(self):
        pictures = set()
        already = len(self.glimmet.labels)
        start = time.monotonic()

        def has_changed_three_times():
            pictures.add(self.screen.pixels(self.item))
            return len(pictures) > 3

        wait_for(has_changed_three_times, 15, "the shown text to change three times")

        seconds = time.monotonic() - start
        texts = [text for _, text in self.glimmet.labels[already:]]
        self.assertAlmostEqual(len(texts), seconds, delta=1.5)
        self.assertEqual(len(set(texts)), len(texts))

    def test_opens_and_closes_by_single_clicks_ten_times_in_a_row(self):
        for _ in range(ROUNDS):
            self.toggle()
            panel = self.glimmet.wait_for_panel()
            self.assert_under(panel, self.item)
            self.assert_on_screen(panel)
            watch_for(DOUBLE_CLICK_TIME)
            self.keep_picture("gnome-appindicator")
            self.toggle()
            self.screen.wait_until_gone(PANEL)
            watch_for(DOUBLE_CLICK_TIME)

    def test_opens_on_a_right_click(self):
        self.toggle(3)

        self.assert_under(self.glimmet.wait_for_panel(), self.item)

    def test_opens_on_a_middle_click(self):
        self.toggle(2)

        self.assert_under(self.glimmet.wait_for_panel(), self.item)

    def test_the_open_panel_takes_what_is_typed(self):
        self.toggle()
        self.glimmet.wait_for_panel()

        self.screen.key("Tab")
        first = wait_for(self.glimmet.focused_control, 15, "a control with the keyboard")
        self.screen.key("Tab")

        wait_for(lambda: self.glimmet.focused_control() not in (None, first), 15,
                 "the next control to have the keyboard")

    def test_a_shell_that_is_slow_to_close_its_menu_leaves_the_keyboard_to_the_panel(self):
        # The shell stands still at the moment that matters in some of the rounds only.
        for _ in range(ROUNDS):
            self.statuses.clear()
            self.toggle()
            self.wait_for_status("Passive")
            with gnome.halted(self.desktop):
                watch_for(BUSY_TIME)
            self.glimmet.wait_for_panel()
            self.glimmet.close_panel()

    def test_a_closing_click_of_which_the_shell_tells_late_opens_nothing(self):
        self.glimmet.open_panel()
        self.wait_for_status("Active")
        point = self.glimmet.click_point()
        watch_for(DOUBLE_CLICK_TIME)
        self.statuses.clear()
        with gnome.halted(self.desktop):
            self.screen.click(*point)
            self.screen.wait_until_gone(PANEL)
            watch_for(BUSY_TIME)
        self.wait_for_status("Active")

        self.glimmet.wait_until_clickable()

        self.assertFalse(self.glimmet.is_panel_open())
        self.glimmet.open_panel()

    def test_closes_on_escape(self):
        self.glimmet.open_panel()

        self.glimmet.close_panel()

        self.assertFalse(self.glimmet.is_panel_open())

    def test_closes_on_a_click_elsewhere(self):
        self.glimmet.open_panel()

        self.click_elsewhere()

        self.screen.wait_until_gone(PANEL)

    def test_goes_on_telling_the_time_while_the_panel_is_open(self):
        self.glimmet.open_panel()
        already = len(self.glimmet.labels)

        wait_for(lambda: len(self.glimmet.labels) >= already + 3, 15, "three more labels")

        self.assertTrue(self.glimmet.is_panel_open())

    def test_moves_to_a_strip_while_the_host_is_away_and_back_with_it(self):
        gnome.set_indicators(self.desktop, False)
        self.addCleanup(gnome.set_indicators, self.desktop, True)
        self.screen.wait_for_window(STRIP, 10)

        gnome.set_indicators(self.desktop, True)

        self.screen.wait_until_gone(STRIP)
        self.glimmet.wait_for_menu_bar()


if __name__ == "__main__":
    unittest.main()
