"""sway, which tells an X server neither where the pointer is nor what is pressed: the strip, and the item in Waybar."""

import json
import unittest

from desktop.glimmet import PANEL, STRIP
from desktop.panels import WATCHER
from desktop.processes import wait_for, watch_for
from desktop.screen import DOUBLE_CLICK_TIME, Area
from sway_case import FEED, SwayCase

BAR_HEIGHT = 30
WAYBAR = {"layer": "top", "height": BAR_HEIGHT, "modules-left": ["sway/workspaces"], "modules-right": ["tray"],
          "tray": {"icon-size": 21}}
FEED_BAR = WAYBAR | {"modules-right": ["custom/glimmet"],
                     "custom/glimmet": {"exec": f"{FEED} --waybar", "return-type": "json",
                                        "on-click": f"{FEED} --activate"}}
EMPTY_BAR = WAYBAR | {"modules-right": []}


class WaybarCase(SwayCase):
    def start_waybar(self, configuration=None):
        file = self.desktop.folder / "waybar.json"
        file.write_text(json.dumps(configuration or WAYBAR))
        bar = self.desktop.start("waybar", ["waybar", "--config", str(file)])
        self.addCleanup(self.stop_waybar, bar)
        return bar

    def stop_waybar(self, bar):
        self.desktop.stop(bar)
        wait_for(lambda: not self.desktop.bus.owner(WATCHER), 10, "the bar to be gone")


class Strip(WaybarCase):
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


class Outputs(WaybarCase):
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


class Item(WaybarCase):
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


class WithoutXServer(WaybarCase):
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


class Feed(WaybarCase):
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


del SwayCase, WaybarCase

if __name__ == "__main__":
    unittest.main()
