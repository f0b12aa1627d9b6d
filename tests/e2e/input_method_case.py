"""What the tests of input methods have in common."""

from desktop.ibus import ENVIRONMENT, Ibus
from desktop.processes import wait_for
from desktop_case import DesktopCase

CUSTOM_TEXT = "hello world ✦"


class InputMethodCase(DesktopCase):
    engine = None

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.ibus = Ibus(cls.desktop, cls.engine).start()

    def setUp(self):
        super().setUp()
        self.launch(ENVIRONMENT).open_panel()

    def enter(self, mode, name):
        """Puts the keyboard into a mode's field."""
        self.glimmet.choose_mode(mode)
        return self.give_keyboard(self.glimmet.control(name, "text"))

    def give_keyboard(self, field):
        field.press()
        wait_for(lambda: field.focused, 10, "the field to have the keyboard")
        # IBus leaves a list where the caret was when the list came.
        self.settled(field)
        return field

    def settled(self, control):
        """Where a control is once it has come to rest."""
        looks = []

        def rests():
            looks.append(control.area)
            return len(looks) > 5 and set(looks[-5:]) == {looks[-1]} and looks[-1]

        return wait_for(rests, 10, "a control to rest")

    def wait_for_text(self, field, text):
        wait_for(lambda: field.text == text, 10, f"“{text}” in the field")
