"""Emoji that an input method offers, in the fields of the panel."""

import unittest

from desktop.ibus import EMOJI_KEY, PLAIN
from desktop.processes import wait_for
from input_method_case import CUSTOM_TEXT, InputMethodCase


class Emoji(InputMethodCase):
    engine = PLAIN

    def test_one_that_is_chosen_by_its_name_comes_into_the_text(self):
        field = self.enter("Custom", "Custom text")
        self.glimmet.wait_for_label(lambda label: label == CUSTOM_TEXT)
        self.screen.key("End", EMOJI_KEY)
        self.wait_for_text(field, CUSTOM_TEXT + "e")

        self.screen.type("smile")
        self.wait_for_text(field, CUSTOM_TEXT + "esmile")
        self.screen.key("space")
        # Each release of IBus has another one first.
        smile = wait_for(lambda: next((each for each in "😀😃" if field.text == f"{CUSTOM_TEXT}e{each}"), None),
                         10, "a smile in the field")
        self.assertEqual(self.glimmet.label, CUSTOM_TEXT)
        self.screen.key("Return")

        self.glimmet.wait_for_label(lambda label: label == CUSTOM_TEXT + smile)
        self.wait_for_text(field, CUSTOM_TEXT + smile)

    def test_one_that_is_written_by_its_number_comes_into_the_text(self):
        field = self.enter("Custom", "Custom text")
        self.screen.key("End", "ctrl+shift+u")
        self.wait_for_text(field, CUSTOM_TEXT + "u")

        self.screen.type("1f60a")
        self.wait_for_text(field, CUSTOM_TEXT + "u1f60a")
        self.screen.key("space")

        self.glimmet.wait_for_label(lambda label: label == CUSTOM_TEXT + "😊")
        self.wait_for_text(field, CUSTOM_TEXT + "😊")


del InputMethodCase

if __name__ == "__main__":
    unittest.main()
