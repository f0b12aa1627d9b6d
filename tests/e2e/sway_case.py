"""What the tests of sway have in common."""

from desktop.glimmet import PANEL
from desktop.panels import changed_area
from desktop.processes import DesktopError, wait_for, watch_for
from desktop.screen import DOUBLE_CLICK_TIME, Area
from desktop_case import BINARY, DesktopCase

WIDEST_TEXT = 120
FEED = BINARY.with_name("glimmet-feed")


class SwayCase(DesktopCase):
    kind = "sway"

    def wait_for_text(self, low, high, left=0):
        """Returns where the running seconds of the clock are, once between these two heights and right of `left`."""
        place = Area(left, low, self.screen.area.right - left, high - low)

        def text():
            before = self.screen.pixels(place)
            area = wait_for(lambda: changed_area(before, self.screen.pixels(place), place), 15, "something to change")
            return area if area.width <= WIDEST_TEXT else None  # else a bar that is just coming up

        return wait_for(text, 30, f"a text between {low} and {high}")

    def assert_panel_under(self, x, y):
        """The panel hangs from the height y, has x in its width, and has the keyboard."""
        panel = self.screen.wait_for_window(PANEL)
        self.assert_on_screen(panel)
        self.assertLess(abs(panel.y - y), 8, panel)
        self.assertTrue(panel.x - 8 < x < panel.right + 8, f"{panel}, {x}")
        self.wait_for_keyboard()

    def wait_for_keyboard(self):
        """Returns once the panel has it: the X server's own focus stays where it is."""
        wait_for(lambda: any(window.active for window in self.desktop.tree.program("glimmet").children()), 10,
                 "the panel to have the keyboard")

    def tab_to(self, name):
        """The compositor gives the keyboard to the panel in its own time: keys of before go nowhere."""
        def is_there():
            return (self.glimmet.focused_control() or ("", ""))[1] == name

        def is_there_by_one_more():
            before = self.glimmet.focused_control()
            self.screen.key("Tab")
            try:
                wait_for(lambda: self.glimmet.focused_control() != before, 1, "the keyboard to go on")
            except DesktopError:
                pass
            return is_there()

        wait_for(is_there_by_one_more, 20, f"the keyboard in “{name}”")

    def press_controls(self):
        """What is typed reaches the panel: Tab and the space bar switch the seconds off, and on again."""
        self.tab_to("Show seconds")
        for shows_seconds in (False, True):
            self.screen.key("space")
            self.glimmet.wait_for_label(lambda label: (label.count(":") == 2) == shows_seconds)

    def try_panel(self, x, y, edge):
        """Opens it by a click at this place, and closes it in every way."""
        closers = {
            "Escape": lambda: self.screen.key("Escape"),
            "a click elsewhere": lambda: self.screen.click(200, 600),
            "a second click": lambda: self.screen.click(x, y),
            "a click on the other end of the bar": lambda: self.screen.click(500, 8),
        }
        for name, close in closers.items():
            with self.subTest(name):
                self.screen.click(x, y)
                self.assert_panel_under(x, edge)
                self.press_controls()
                self.keep_picture(f"sway-{type(self).__name__.lower()}")
                close()
                self.screen.wait_until_gone(PANEL)
                watch_for(DOUBLE_CLICK_TIME)
        self.assertIsNone(self.glimmet.process.poll())
