"""The program with its panel never opened, and what it sends on the bus."""

import unittest
from pathlib import Path

from desktop.processes import wait_for, watch_for
from desktop.watcher import Watcher
from desktop_case import DesktopCase

PANEL_LIBRARIES = ("libQt6Quick", "libQt6Qml")


class Text(DesktopCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        Watcher(cls.desktop).start()

    def libraries(self):
        return Path(f"/proc/{self.glimmet.process.pid}/maps").read_text()

    def test_loads_what_the_panel_needs_only_with_the_panel(self):
        self.launch()
        wait_for(lambda: len(self.glimmet.labels) >= 2, 15, "two labels")
        before = self.libraries()

        self.glimmet.ask_for_panel()

        for library in PANEL_LIBRARIES:
            self.assertNotIn(library, before)
            self.assertIn(library, self.libraries())

    def test_sends_each_second_of_the_clock_once(self):
        self.launch()
        wait_for(lambda: self.glimmet.labels, 15, "a label")
        self.glimmet.labels.clear()

        watch_for(4)

        texts = [text for _, text in self.glimmet.labels]
        self.assertIn(len(texts), (3, 4, 5))
        self.assertEqual(len(set(texts)), len(texts))

    def test_sends_nothing_while_the_text_stays(self):
        self.launch().ask_for_panel()
        self.glimmet.choose_mode("Custom")
        self.glimmet.wait_for_label(lambda label: label == "hello world ✦")
        self.glimmet.close_panel()
        self.glimmet.labels.clear()

        watch_for(3)

        self.assertEqual(self.glimmet.labels, [])

    def test_reads_the_label_as_it_was_sent(self):
        self.launch()
        already = len(self.glimmet.labels)

        wait_for(lambda: len(self.glimmet.labels) > already, 15, "a label")

        self.assertEqual(self.glimmet.label, self.glimmet.labels[-1][1])


if __name__ == "__main__":
    unittest.main()
