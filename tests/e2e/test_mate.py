"""The item in MATE's panel, which shows its label."""

import re
import unittest

from desktop.panels import changed_area
from desktop.processes import wait_for, watch_for
from icon_panel_case import WIDEST_ICON, IconPanelCase


class Mate(IconPanelCase):
    panel = "mate"

    def find_icon(self):
        """Where the seconds change."""
        self.launch(self.environment)

        def seconds():
            before = self.screen.pixels(self.screen.area)
            watch_for(1.1)
            area = changed_area(before, self.screen.pixels(self.screen.area), self.screen.area)
            return area if area and area.width <= WIDEST_ICON else None

        found = wait_for(seconds, 30, "nothing but the text to change")
        self.glimmet.stop()
        return found

    def test_shows_the_text_itself(self):
        already = self.screen.pixels(self.icon)

        wait_for(lambda: self.screen.pixels(self.icon) != already, 15, "the shown text to change")

        self.assertRegex(self.glimmet.label, r"^\d\d:\d\d:\d\d$")

    def test_cuts_a_long_text(self):
        self.glimmet.ask_for_panel()
        self.glimmet.choose_mode("Custom")
        field = self.glimmet.control("Custom text")
        field.write("w" * 170)

        label = self.glimmet.wait_for_label(lambda text: text.endswith("…"))

        self.assertTrue(re.search("w{50}", label))
        self.assertEqual(len(label), 60)


del IconPanelCase

if __name__ == "__main__":
    unittest.main()
