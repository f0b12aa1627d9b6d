"""The text as a button of GNOME Shell's own, by the extension that comes with the program."""

import os
import unittest

from gi.repository import GLib

from desktop import gnome
from desktop.glimmet import ITEM, ITEM_INTERFACE, NAME, PANEL
from desktop.processes import DesktopError, wait_for, watch_for
from desktop.top_bar import buttons, buttons_in_peace, set_extension, wait_for_button
from desktop_case import DesktopCase

OBJECT = ("/me/kerno/glimmet/TopBar", "me.kerno.glimmet.TopBar1")
ROUNDS = 10
# Seconds in which a press that is taken for a second one would have shown.
TIME_TO_OPEN = 1


class TopBarCase(DesktopCase):
    kind = "gnome"
    shell_extensions = os.environ["GLIMMET_SHELL_EXTENSIONS"]

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        set_extension(cls.desktop, True)

    def setUp(self):
        super().setUp()
        self.launch()
        self.button = wait_for_button(self.desktop)

    def press(self, button=1):
        self.screen.click(*self.button.middle, button)

    def open(self, button=1):
        self.press(button)
        panel = self.glimmet.wait_for_panel()
        self.assert_under(panel, self.button)
        self.assert_on_screen(panel)
        return panel

    def status(self):
        return self.desktop.bus.get(NAME, ITEM, ITEM_INTERFACE, "Status")

    def wait_for_status(self, status):
        wait_for(lambda: self.status() == status, 10, f"the item to be {status}")

    def wait_until_closed(self):
        self.screen.wait_until_gone(PANEL)


