"""The panel under a finger, as GNOME Shell under Wayland delivers it."""

import unittest

from desktop.processes import wait_for
from desktop.touch import Touch
from desktop_case import DesktopCase
from test_gnome_extension import TopBarCase

BUTTON, CHOICE, ROW, FIELD = ("push button",), ("radio button",), ("list item",), ("text", "password text")
CUSTOM_TEXT = "hello world ✦"
LONG_QUOTE = "a quote of so many words that it needs more than one line of the panel, however small they may be"
SHORT_QUOTES = ["make it work", "make it right", "make it fast", "measure twice", "cut once", "stay curious"]
QUOTES = [LONG_QUOTE, *SHORT_QUOTES]
# What stands on the page and is no control.
PAGE = ("DISPLAY MODE", ("label",))
# Pixels that a hand goes up, and the least of them that the page goes with it: a press may slip a little at first.
WAY, LEAST_WAY = 160, 100


class TouchedPanel(DesktopCase):
    kind = "gnome"
    is_wayland = True

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.touch = Touch(cls.desktop)

    def show(self, mode=None, **preferences):
        if preferences:
            self.seed({f"me.kerno.glimmet.{key}": value for key, value in preferences.items()})
        self.launch().ask_for_panel()
        self.screen.wait_until_typed_into("glimmet")
        if mode:
            self.glimmet.choose_mode(mode)

    def resting(self, name, roles):
        """Where a control is once it has come to rest."""
        control = self.glimmet.control(name, *roles)
        looks = []

        def rests():
            self.screen.wait_until_seen()
            looks.append(control.area)
            return len(looks) > 5 and set(looks[-5:]) == {looks[-1]}

        wait_for(rests, 10, f"“{name}” to rest")
        return looks[-1]

    def tap(self, name, roles):
        self.touch.tap(*self.resting(name, roles).middle)

    def drag_up(self, hand, name, roles):
        """Drags from there by a finger or by the mouse; returns how far the page has gone with it."""
        area = self.resting(name, roles)
        x, y = area.middle
        hand.drag((x, y), (x, y - WAY))
        return area.y - self.resting(name, roles).y

    def scroll_by_finger(self, name, roles):
        way = self.drag_up(self.touch, name, roles)
        self.touch.lift()
        self.assertGreater(way, LEAST_WAY)

    def wait_until_chosen(self, name):
        wait_for(lambda: self.glimmet.control(name, *CHOICE).checked, 10, f"“{name}” to be chosen")

    def test_a_tap_chooses_a_card(self):
        self.show()

        self.tap("Quote", CHOICE)

        self.wait_until_chosen("Quote")

    def test_a_tap_chooses_a_chip(self):
        self.show("Revenue")

        self.tap("Stripe", CHOICE)

        self.wait_until_chosen("Stripe")

    def test_a_finger_scrolls_the_page_and_a_mouse_does_not(self):
        self.show("Revenue")

        self.assertEqual(self.drag_up(self.screen, *PAGE), 0)
        self.scroll_by_finger(*PAGE)

    def test_a_finger_that_begins_on_a_card_scrolls_and_chooses_nothing(self):
        self.show("Revenue")

        self.scroll_by_finger("Crypto", CHOICE)

        self.assertTrue(self.glimmet.control("Revenue", *CHOICE).checked)
        self.assertEqual(self.glimmet.label, "add api key")

    def test_a_tap_gives_a_field_the_keyboard(self):
        self.show("Custom")
        field = self.glimmet.control("Custom text", *FIELD)
        self.assertFalse(field.focused)

        self.tap("Custom text", FIELD)
        wait_for(lambda: field.focused, 10, "the field to have the keyboard")
        self.screen.key("End")
        self.screen.type("ja")

        self.glimmet.wait_for_label(lambda label: label == CUSTOM_TEXT + "ja")

    def test_a_finger_that_begins_on_a_field_scrolls_and_leaves_the_keyboard(self):
        self.show("Revenue")
        self.glimmet.control("API Keys", *BUTTON).press()
        key = "REVENUECAT SECRET API KEY"

        self.scroll_by_finger(key, FIELD)

        self.assertFalse(self.glimmet.control(key, *FIELD).focused)

    def test_a_tap_meets_the_cross_of_a_long_row(self):
        self.show("Quote", quotes=QUOTES)
        self.scroll_by_finger(*PAGE)

        self.tap(f"Remove {LONG_QUOTE}", BUTTON)

        self.glimmet.control(f"Undo Remove {LONG_QUOTE}", *BUTTON)
        wait_for(lambda: self.stored()["me.kerno.glimmet.quotes"] == SHORT_QUOTES, 10, "the others in the file")

    def test_two_taps_edit_a_row(self):
        self.show("Quote", quotes=QUOTES)
        self.scroll_by_finger(*PAGE)
        place = self.resting(SHORT_QUOTES[0], ROW).middle

        self.touch.tap(*place)
        self.touch.tap(*place)

        wait_for(lambda: self.glimmet.control("Quote", *FIELD).focused, 10, "the keyboard in the row")


class TouchedTopBar(TopBarCase):
    is_wayland = True

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.touch = Touch(cls.desktop)

    def press(self, button=1):
        self.touch.tap(*self.button.middle)

    def test_a_tap_opens_and_another_one_closes(self):
        self.open()

        self.press()

        self.wait_until_closed()

    def test_a_tap_elsewhere_closes(self):
        self.open()

        self.touch.tap(self.screen.area.width // 4, self.screen.area.height * 3 // 4)

        self.wait_until_closed()

    def test_a_tap_at_a_window_closes(self):
        other = self.desktop.start("other", ["xev"])
        self.addCleanup(self.desktop.stop, other)
        window = self.screen.wait_for_window("Event Tester")
        self.open()

        self.touch.tap(*window.middle)

        self.wait_until_closed()


if __name__ == "__main__":
    unittest.main()
