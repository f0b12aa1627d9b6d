"""What the tests of compositors of the wlroots kind have in common."""

import json

from desktop.glimmet import PANEL, STRIP
from desktop.panels import WATCHER, changed_area
from desktop.processes import DesktopError, wait_for, watch_for
from desktop.screen import DOUBLE_CLICK_TIME, Area
from desktop_case import BINARY, DesktopCase

WIDEST_TEXT = 120
FEED = BINARY.with_name("glimmet-feed")
BAR_HEIGHT = 30
WAYBAR = {"layer": "top", "height": BAR_HEIGHT, "modules-right": ["tray"],
          "tray": {"icon-size": 21}}
FEED_BAR = WAYBAR | {"modules-right": ["custom/glimmet"],
                     "custom/glimmet": {"exec": f"{FEED} --waybar", "return-type": "json",
                                        "on-click": f"{FEED} --activate"}}
EMPTY_BAR = WAYBAR | {"modules-right": []}


class WlrootsCase(DesktopCase):
    host = ""  # of the text in the pictures' names, where it is not the kind of desktop

    def wait_for_text(self, low, high, left=None, right=None):
        """Returns where the running seconds of the clock are, once between these heights, and these sides if any."""
        return wait_for(lambda: self.text_within(low, high, left, right), 30, f"a text between {low} and {high}")

    def text_within(self, low, high, left=None, right=None):
        """What changes there next, None where that is more than a text, as a bar that is just coming up."""
        left = self.screen.area.x if left is None else left
        place = Area(left, low, (right or self.screen.area.right) - left, high - low)
        before = self.screen.pixels(place)
        area = wait_for(lambda: changed_area(before, self.screen.pixels(place), place), 15, "something to change")
        return area if area.width <= WIDEST_TEXT else None

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
                self.keep_picture(f"{self.host or self.kind}-{type(self).__name__.lower()}")
                close()
                self.screen.wait_until_gone(PANEL)
                watch_for(DOUBLE_CLICK_TIME)
        self.assertIsNone(self.glimmet.process.poll())


class WaybarCase(WlrootsCase):
    def start_waybar(self, configuration=None):
        file = self.desktop.folder / "waybar.json"
        file.write_text(json.dumps(configuration or WAYBAR))
        bar = self.desktop.start("waybar", ["waybar", "--config", str(file)])
        self.addCleanup(self.stop_waybar, bar)
        return bar

    def stop_waybar(self, bar):
        self.desktop.stop(bar)
        wait_for(lambda: not self.desktop.bus.owner(WATCHER), 10, "the bar to be gone")


