"""The text as an item in GNOME Shell's top bar."""

import unittest

from desktop import gnome
from desktop.processes import wait_for, watch_for
from desktop.program import PANEL, STRIP
from desktop_case import DesktopCase

ROUNDS = 10
# Seconds; two clicks that are closer to each other are one double click.
DOUBLE_CLICK_TIME = 0.4


class GnomeItem(DesktopCase):
    kind = "gnome"

    def setUp(self):
        super().setUp()
        self.launch()
        self.item = self.glimmet.wait_until_clickable()

    def shown_text(self):
        """The text that the shell itself shows in its top bar."""
        shell = self.desktop.tree.program("gnome-shell")
        labels = (node for node in shell.walk() if node.is_called(self.glimmet.label, ("label",)))
        return next((label.name for label in labels if self.screen.area.contains(label.area)), None)

    def toggle(self, button=1):
        self.screen.click(*self.item.middle, button)

    def test_shows_the_clock_in_the_top_bar(self):
        text = wait_for(self.shown_text, 5, "the label in the top bar")

        self.assertRegex(text, r"^\d\d:\d\d:\d\d$")

    def test_changes_the_shown_text_each_second(self):
        pictures = set()
        already = len(self.glimmet.labels)

        seconds = watch_for(4, lambda: pictures.add(self.screen.pixels(self.item)))

        texts = [text for _, text in self.glimmet.labels[already:]]
        self.assertAlmostEqual(len(texts), seconds, delta=1.5)
        self.assertEqual(len(set(texts)), len(texts))
        self.assertGreaterEqual(len(pictures), 3)

    def test_opens_and_closes_by_single_clicks_ten_times_in_a_row(self):
        for _ in range(ROUNDS):
            self.toggle()
            panel = self.screen.wait_for_window(PANEL, 3)
            self.assert_under(panel, self.item)
            self.assert_on_screen(panel)
            watch_for(DOUBLE_CLICK_TIME)
            self.toggle()
            self.screen.wait_until_gone(PANEL, 3)
            watch_for(DOUBLE_CLICK_TIME)

    def test_opens_on_a_right_click(self):
        self.toggle(3)

        self.assert_under(self.screen.wait_for_window(PANEL, 3), self.item)

    def test_opens_on_a_middle_click(self):
        self.toggle(2)

        self.assert_under(self.screen.wait_for_window(PANEL, 3), self.item)

    def test_closes_on_escape(self):
        self.glimmet.open_panel()

        self.glimmet.close_panel()

        self.assertFalse(self.glimmet.is_panel_open())

    def test_closes_on_a_click_elsewhere(self):
        self.glimmet.open_panel()

        self.click_elsewhere()

        self.screen.wait_until_gone(PANEL, 3)

    def test_goes_on_telling_the_time_while_the_panel_is_open(self):
        self.glimmet.open_panel()
        already = len(self.glimmet.labels)

        wait_for(lambda: len(self.glimmet.labels) >= already + 3, 5, "three more labels")

        self.assertTrue(self.glimmet.is_panel_open())

    def test_moves_to_a_strip_while_the_host_is_away_and_back_with_it(self):
        gnome.set_indicators(self.desktop, False)
        self.addCleanup(gnome.set_indicators, self.desktop, True)
        self.screen.wait_for_window(STRIP, 10)

        gnome.set_indicators(self.desktop, True)

        self.screen.wait_until_gone(STRIP)
        wait_for(self.shown_text, 10, "the label in the top bar")


if __name__ == "__main__":
    unittest.main()
