"""sway, which tells an X server neither where the pointer is nor what is pressed: the strip, and the item in Waybar."""

import socket
import sys
import unittest
from pathlib import Path

from desktop.glimmet import PANEL
from desktop.processes import wait_for, watch_for
from desktop.screen import DOUBLE_CLICK_TIME
from wlroots_case import BAR_HEIGHT, FeedCase, ItemCase, StripCase, WaybarCase


WAYLAND_WINDOW = """
import sys, gi
gi.require_version("Gtk", "4.0")
from gi.repository import GLib, Gtk
Gtk.init()
Gtk.Window(title=sys.argv[1]).present()
GLib.MainLoop().run()
"""


class SilentDisplay:
    """The place of an X server that refuses whoever comes, and from `listen` on takes connections and says nothing."""

    def __enter__(self):
        number = next(each for each in range(90, 200) if not self.path(each).exists())
        self.name = f":{number}"
        self._path = self.path(number)
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.bind(str(self._path))
        return self

    def __exit__(self, *_):
        self._socket.close()
        self._path.unlink()

    @staticmethod
    def path(number):
        return Path(f"/tmp/.X11-unix/X{number}")

    def listen(self):
        self._socket.listen()
        self._socket.settimeout(0)

    def has_been_asked(self):
        try:
            self._socket.accept()[0].close()
        except BlockingIOError:
            return False
        return True


class Strip(StripCase):
    kind = "sway"


class StripAmongWaylandWindows(WaybarCase):
    """Of which the X server knows nothing."""
    kind = "sway"

    def start_window(self, title):
        """A window that has the keyboard; returns its id in sway."""
        window = self.desktop.start(title, [sys.executable, "-c", WAYLAND_WINDOW, title], {"GDK_BACKEND": "wayland"})
        self.addCleanup(self.desktop.stop, window)
        return wait_for(lambda: next((each["id"] for each in self.screen.own_windows()
                                      if each["name"] == title and each["focused"]), None), 20, title)

    def give_keyboard(self, window):
        self.screen.message(f"[con_id={window}]", "focus")

    def test_the_panel_closes_where_a_key_binding_gives_another_window_the_keyboard(self):
        windows = [self.start_window("first"), self.start_window("second")]
        self.launch()
        self.wait_for_text(0, 26)  # or the strip itself, as it appears
        text = self.wait_for_text(0, 26)
        for window in windows:
            self.screen.click(*text.middle)
            self.assert_panel_under(text.middle[0], 26)
            self.press_controls()

            self.give_keyboard(window)

            self.screen.wait_until_gone(PANEL)
            watch_for(DOUBLE_CLICK_TIME)


class Item(ItemCase):
    kind = "sway"


class Outputs(WaybarCase):
    kind = "sway-in-windows"

    def setUp(self):
        super().setUp()
        self.first, = self.screen.outputs()

    def tearDown(self):
        while len(self.screen.outputs()) > 1:
            self.screen.unplug(list(self.screen.outputs())[-1])
        super().tearDown()

    def add_output(self, scale=1):
        """Returns the name of a second output, and where it is."""
        name = self.screen.add_output_beside(scale)
        return name, self.screen.outputs()[name]

    def launch_before_waybar(self):
        """A bar for each output has a tray of its own, of which one may miss an item that comes while both start."""
        self.launch()
        self.start_waybar()

    def open_panel_at(self, text, output, edge):
        self.screen.click(*text.middle)
        self.assert_panel_under(text.middle[0], edge)
        panel = self.screen.area_of(PANEL)
        self.assertTrue(output.contains(panel), f"{panel} leaves {output}")

    def close_panel(self):
        self.screen.key("Escape")
        self.screen.wait_until_gone(PANEL)
        watch_for(DOUBLE_CLICK_TIME)

    def try_outputs(self, scale):
        first = self.screen.area
        _, second = self.add_output(scale)
        self.launch_before_waybar()
        beside = self.wait_for_text(0, BAR_HEIGHT, left=first.right)

        self.open_panel_at(beside, second, BAR_HEIGHT)
        self.screen.click(first.x + 200, 600)
        self.screen.wait_until_gone(PANEL)
        watch_for(DOUBLE_CLICK_TIME)

        text = self.wait_for_text(0, BAR_HEIGHT, right=first.right)
        self.open_panel_at(text, first, BAR_HEIGHT)
        self.close_panel()

    def test_the_panel_opens_on_the_output_of_the_bar_that_was_clicked(self):
        self.try_outputs(1)

    def test_the_panel_opens_wholly_on_an_output_of_twice_the_scale(self):
        self.try_outputs(2)

    def test_the_panel_opens_wholly_on_an_output_of_a_fractional_scale(self):
        self.try_outputs(1.5)

    def test_the_panel_goes_with_its_output_and_opens_on_another(self):
        first = self.screen.area
        name, second = self.add_output()
        self.launch_before_waybar()
        self.open_panel_at(self.wait_for_text(0, BAR_HEIGHT, left=first.right), second, BAR_HEIGHT)

        self.screen.unplug(name)

        self.screen.wait_until_gone(PANEL)
        self.open_panel_at(self.wait_for_text(0, BAR_HEIGHT), first, BAR_HEIGHT)
        self.press_controls()
        self.close_panel()

    def test_the_strip_goes_to_another_output_when_its_own_is_unplugged_under_the_open_panel(self):
        first = self.screen.area
        _, second = self.add_output()
        self.launch()
        self.wait_for_text(0, 26)  # or the strip itself, as it appears
        self.open_panel_at(self.wait_for_text(0, 26), first, 26)

        self.screen.unplug(self.first)

        self.screen.wait_until_gone(PANEL)
        self.open_panel_at(self.wait_for_text(0, 26), second, 26)
        self.press_controls()
        self.close_panel()


class WithoutXServer(WaybarCase):
    """The bar's text is as ever; the panel is a window of the compositor's own."""
    kind = "sway"

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

    def test_asks_no_x_server_that_comes_later_and_never_greets(self):
        with SilentDisplay() as display:
            self.launch({"DISPLAY": display.name})
            text = self.wait_for_text(0, 26)
            display.listen()

            self.try_panel(*text.middle)

            self.assertFalse(display.has_been_asked())

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


class Feed(FeedCase):
    kind = "sway"


del StripCase, ItemCase, FeedCase, WaybarCase

if __name__ == "__main__":
    unittest.main()