class OnBothDisplays:
    """What has to hold however the shell shows windows."""

    def test_shows_nothing_but_the_text_and_changes_it_each_second(self):
        texts = set()

        def has_changed_three_times():
            texts.update(text for _, text in buttons(self.desktop))
            return len(texts) > 3

        wait_for(has_changed_three_times, 15, "the text to change three times")
        for text in texts:
            self.assertRegex(text, r"^\d\d:\d\d:\d\d$")

    def test_the_item_is_passive_meanwhile(self):
        self.wait_for_status("Passive")

    def test_opens_and_closes_by_single_clicks_ten_times_in_a_row(self):
        for _ in range(ROUNDS):
            self.open()
            self.keep_picture(f"gnome-{'wayland' if self.is_wayland else 'x11'}")
            self.press()
            self.wait_until_closed()

    def test_a_second_click_closes_and_opens_nothing(self):
        self.open()
        self.press()
        self.wait_until_closed()

        watch_for(TIME_TO_OPEN)

        self.assertFalse(self.glimmet.is_panel_open())

    def test_the_open_panel_takes_what_is_typed(self):
        self.open()

        self.screen.key("Tab")
        first = wait_for(self.glimmet.focused_control, 15, "a control with the keyboard")
        self.screen.key("Tab")

        wait_for(lambda: self.glimmet.focused_control() not in (None, first), 15,
                 "the next control to have the keyboard")

    def test_closes_on_a_click_elsewhere_and_opens_by_the_next(self):
        self.open()

        self.click_elsewhere()

        self.wait_until_closed()
        self.open()

    def test_closes_on_a_click_at_the_bar_and_opens_by_the_next(self):
        self.open()

        # Where nothing of the bar's answers.
        self.screen.click(self.screen.area.width // 3, 10)

        self.wait_until_closed()
        self.open()


class GnomeExtension(OnBothDisplays, TopBarCase):
    def test_keeps_its_place_while_the_digits_change(self):
        areas = set()

        def has_changed_five_times():
            areas.update(buttons(self.desktop))
            return len(areas) > 5

        wait_for(has_changed_five_times, 20, "the text to change five times")
        self.assertEqual({area for area, _ in areas}, {self.button})

    def test_opens_on_a_right_click(self):
        self.open(3)

    def test_opens_on_a_middle_click(self):
        self.open(2)

    def test_closes_on_escape(self):
        self.open()

        self.glimmet.close_panel()

        self.assertFalse(self.glimmet.is_panel_open())

    def test_opens_out_of_the_overview(self):
        self.desktop.bus.set(*gnome.OVERVIEW, GLib.Variant("b", True))
        wait_for(lambda: self.desktop.bus.get(*gnome.OVERVIEW), 10, "the overview")

        self.open()

        wait_for(lambda: not self.desktop.bus.get(*gnome.OVERVIEW), 10, "the overview to close")

    def test_the_panel_is_above_and_on_every_workspace(self):
        self.open()

        panel, = self.screen.windows(PANEL)
        states = self.screen.run("xprop", "-id", panel, "_NET_WM_STATE")
        self.assertIn("_NET_WM_STATE_ABOVE", states)
        self.assertIn("_NET_WM_STATE_STICKY", states)

    def test_a_launch_opens_the_panel_under_the_button(self):
        panel = self.glimmet.ask_for_panel()

        self.assert_under(panel, self.button)

    def test_the_button_goes_and_comes_with_the_program(self):
        self.glimmet.stop()
        wait_for(lambda: not buttons_in_peace(self.desktop), 10, "the button to go")

        self.launch()
        self.button = wait_for_button(self.desktop)

        self.open()

    def test_the_item_is_back_while_the_extension_is_off(self):
        set_extension(self.desktop, False)
        self.addCleanup(set_extension, self.desktop, True)
        self.wait_for_status("Active")
        self.glimmet.wait_for_menu_bar()
        self.glimmet.open_panel()
        self.glimmet.close_panel()

        set_extension(self.desktop, True)
        self.wait_for_status("Passive")
        self.button = wait_for_button(self.desktop)
        self.open()

    def test_a_row_of_the_settings_switches_it(self):
        self.addCleanup(set_extension, self.desktop, True)
        self.glimmet.ask_for_panel()
        self.glimmet.control("Settings", "push button").press()
        row = self.glimmet.control("Show in the top bar as text", "check box")
        wait_for(lambda: row.checked, 10, "the switch to show that the extension runs")

        row.press()
        wait_for(lambda: not buttons_in_peace(self.desktop), 10, "the button to go")
        self.wait_for_status("Active")
        self.assertFalse(row.checked)

        row.press()
        self.button = wait_for_button(self.desktop)
        self.wait_for_status("Passive")
        self.assertTrue(row.checked)

    def test_nobody_but_the_shell_may_say_what_it_says(self):
        place = GLib.Variant("(iiiiii)", (0, 0, 10, 10, 100, 100))
        for method, arguments in (("Toggle", place), ("Place", place), ("PressElsewhere", None)):
            with self.subTest(method), self.assertRaisesRegex(GLib.Error, "AccessDenied"):
                self.desktop.bus.call(NAME, *OBJECT, method, arguments)

        self.assertFalse(self.glimmet.is_panel_open())
        self.open()


class GnomeExtensionUnderWayland(OnBothDisplays, TopBarCase):
    """Where no press at the shell's own parts comes to an X program."""
    is_wayland = True

    def test_opens_at_once_where_a_click_elsewhere_has_just_closed(self):
        for _ in range(ROUNDS):
            self.open()
            self.click_elsewhere()
            self.open()
            self.glimmet.close_panel()

    def test_opens_at_once_where_a_click_at_a_window_has_just_closed(self):
        other = self.desktop.start("other", ["xev"])
        self.addCleanup(self.desktop.stop, other)
        window = self.screen.wait_for_window("Event Tester")
        for _ in range(ROUNDS):
            self.open()
            self.screen.click(*window.middle)
            self.wait_until_closed()
            self.open()
            self.glimmet.close_panel()

    def test_a_press_inside_leaves_it_open(self):
        panel = self.open()

        self.screen.click(panel.x + panel.width // 2, panel.y + 70)

        watch_for(TIME_TO_OPEN)
        self.assertTrue(self.glimmet.is_panel_open())


class GnomeExtensionOnTwoMonitors(TopBarCase):
    """The bar is on the primary one, and so is the panel."""
    is_wayland = True
    monitors = 2
    size = (1920, 1200)

    def setUp(self):
        self.left, self.right = self.screen.monitors()
        super().setUp()

    def wait_for_button_on(self, monitor):
        def button():
            return next((area for area, _ in buttons_in_peace(self.desktop) if monitor.contains(area)), None)

        self.button = wait_for(button, 20, "the button in the bar of that monitor")

    def open_on(self, monitor):
        self.wait_for_button_on(monitor)
        panel = self.open()
        self.assertTrue(monitor.contains(panel), f"{panel} leaves {monitor}")

    def try_unplugging(self, primary, scales):
        areas = self.screen.show_on(scales, primary)
        # Shell 48 counts in smaller pixels from then on, and its X server in those of before.
        try:
            wait_for(self.screen.is_known_to_programs, 5, "the X server to hear of the monitors")
        except DesktopError:
            self.skipTest("no program can know where this shell's monitors are after a scale has changed")
        self.open_on(areas[primary])

        other, = set(scales) - {primary}
        areas = self.screen.show_on({other: scales[other]}, other)

        self.wait_until_closed()
        self.open_on(areas[other])
        self.assertIsNone(self.glimmet.process.poll())

    def test_the_panel_goes_with_its_monitor_and_opens_on_the_other(self):
        self.try_unplugging(self.right, {self.left: 1, self.right: 1})

    def test_the_panel_goes_with_a_monitor_of_twice_the_scale(self):
        self.try_unplugging(self.right, {self.left: 1, self.right: 2})

    def test_the_panel_goes_to_a_monitor_of_twice_the_scale(self):
        self.try_unplugging(self.left, {self.left: 1, self.right: 2})

    def test_the_panel_closes_with_a_monitor_beside_it_and_opens_again_where_it_was(self):
        areas = self.screen.show_on({self.left: 1, self.right: 1}, self.left)
        self.open_on(areas[self.left])

        areas = self.screen.show_on({self.left: 1}, self.left)

        self.wait_until_closed()
        self.open_on(areas[self.left])


if __name__ == "__main__":
    unittest.main()
