"""The settings sheet, used through the accessibility tree alone."""

import shutil
import unittest

from desktop.processes import wait_for
from desktop_case import DesktopCase

SWITCH = ("check box", "toggle button", "switch")
LABEL = "Launch on startup"
UPDATES = "glimmet – Software Update"


class Settings(DesktopCase):
    def setUp(self):
        super().setUp()
        shutil.rmtree(self.autostart, ignore_errors=True)
        self.launch().ask_for_panel()

    @property
    def autostart(self):
        return self.desktop.home / ".config" / "autostart"

    @property
    def entry(self):
        return self.autostart / "me.kerno.glimmet.desktop"

    def open_sheet(self):
        self.glimmet.control("Settings", "push button").press()
        return self.glimmet.control(LABEL, *SWITCH)

    def close_sheet(self):
        self.glimmet.control("Close", "push button").press()
        wait_for(lambda: self.desktop.tree.program("glimmet").find(LABEL) is None, 15, "the sheet to go")

    def test_starting_at_login_is_switched_on_and_off(self):
        switch = self.open_sheet()
        self.assertFalse(switch.checked)

        switch.press()
        wait_for(self.entry.exists, 15, "the entry")
        lines = self.entry.read_text().splitlines()
        self.assertIn(f'Exec="{self.glimmet.binary}"', lines)
        self.glimmet.control(LABEL, *SWITCH).press()

        wait_for(lambda: not self.entry.exists(), 15, "the entry to go")

    def test_every_sheet_shows_what_the_system_says_then(self):
        self.open_sheet().press()
        wait_for(self.entry.exists, 15, "the entry")
        self.close_sheet()
        self.entry.write_text(self.entry.read_text() + "Hidden=true\n")

        self.assertFalse(self.open_sheet().checked)

        self.glimmet.control(LABEL, *SWITCH).press()
        wait_for(lambda: "Hidden" not in self.entry.read_text(), 15, "an entry without what the user disabled")
        self.close_sheet()
        self.assertTrue(self.open_sheet().checked)

    def test_a_refusal_leaves_the_switch_on_and_is_one_line(self):
        self.autostart.write_text("not a folder")
        self.addCleanup(self.autostart.unlink)
        switch = self.open_sheet()

        switch.press()

        wait_for(lambda: "Launch error: " in self.glimmet.output(), 15, "the line")
        self.assertTrue(self.glimmet.control(LABEL, *SWITCH).checked)
        lines = [line for line in self.glimmet.output().splitlines() if "Launch error" in line]
        self.assertEqual(len(lines), 1)
        self.assertTrue(lines[0].startswith("Launch error: "), lines)
        self.close_sheet()
        self.assertFalse(self.open_sheet().checked)

    def test_a_check_for_updates_opens_its_window_and_the_panel_gives_way(self):
        self.open_sheet()

        self.glimmet.control("Check for Updates", "push button").press()

        self.screen.wait_for_window(UPDATES)
        self.screen.wait_until_gone("glimmet")
        # Nobody manages packages in this desktop.
        self.glimmet.control("Could not check for updates", "heading")
        self.glimmet.control("OK", "push button").press()
        self.screen.wait_until_gone(UPDATES)


if __name__ == "__main__":
    unittest.main()
