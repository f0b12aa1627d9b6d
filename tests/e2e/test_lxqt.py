"""The item in LXQt's panel."""

import unittest

from desktop.screen import Area
from icon_panel_case import IconPanelCase

HIGHEST_BAR = 40


class Lxqt(IconPanelCase):
    panel = "lxqt"
    is_beside_strip = True

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        screen = cls.screen.area
        cls.bars = Area(0, screen.bottom - HIGHEST_BAR, screen.width, HIGHEST_BAR)

    def test_the_text_is_in_the_strip(self):
        strip = self.glimmet.wait_for_strip()
        self.assertEqual(strip.y, 0)
        self.screen.click(*strip.middle)
        panel = self.glimmet.wait_for_panel()
        self.assertLess(panel.y - strip.bottom, 20)


del IconPanelCase

if __name__ == "__main__":
    unittest.main()
