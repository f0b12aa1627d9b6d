"""What a screen reader hears while the panel is open."""

import unittest

from desktop.processes import wait_for
from desktop_case import DesktopCase


class ScreenReader(DesktopCase):
    def setUp(self):
        super().setUp()
        self.launch().ask_for_panel()
        self.heard = []
        self.addCleanup(self.desktop.tree.follow_announcements(self.heard.append))

    def preview(self):
        return [node.name for node in self.desktop.tree.program("glimmet").walk() if node.role == "label"]

    def wait_to_hear(self, words):
        wait_for(lambda: words in self.heard, 10, f"“{words}” among {self.heard}")

    def test_hears_of_a_new_text(self):
        self.glimmet.choose_mode("Custom")

        self.wait_to_hear("hello world ✦")

    def test_does_not_hear_every_second(self):
        first = self.glimmet.label
        self.glimmet.wait_for_label(lambda label: label[-1] != first[-1])
        self.glimmet.wait_for_label(lambda label: label[-1] == first[-1], 12)

        # A new minute may have come meanwhile.
        self.assertLessEqual(len(self.heard), 1)

    def test_finds_the_time_without_its_seconds(self):
        wait_for(lambda: self.glimmet.label[:5] in self.preview(), 15, "the time among what is told")


if __name__ == "__main__":
    unittest.main()
