"""The panel in GNOME Shell, used through the accessibility tree alone."""

import unittest

from desktop.processes import wait_for
from desktop_case import DesktopCase

SWITCH = ("check box", "toggle button", "switch")
FIELD = ("text", "entry")
QUOTE = "measure twice > cut once"
FIRST_DEFAULT_QUOTE = "stay curious ✦"


class GnomePanel(DesktopCase):
    kind = "gnome"

    def setUp(self):
        super().setUp()
        self.launch().open_panel()

    def field(self):
        panel = self.desktop.tree.program("glimmet")
        return wait_for(lambda: next((node for node in panel.walk() if node.role in FIELD), None), 15, "a text field")

    def flip(self, name):
        switch = self.glimmet.control(name, *SWITCH)
        before = switch.checked
        switch.press()
        wait_for(lambda: switch.checked != before, 15, f"“{name}” to flip")

    def add_quote(self, text):
        self.glimmet.choose_mode("Quote")
        self.field().write(text)
        self.glimmet.control("Add", "push button").press()
        return self.glimmet.control(f"Remove {text}", "push button")

    def test_has_a_card_for_each_mode(self):
        cards = [node.name for node in self.desktop.tree.program("glimmet").walk() if node.role == "radio button"]

        self.assertEqual(cards, ["Clock", "Quote", "Custom", "Revenue", "Crypto", "Deadline"])

    def test_a_mode_card_changes_the_text(self):
        self.glimmet.choose_mode("Quote")

        self.glimmet.wait_for_label(lambda label: label == FIRST_DEFAULT_QUOTE)

    def test_marks_only_the_chosen_card(self):
        self.glimmet.choose_mode("Custom")

        cards = [node for node in self.desktop.tree.program("glimmet").walk() if node.role == "radio button"]
        self.assertEqual([card.name for card in cards if card.checked], ["Custom"])

    def test_show_seconds_takes_the_seconds_away(self):
        self.flip("Show seconds")

        text = self.glimmet.wait_for_label(lambda label: label.count(":") == 1)
        self.assertRegex(text, r"^\d\d:\d\d$")

    def test_24_hour_format_gives_way_to_am_and_pm(self):
        self.flip("24-hour format")

        text = self.glimmet.wait_for_label(lambda label: label.endswith("M"))
        self.assertRegex(text, r"^\d?\d:\d\d:\d\d.(AM|PM)$")

    def test_the_custom_text_follows_the_typing(self):
        self.glimmet.choose_mode("Custom")

        self.field().write("deep work until <noon>")

        self.glimmet.wait_for_label(lambda label: label == "deep work until <noon>")

    def test_an_added_quote_is_shown_and_stored(self):
        self.add_quote(QUOTE)

        self.glimmet.wait_for_label(lambda label: label == QUOTE)
        self.assertEqual(self.stored()["me.kerno.glimmet.quotes"], [QUOTE])
        self.assertEqual(self.field().text, "")

    def test_removing_the_last_quote_brings_the_defaults_back(self):
        self.add_quote(QUOTE).press()

        self.glimmet.wait_for_label(lambda label: label == FIRST_DEFAULT_QUOTE)
        wait_for(lambda: self.stored()["me.kerno.glimmet.quotes"] == [], 15, "the empty list in the file")

    def test_reset_to_defaults_stores_the_empty_list(self):
        self.add_quote(QUOTE)

        self.glimmet.control("Reset to defaults", "push button").press()

        wait_for(lambda: self.stored()["me.kerno.glimmet.quotes"] == [], 15, "the empty list in the file")

    def test_quit_ends_the_program_well(self):
        self.glimmet.control("Quit", "push button").press()

        self.assertEqual(self.glimmet.process.wait(5), 0)


if __name__ == "__main__":
    unittest.main()