class StripCase(WaybarCase):
    def setUp(self):
        super().setUp()
        self.launch()
        self.wait_for_text(0, 26)  # or the strip itself, as it appears

    def test_is_as_wide_as_its_text_and_has_the_panel_under_it(self):
        text = self.wait_for_text(0, 26)
        self.assertGreater(text.x, self.screen.area.width // 2)
        self.assertEqual(self.screen.windows(STRIP), [], "and is no window")

        self.try_panel(*text.middle, 26)

    def test_stands_beside_a_bar_that_comes_and_goes(self):
        self.wait_for_text(0, 26)

        bar = self.start_waybar(EMPTY_BAR)
        text = self.wait_for_text(BAR_HEIGHT, BAR_HEIGHT + 26)
        self.screen.click(*text.middle)
        self.assert_panel_under(text.middle[0], BAR_HEIGHT + 26)
        self.screen.key("Escape")
        self.screen.wait_until_gone(PANEL)

        self.desktop.stop(bar)
        self.wait_for_text(0, 26)

    def test_opens_the_panel_under_itself_also_where_the_pointer_goes_on_at_once(self):
        x, y = self.wait_for_text(0, 26).middle

        for onward in ((640, 300), (x - 100, 120)):
            self.screen.tap(x, y, onward)
            self.assert_panel_under(x, 26)
            self.screen.key("Escape")
            self.screen.wait_until_gone(PANEL)
            watch_for(DOUBLE_CLICK_TIME)

    def text_near(self, x):
        """Where the text is, None where that is elsewhere, as while the strip is still moving."""
        text = self.wait_for_text(0, 26)
        return text if abs(text.x - x) <= 24 else None

    def test_is_dragged_along_the_edge(self):
        text = self.wait_for_text(0, 26)
        x, y = text.middle

        self.screen.drag((x, y), (x - 400, y + 200))

        moved = wait_for(lambda: self.text_near(text.x - 400), 10, "the text at its new place")
        self.assertFalse(self.glimmet.is_panel_open())
        self.screen.drag(moved.middle, (2, y))
        self.assertGreaterEqual(self.wait_for_text(0, 26).x, 0)

    def test_closes_where_another_window_gets_the_keyboard(self):
        text = self.wait_for_text(0, 26)
        self.screen.click(*text.middle)
        self.assert_panel_under(text.middle[0], 26)

        window = self.desktop.start("another window", ["xev"])
        self.addCleanup(self.desktop.stop, window)

        self.screen.wait_until_gone(PANEL)
        self.screen.click(*text.middle)
        self.assert_panel_under(text.middle[0], 26)
        self.press_controls()
        self.screen.key("Escape")
        self.screen.wait_until_gone(PANEL)


class ItemCase(WaybarCase):
    def setUp(self):
        super().setUp()
        self.bar = self.start_waybar()
        self.launch()

    def test_shows_its_text_in_waybar_with_the_panel_under_it(self):
        text = self.wait_for_text(0, BAR_HEIGHT)
        self.assertEqual(self.screen.windows(STRIP), [])

        self.try_panel(*text.middle, BAR_HEIGHT)

    def test_opens_at_a_bar_below(self):
        self.stop_waybar(self.bar)
        self.start_waybar(WAYBAR | {"position": "bottom"})
        height = self.screen.area.height
        text = self.wait_for_text(height - BAR_HEIGHT, height)

        self.screen.click(*text.middle)

        panel = self.screen.wait_for_window(PANEL)
        self.assertLess(abs(panel.bottom - (height - BAR_HEIGHT)), 8, panel)
        self.wait_for_keyboard()
        self.screen.key("Escape")
        self.screen.wait_until_gone(PANEL)

    def test_opens_and_closes_by_the_middle_button_too(self):
        x, y = self.wait_for_text(0, BAR_HEIGHT).middle

        self.screen.click(x, y, 2)
        self.assert_panel_under(x, BAR_HEIGHT)
        self.screen.click(x, y, 2)
        self.screen.wait_until_gone(PANEL)

    def test_has_a_menu_by_the_right_button(self):
        x, y = self.wait_for_text(0, BAR_HEIGHT).middle
        below = Area(self.screen.area.right - 300, BAR_HEIGHT, 300, 200)
        before = self.screen.pixels(below)

        self.screen.click(x, y, 3)

        def menu():
            area = changed_area(before, self.screen.pixels(below), below)
            watch_for(0.3)  # It grows as it opens.
            return area if area == changed_area(before, self.screen.pixels(below), below) else None

        area = wait_for(menu, 10, "the menu")
        self.assertEqual(self.screen.windows(PANEL), [])
        self.screen.click(area.middle[0], area.bottom - area.height // 4)
        self.assertEqual(self.glimmet.process.wait(10), 0, "Quit is the last of two")

    def test_is_back_in_a_bar_that_starts_anew_and_is_a_strip_meanwhile(self):
        self.wait_for_text(0, BAR_HEIGHT)

        self.stop_waybar(self.bar)
        self.wait_for_text(0, 26)
        self.bar = self.start_waybar()

        text = wait_for(lambda: self.text_within(0, BAR_HEIGHT), 15, "the text in the bar")
        self.screen.click(*text.middle)
        self.assert_panel_under(text.middle[0], BAR_HEIGHT)
        self.screen.key("Escape")
        self.screen.wait_until_gone(PANEL)


class FeedCase(WaybarCase):
    def test_shows_its_text_in_waybar_with_the_panel_under_it_and_no_strip(self):
        self.start_waybar(FEED_BAR)
        self.launch()
        text = self.wait_for_text(0, BAR_HEIGHT)

        self.try_panel(*text.middle, BAR_HEIGHT)

        self.elsewhere()
        below = Area(0, BAR_HEIGHT, self.screen.area.width, BAR_HEIGHT)
        before = wait_for(lambda: self.screen.pixels(below), 5, "a picture")
        watch_for(7)
        self.assertEqual(self.screen.pixels(below), before, "a strip")
