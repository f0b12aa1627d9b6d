"""sway, which tells an X server neither where the pointer is nor what is pressed: the strip, and the item in Waybar."""

import json
import unittest

from desktop.glimmet import PANEL, STRIP
from desktop.panels import WATCHER, changed_area
from desktop.processes import wait_for, watch_for
from desktop.screen import DOUBLE_CLICK_TIME, Area
from desktop_case import BINARY, DesktopCase

BAR_HEIGHT = 30
WIDEST_TEXT = 120
WAYBAR = {"layer": "top", "height": BAR_HEIGHT, "modules-left": ["sway/workspaces"], "modules-right": ["tray"],
          "tray": {"icon-size": 21}}
FEED = BINARY.with_name("glimmet-feed")
FEED_BAR = WAYBAR | {"modules-right": ["custom/glimmet"],
                     "custom/glimmet": {"exec": f"{FEED} --waybar", "return-type": "json",
                                        "on-click": f"{FEED} --activate"}}
EMPTY_BAR = WAYBAR | {"modules-right": []}


class SwayCase(DesktopCase):
    kind = "sway"

    def start_waybar(self, configuration=None):
        file = self.desktop.folder / "waybar.json"
        file.write_text(json.dumps(configuration or WAYBAR))
        bar = self.desktop.start("waybar", ["waybar", "--config", str(file)])
        self.addCleanup(self.stop_waybar, bar)
        return bar

    def stop_waybar(self, bar):
        self.desktop.stop(bar)
        wait_for(lambda: not self.desktop.bus.owner(WATCHER), 10, "the bar to be gone")

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

    def press_controls(self):
        """What is typed reaches the panel: Tab and the space bar switch the seconds off, and on again."""
        for shows_seconds in (False, True):
            self.screen.key(*(["Tab"] * 3 if not shows_seconds else []), "space")
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


class Strip(SwayCase):
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


class Outputs(SwayCase):
    def test_the_panel_opens_on_the_output_of_the_bar_that_was_clicked(self):
        first = self.screen.area
        self.screen.add_output_beside()
        self.start_waybar()
        self.launch()
        text = self.wait_for_text(0, BAR_HEIGHT, left=first.right)

        self.screen.click(*text.middle)

        self.assert_panel_under(text.middle[0], BAR_HEIGHT)
        self.assertGreaterEqual(self.screen.area_of(PANEL).x, first.right)
        self.screen.click(200, 600)
        self.screen.wait_until_gone(PANEL)


class Item(SwayCase):
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


class WithoutXServer(SwayCase):
    """The bar's text is as ever; the panel is a window of the compositor's own."""

    def window(self):
        return next((each for each in self.screen.own_windows() if each["name"] == PANEL), None)

    def wait_for_panel(self):
        wait_for(lambda: (self.window() or {}).get("focused"), 10, "the panel with the keyboard")
        return self.window()

    def wait_until_closed(self):
        wait_for(lambda: not self.window(), 10, "the panel to be closed")
        watch_for(DOUBLE_CLICK_TIME)

    def try_panel(self, x, y, _edge=0):
        closers = {
            "Escape": lambda: self.screen.key("Escape"),
            "a second click": lambda: self.screen.click(x, y),
        }
        for name, close in closers.items():
            with self.subTest(name):
                self.screen.click(x, y)
                panel = self.wait_for_panel()
                self.assertEqual((panel["rect"]["width"], panel["rect"]["height"]), (340, 540))
                self.assertEqual(panel["type"], "floating_con")
                self.press_controls()
                close()
                self.wait_until_closed()
        self.assertIsNone(self.glimmet.process.poll())

    def start_program(self):
        self.launch({"DISPLAY": ""})
        self.assertIn("glimmet finds no X display (DISPLAY is not set): the panel opens where the desktop puts it",
                      self.glimmet.output())

    def test_shows_its_text_in_waybar_and_opens_the_panel_as_a_window(self):
        self.start_waybar()
        self.start_program()

        self.try_panel(*self.wait_for_text(0, BAR_HEIGHT).middle)

    def test_has_a_strip(self):
        self.start_program()

        self.try_panel(*self.wait_for_text(0, 26).middle)

    def test_a_window_that_gets_the_keyboard_closes_the_panel(self):
        self.start_program()
        self.screen.click(*self.wait_for_text(0, 26).middle)
        self.wait_for_panel()

        window = self.desktop.start("another window", ["xev"])
        self.addCleanup(self.desktop.stop, window)

        self.wait_until_closed()


class Feed(SwayCase):
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


del SwayCase, DesktopCase

if __name__ == "__main__":
    unittest.main()
