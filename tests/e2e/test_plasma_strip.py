"""Plasma without the program's widget: the text in the strip beside its panels, and a symbol in its tray."""

import unittest

from desktop.glimmet import PANEL, STRIP
from desktop.processes import wait_for, watch_for
from desktop.screen import DOUBLE_CLICK_TIME, Area
from icon_panel_case import IconPanelCase
from plasma_case import PlasmaCase, PlasmaShell, is_plasma_there

BAR = 40
# Of the panel that Plasma has at first, with room for a later version's.
HIGHEST_BAR = 60
ADD_BAR = f"""
    const bar = new Panel;
    bar.location = 'top';
    bar.height = {BAR};
"""
REMOVE_BAR = "panels().filter(bar => bar.location === 'top').forEach(bar => bar.remove())"


def reason_to_skip():
    return None if is_plasma_there() else "there is no Plasma (scripts/setup desktops)"


class Symbol(PlasmaShell, IconPanelCase):
    is_beside_strip = True

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.wait_for_bar()
        screen = cls.screen.area
        cls.bars = Area(0, screen.bottom - HIGHEST_BAR, screen.width, HIGHEST_BAR)


class Strip(PlasmaCase):
    def setUp(self):
        super().setUp()
        self.launch(self.environment)
        self.strip = self.glimmet.wait_for_strip()

    def press(self, button=1):
        self.screen.click(*self.strip.middle, button)

    def open(self, button=1):
        self.press(button)
        panel = self.glimmet.wait_for_panel()
        self.assert_on_screen(panel)
        self.assert_under(panel, self.strip)
        self.assertLess(abs(panel.middle[0] - self.strip.middle[0]), 2)

    def test_opens_under_the_strip_and_closes_by_a_second_click_of_each_button(self):
        for button in (1, 2, 3):
            self.open(button)
            self.keep_picture("plasma-strip")
            watch_for(DOUBLE_CLICK_TIME)
            self.press(button)
            self.screen.wait_until_gone(PANEL)
            watch_for(DOUBLE_CLICK_TIME)
            self.assertFalse(self.glimmet.is_panel_open())

    def test_closes_by_a_press_on_the_desktop_the_bar_and_another_window(self):
        window = self.desktop.start("window", ["xev", "-name", "another window", "-geometry", "200x200+100+300"])
        self.addCleanup(self.desktop.stop, window)
        other = self.screen.wait_for_window("another window")
        bar = (self.screen.area.width // 2, self.screen.area.bottom - 10)
        for place in (other.middle, bar, (400, 700)):
            with self.subTest(place):
                self.open()
                self.screen.click(*place)
                self.screen.wait_until_gone(PANEL)
                self.press()
                self.glimmet.wait_for_panel()
                self.glimmet.close_panel()

    def test_stands_below_a_bar_that_comes_and_goes_and_takes_no_room(self):
        self.addCleanup(self.script, REMOVE_BAR)

        self.script(ADD_BAR)
        wait_for(lambda: self.screen.area_of(STRIP).y >= BAR, 20, "the strip below the bar")
        self.strip = self.screen.area_of(STRIP)
        self.open()
        self.glimmet.close_panel()
        self.assertEqual(self.room_above(), self.strip.y)
        self.script(REMOVE_BAR)

        wait_for(lambda: self.screen.area_of(STRIP).y == 0, 20, "the strip at the edge")
        wait_for(lambda: self.room_above() == 0, 10, "all the room for windows")

    def room_above(self):
        """How much of the screen's upper edge is kept from windows."""
        return int(self.screen.root_property("_NET_WORKAREA").split("=")[1].split(",")[1])

    def test_goes_on_while_the_shell_is_away_and_comes_back(self):
        for stays_away in (0, 8):
            self.running.kill()
            self.assert_goes_on(2 + stays_away)
            self.running.start()
            self.assert_goes_on(6)
        self.wait_for_bar()

        self.open()

    def assert_goes_on(self, seconds):
        """The strip stays at its edge, and its text changes. A wider text may widen it."""
        window, = self.screen.windows(STRIP)
        pictures = set()

        def look():
            area = self.screen.window_area(window)
            self.assertTrue(area and area.y == self.strip.y, f"{area}, not {self.strip}")
            pictures.add(self.screen.pixels(self.strip))

        watch_for(seconds, look)
        self.assertGreaterEqual(len(pictures), seconds - 2)

    def test_stands_while_a_shell_has_yet_to_start_and_loses_no_bus(self):
        self.glimmet.stop()
        self.running.kill()

        self.launch(self.environment)
        self.strip = self.glimmet.wait_for_strip()
        self.assert_goes_on(10)
        self.running.start()
        self.assert_goes_on(6)

        self.wait_for_bar()
        self.assertNotIn("session bus: lost", self.glimmet.output())


del PlasmaCase, IconPanelCase

if __name__ == "__main__":
    unittest.main()
