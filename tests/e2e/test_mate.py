"""The item in MATE's panel, which shows its label."""

import re
import unittest

from icon_panel_case import IconPanelCase, TextPanelCase


class Mate(TextPanelCase):
    panel = "mate"
    shows_labels = True

    def test_cuts_a_long_text(self):
        self.glimmet.ask_for_panel()
        self.glimmet.choose_mode("Custom")
        field = self.glimmet.control("Custom text")
        field.write("w" * 170)

        label = self.glimmet.wait_for_label(lambda text: text.endswith("…"))

        self.assertTrue(re.search("w{50}", label))
        self.assertEqual(len(label), 60)


del IconPanelCase, TextPanelCase

if __name__ == "__main__":
    unittest.main()
