"""What is typed through an input method: composed in the field, chosen from a list at the caret, taken at last."""

import signal
import unittest

from desktop.ibus import JAPANESE
from desktop.processes import wait_for
from input_method_case import CUSTOM_TEXT, InputMethodCase

COMPOSED = "にほん"
FIRST_DEFAULT_QUOTE = "stay curious ✦"
KEY = "POLAR PERSONAL ACCESS TOKEN"


class InputMethods(InputMethodCase):
    engine = JAPANESE

    def compose(self, field):
        before = field.text
        self.screen.key("End")
        self.screen.type("nihonn")
        self.wait_for_text(field, before + COMPOSED)

    def convert(self, field):
        """Composes, and has the list of candidates shown; returns where that is."""
        self.compose(field)
        # One key after the other has been answered: the second is to find what the first has converted.
        for _ in range(2):
            before = field.text
            self.screen.key("space")
            wait_for(lambda: field.text != before, 10, "another candidate in the field")
        return wait_for(self.ibus.candidates, 10, "the list of candidates")

    def test_what_is_composed_is_in_the_field_alone_until_it_is_taken(self):
        field = self.enter("Custom", "Custom text")
        self.glimmet.wait_for_label(lambda label: label == CUSTOM_TEXT)

        self.compose(field)
        self.assertEqual(self.glimmet.label, CUSTOM_TEXT)
        self.screen.key("Return")

        self.glimmet.wait_for_label(lambda label: label == CUSTOM_TEXT + COMPOSED)

    def test_the_candidates_are_at_the_caret(self):
        field = self.enter("Custom", "Custom text")

        candidates = self.convert(field)

        area = field.area
        self.assertTrue(area.y < candidates.y <= area.bottom, f"{candidates} not below the text in {area}")
        self.assertTrue(area.x + 20 < candidates.x < area.right, f"{candidates} not after the text in {area}")

    def test_escape_gives_up_what_is_composed_and_then_closes_the_panel(self):
        field = self.enter("Custom", "Custom text")
        self.compose(field)

        self.screen.key("Escape")
        self.wait_for_text(field, CUSTOM_TEXT)
        self.assertTrue(self.glimmet.is_panel_open())

        self.glimmet.close_panel()
        self.glimmet.wait_for_label(lambda label: label == CUSTOM_TEXT)

    def test_return_takes_what_is_composed_and_only_then_adds_the_entry(self):
        field = self.enter("Quote", "New quote")
        self.glimmet.wait_for_label(lambda label: label == FIRST_DEFAULT_QUOTE)
        self.compose(field)

        # The second goes to the engine as well: it answers in the order of the keys.
        self.screen.key("Return", "a")
        self.wait_for_text(field, COMPOSED + "あ")
        self.assertEqual(self.glimmet.label, FIRST_DEFAULT_QUOTE)
        self.screen.key("BackSpace", "Return")

        self.glimmet.wait_for_label(lambda label: label == COMPOSED)
        self.wait_for_text(field, "")

    def click_candidate_below(self, panel):
        candidates = self.ibus.candidates()
        self.assertGreater(candidates.bottom, panel.bottom + 100)
        self.screen.click(candidates.x + 60, panel.bottom + 60)

    def test_a_candidate_beyond_the_panels_edge_is_chosen_by_a_click(self):
        field = self.enter("Custom", "Custom text")
        self.convert(field)
        before = field.text

        self.click_candidate_below(self.screen.area_of("glimmet"))

        wait_for(lambda: field.text != before, 10, "another candidate in the field")
        self.assertTrue(self.glimmet.is_panel_open())
        chosen = field.text
        self.screen.key("Return")
        self.glimmet.wait_for_label(lambda label: label == chosen)

    def test_a_click_at_candidates_that_are_gone_before_it_is_heard_of_leaves_the_panel_open(self):
        field = self.enter("Custom", "Custom text")
        self.convert(field)
        before = field.text
        panel = self.screen.area_of("glimmet")

        self.glimmet.process.send_signal(signal.SIGSTOP)
        try:
            self.click_candidate_below(panel)
            wait_for(lambda: not self.ibus.candidates(), 10, "the candidates to go")
        finally:
            self.glimmet.process.send_signal(signal.SIGCONT)

        wait_for(lambda: field.text != before, 10, "another candidate in the field")
        self.assertTrue(self.glimmet.is_panel_open())

    def test_a_click_elsewhere_takes_what_is_composed_and_closes_the_panel(self):
        field = self.enter("Custom", "Custom text")
        self.compose(field)

        self.click_elsewhere()

        self.screen.wait_until_gone("glimmet")
        self.glimmet.wait_for_label(lambda label: label == CUSTOM_TEXT + COMPOSED)

    def test_a_button_takes_what_is_composed(self):
        field = self.enter("Quote", "New quote")
        self.compose(field)

        self.screen.click(*self.settled(self.glimmet.control("Add", "push button")).middle)

        self.glimmet.wait_for_label(lambda label: label == COMPOSED)

    def test_what_is_composed_is_kept_where_another_mode_is_chosen(self):
        field = self.enter("Custom", "Custom text")
        self.compose(field)

        self.screen.click(*self.settled(self.glimmet.control("Quote", "radio button")).middle)
        self.glimmet.wait_for_label(lambda label: label == FIRST_DEFAULT_QUOTE)
        self.glimmet.choose_mode("Custom")

        self.glimmet.wait_for_label(lambda label: label == CUSTOM_TEXT + COMPOSED)

    def test_a_hidden_key_is_typed_past_the_input_method(self):
        self.glimmet.choose_mode("Revenue")
        self.glimmet.control("API Keys", "push button").press()
        field = self.give_keyboard(self.glimmet.control(KEY, "text", "password text"))

        self.screen.type("nihonn")

        self.wait_for_text(field, "••••••")
        self.assertIsNone(self.ibus.candidates())


del InputMethodCase

if __name__ == "__main__":
    unittest.main()
