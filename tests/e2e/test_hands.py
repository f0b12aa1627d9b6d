"""The panel under a real pointer and a real keyboard, as the X server delivers them and shows what comes of it."""

import datetime
import unittest

from desktop.cursor import cursor_picture
from desktop.processes import wait_for
from desktop_case import DesktopCase

BUTTON, CARD = "push button", "radio button"


class Hands(DesktopCase):
    def show(self, **options):
        self.launch(**options)
        self.panel = self.glimmet.ask_for_panel()
        self.screen.wait_until_typed_into("glimmet")

    def area(self, name, *roles):
        return self.glimmet.control(name, *roles).area

    def cursor(self):
        return cursor_picture(self.desktop.environment["DISPLAY"])

    def brightness(self, area):
        pixels = self.screen.pixels(area)
        return sum(pixels) / len(pixels)

    def give_keyboard(self, name):
        """Clicks on a field, which may still be on its way."""
        def has_keyboard():
            field = self.glimmet.control(name)
            if not field.focused:
                self.screen.click(*field.area.middle)
            return field.focused

        wait_for(has_keyboard, 10, f"the keyboard in “{name}”")

    def test_the_hand_is_over_quit_alone(self):
        self.show()
        self.screen.move(*self.area("DISPLAY MODE", "label").middle)
        arrow = self.cursor()

        self.screen.move(*self.area("Quit", BUTTON).middle)
        wait_for(lambda: self.cursor() != arrow, 10, "another pointer over Quit")
        self.screen.move(*self.area("DISPLAY MODE", "label").middle)

        wait_for(lambda: self.cursor() == arrow, 10, "the arrow elsewhere")

    def test_controls_answer_to_the_pointer_on_the_screen(self):
        self.show()
        away = self.area("DISPLAY MODE", "label").middle
        for name, role in (("Quit", BUTTON), ("Quote", CARD), ("Settings", BUTTON), ("Show seconds", "check box")):
            area = self.area(name, role)
            self.screen.move(*away)
            wait_for(lambda: self.brightness(area) == self.brightness(area), 10, f"{name} at rest")
            resting = self.brightness(area)

            self.screen.move(*area.middle)
            wait_for(lambda: abs(self.brightness(area) - resting) > 1, 10, f"{name} to answer")
            self.screen.move(*away)

            wait_for(lambda: abs(self.brightness(area) - resting) < 0.1, 10, f"{name} as it was")

    def test_a_press_that_slips_within_a_card_chooses_it_and_moves_no_page(self):
        self.show()
        card = self.area("Quote", CARD)
        x, y = card.middle

        self.screen.drag((x, y - card.height // 3), (x + 6, y + card.height // 3))

        wait_for(lambda: self.glimmet.control("Quote", CARD).checked, 10, "the card to be chosen")
        self.assertEqual(self.area("Quote", CARD), card)

    def test_a_symbol_says_what_it_does(self):
        self.show()
        gear = self.area("Settings", BUTTON)
        x, y = gear.middle
        below = type(gear)(self.panel.right - 90, gear.bottom + 4, 80, 16)
        before = self.screen.pixels(below)

        self.screen.move(x, y)

        wait_for(lambda: self.screen.pixels(below) != before, 10, "the words under the gear")
        self.screen.move(x - 150, y + 200)
        wait_for(lambda: self.screen.pixels(below) == before, 10, "them to go")

    def test_a_date_and_a_time_are_taken_as_they_are_written(self):
        self.show(environment={"LANG": "de_DE.UTF-8", "LC_ALL": "de_DE.UTF-8", "TZ": "Europe/Berlin"})
        self.glimmet.choose_mode("Deadline")
        self.give_keyboard("Deadline name")
        self.screen.type("Steuer")
        self.screen.key("Tab")
        wait_for(lambda: self.glimmet.control("Due date, day").focused, 10, "the keyboard in the day")

        self.screen.type("1.2.2027 9:15")
        self.screen.key("Return")

        wait_for(lambda: self.preferences.exists() and self.stored_deadlines(), 10, "the deadline in the file")
        berlin = datetime.timezone(datetime.timedelta(hours=1))
        written = datetime.datetime(2027, 2, 1, 9, 15, tzinfo=berlin)
        reference = datetime.datetime(2001, 1, 1, tzinfo=datetime.timezone.utc)
        self.assertEqual([deadline["date"] for deadline in self.stored_deadlines()],
                         [(written - reference).total_seconds()])

    def test_the_missing_key_is_one_click_away(self):
        self.show()
        self.glimmet.choose_mode("Revenue")
        self.glimmet.wait_for_label(lambda label: label == "add api key")

        self.screen.click(*self.area("add api key", BUTTON).middle)
        field = self.glimmet.control("POLAR PERSONAL ACCESS TOKEN", "text", "password text")
        wait_for(lambda: field.focused, 10, "the keyboard in the field")
        self.screen.type("x")

        wait_for(lambda: field.text == "•", 10, "what was typed")


if __name__ == "__main__":
    unittest.main()
