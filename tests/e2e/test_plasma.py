"""The text in a panel of Plasma's, by the widget that comes with the program."""

import re
import shutil
import unittest
from pathlib import Path

from gi.repository import GLib

from desktop.glimmet import ITEM, ITEM_INTERFACE, NAME, PANEL, STRIP
from desktop.processes import wait_for, watch_for
from desktop.screen import DOUBLE_CLICK_TIME, Area
from plasma_case import PlasmaCase, is_plasma_there

WIDGET = Path(__file__).resolve().parent.parent.parent / "desktops" / "plasma"
WIDGET_NAME = "me.kerno.glimmet.TopBar"
OBJECT = ("/me/kerno/glimmet/TopBar", "me.kerno.glimmet.TopBar1")
# What the widget speaks by. Tried with Plasma 6.3.
IMPORT = "*/qt6/qml/org/kde/plasma/workspace/dbus"
TIME = r"\d\d:\d\d:\d\d"
ROUNDS = 10
# Pixels; a floating panel keeps away from its edge.
AT_THE_EDGE = 10
# What the shell's accessibility tree calls the widget, in older and newer libraries.
BUTTON = ("push button", "button")


def reason_to_skip():
    is_there = is_plasma_there() and any(Path("/usr/lib").glob(IMPORT))
    return None if is_there else "there is no Plasma 6 (scripts/setup desktops, from Debian 13 on)"


class WidgetCase(PlasmaCase):
    scale = 1

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        shutil.copytree(WIDGET / "contents", cls.widget_folder() / "contents")
        shutil.copy(WIDGET / "metadata.json", cls.widget_folder())
        cls.add_widget()

    @classmethod
    def widget_folder(cls):
        return cls.desktop.home / ".local" / "share" / "plasma" / "plasmoids" / NAME

    @classmethod
    def add_widget(cls):
        cls.script(f"panels()[0].addWidget('{NAME}')")
        wait_for(lambda: cls.desktop.bus.owner(WIDGET_NAME), 30, "the widget")

    @classmethod
    def remove_widgets(cls):
        cls.script(f"panels()[0].widgets('{NAME}').forEach(widget => widget.remove())")
        wait_for(lambda: not cls.desktop.bus.owner(WIDGET_NAME), 30, "the widget to go")

    def status(self):
        return self.desktop.bus.get(NAME, ITEM, ITEM_INTERFACE, "Status")

    def wait_for_status(self, status):
        wait_for(lambda: self.status() == status, 10, f"the item to be {status}")

    def setUp(self):
        super().setUp()
        self.launch(self.environment)
        self.widget = self.wait_for_widget()

    def widgets(self):
        """The widgets in sight that show a time, each with its text."""
        found = []
        for node in self.desktop.tree.program("plasmashell").walk():
            try:
                if node.role in BUTTON and node.showing and re.fullmatch(TIME, node.name):
                    found.append((self.in_pixels(node.area), node.name))
            except GLib.Error:
                pass  # It went while it was looked at.
        return found

    def in_pixels(self, area):
        return Area(*(length * self.scale for length in (area.x, area.y, area.width, area.height)))

    def wait_for_widget(self):
        """Returns where the widget is once it stays there."""
        def area():
            before = self.widgets()
            watch_for(1)
            return before[0][0] if before and [one[0] for one in before] == [one[0] for one in self.widgets()] else None

        return wait_for(area, 40, "the widget in the panel")

    def press(self, button=1):
        self.screen.click(*self.widget.middle, button)

    def open(self, button=1, edge="bottom"):
        self.press(button)
        self.assert_beside_widget(self.glimmet.wait_for_panel(), edge)

    def assert_beside_widget(self, panel, edge="bottom"):
        self.assert_on_screen(panel)
        gaps = {"bottom": self.widget.y - panel.bottom, "top": panel.y - self.widget.bottom,
                "left": panel.x - self.widget.right, "right": self.widget.x - panel.right}
        self.assertTrue(-8 <= gaps[edge] < 24 * self.scale, f"panel {panel} not at the widget {self.widget}")
        if edge in ("left", "right"):
            self.assertTrue(panel.y < self.widget.bottom and panel.bottom > self.widget.y, f"{panel}, {self.widget}")
        elif panel.right < self.screen.area.right - 10:
            self.assertLessEqual(abs(panel.middle[0] - self.widget.middle[0]), 1)

    def open_by_each_button_ten_times(self):
        for round_ in range(ROUNDS):
            self.open(1 + round_ % 2)
            self.keep_picture(f"{self.panel}-widget")
            watch_for(DOUBLE_CLICK_TIME)
            self.press(1 + round_ % 2)
            self.screen.wait_until_gone(PANEL)
            watch_for(DOUBLE_CLICK_TIME)
            self.assertFalse(self.glimmet.is_panel_open())

    def open_at_every_edge(self):
        self.addCleanup(self.script, "panels()[0].location = 'bottom'")
        for edge in ("top", "left", "right", "bottom"):
            with self.subTest(edge):
                self.script(f"panels()[0].location = '{edge}'")
                wait_for(lambda: any(edge in self.edges_near(area) for area, _ in self.widgets()), 20, edge)
                self.widget = self.wait_for_widget()
                self.open(edge=edge)
                self.glimmet.close_panel()

    def edges_near(self, area):
        """The edges of the screen beside which an area is."""
        distances = {"left": area.x, "top": area.y, "right": self.screen.area.right - area.right,
                     "bottom": self.screen.area.bottom - area.bottom}
        return [edge for edge, distance in distances.items() if distance <= AT_THE_EDGE]


class Widget(WidgetCase):
    def sights_of_five_changes(self):
        """Each text that the widget showed until it had changed five times, with where it was."""
        texts = set()

        def has_changed_five_times():
            texts.update(self.widgets())
            return len(texts) > 5

        wait_for(has_changed_five_times, 20, "the text to change five times")
        return texts

    def test_shows_nothing_but_the_text_and_changes_it_each_second(self):
        self.assertEqual({area for area, _ in self.sights_of_five_changes()}, {self.widget})

    def test_asks_once_for_each_change(self):
        watch = "interface='me.kerno.glimmet.TopBar1',member='AwaitChange'"
        monitor = self.desktop.start("monitor", ["dbus-monitor", watch])
        self.addCleanup(self.desktop.stop, monitor)
        wait_for(self.questions, 10, "the widget's question")
        before = self.questions()

        self.sights_of_five_changes()

        self.assertIn(self.questions() - before, range(4, 8))

    def questions(self):
        return self.desktop.log("monitor").count("member=AwaitChange")

    def test_the_item_is_passive_meanwhile(self):
        self.wait_for_status("Passive")
        self.assertEqual(self.screen.windows(STRIP), [])

    def test_opens_and_closes_by_single_clicks_ten_times_in_a_row(self):
        self.open_by_each_button_ten_times()

    def test_closes_on_a_click_elsewhere_and_opens_by_the_next(self):
        self.open()

        self.click_elsewhere()

        self.screen.wait_until_gone(PANEL)
        self.open()

    def test_closes_on_escape(self):
        self.open()

        self.glimmet.close_panel()

        self.assertFalse(self.glimmet.is_panel_open())

    def test_a_launch_opens_the_panel_at_the_widget(self):
        self.assert_beside_widget(self.glimmet.ask_for_panel())

    def test_opens_at_the_widget_on_every_edge(self):
        self.open_at_every_edge()

    def test_the_text_goes_and_comes_with_the_program(self):
        self.glimmet.stop()
        wait_for(lambda: not self.widgets(), 10, "the text to go")

        self.launch(self.environment)
        self.widget = self.wait_for_widget()

        self.open()

    def test_comes_back_after_a_crash_of_the_shell(self):
        # What the user changed is on disk a while later.
        wait_for(lambda: NAME in self.layout(), 60, "the shell to keep the widget")
        self.running.kill()
        self.wait_for_status("Active")

        self.running.start()

        self.wait_for_status("Passive")
        self.widget = self.wait_for_widget()
        self.open()

    def layout(self):
        path = self.desktop.home / ".config" / "plasma-org.kde.plasma.desktop-appletsrc"
        return path.read_text() if path.exists() else ""

    def test_the_item_is_back_while_the_widget_is_not_in_the_panel(self):
        self.wait_for_status("Passive")
        self.addCleanup(self.add_widget)

        self.remove_widgets()

        self.wait_for_status("Active")

    def test_two_widgets_show_the_text_and_one_may_go(self):
        self.addCleanup(self.remove_widgets)
        self.add_widget()
        wait_for(lambda: len(self.widgets()) == 2, 20, "both widgets")

        self.script(f"panels()[0].widgets('{NAME}')[0].remove()")

        wait_for(lambda: len(self.widgets()) == 1, 20, "one widget")
        self.wait_for_status("Passive")
        self.widget = self.wait_for_widget()
        self.open()
        self.glimmet.close_panel()

    def test_nobody_but_the_shell_may_say_what_it_says(self):
        place = GLib.Variant("(iiiiii)", (0, 0, 10, 10, 100, 100))
        for method, arguments in (("Toggle", place), ("AwaitChange", GLib.Variant("(sb)", ("", False)))):
            with self.subTest(method), self.assertRaisesRegex(GLib.Error, "AccessDenied"):
                self.desktop.bus.call(NAME, *OBJECT, method, arguments)

        self.assertFalse(self.glimmet.is_panel_open())


class WidgetUnderWayland(WidgetCase):
    panel = "plasma-wayland"

    def test_opens_and_closes_by_single_clicks_ten_times_in_a_row(self):
        self.open_by_each_button_ten_times()
        self.assertEqual(self.status(), "Passive")

    def test_opens_at_the_widget_on_every_edge(self):
        self.open_at_every_edge()

    def test_has_the_keyboard_while_it_is_open(self):
        self.open()

        self.screen.key("Tab")
        wait_for(self.glimmet.focused_control, 10, "a control to have the keyboard")
        self.glimmet.close_panel()

        self.assertFalse(self.glimmet.is_panel_open())

    def test_closes_by_a_press_on_the_desktop_the_bar_and_another_window(self):
        self.desktop.start("window", ["xev", "-name", "another window", "-geometry", "200x200+100+200"])
        other = self.screen.wait_for_window("another window")
        for place in (other.middle, (self.screen.area.width // 2, self.widget.middle[1]), (400, 600)):
            with self.subTest(place):
                self.open()
                watch_for(1)
                self.screen.click(*place)
                self.screen.wait_until_gone(PANEL)
                # A click that comes sooner may be the one that took the keyboard away.
                watch_for(1)
                self.open()
                self.glimmet.close_panel()


class WidgetAtScaleTwo(WidgetCase):
    panel = "plasma-wayland"
    scale = 2

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.desktop.run("env", "QT_QPA_PLATFORM=wayland", "kscreen-doctor", f"output.X11-0.scale.{cls.scale}")
        half = f"{cls.screen.area.width // cls.scale}, {cls.screen.area.height // cls.scale}"
        wait_for(lambda: half in cls.screen.root_property("_NET_DESKTOP_GEOMETRY"), 10, "the scale")
        wait_for(lambda: "Xft.dpi:\\t192" in cls.screen.root_property("RESOURCE_MANAGER"), 10, "what X programs read")

    def test_opens_wholly_at_the_widget(self):
        self.open()

        panel = self.screen.area_of(PANEL)
        self.assertEqual(panel.width, 340 * self.scale)
        self.assertGreater(panel.height, 0.8 * self.screen.area.height)


del PlasmaCase, WidgetCase

if __name__ == "__main__":
    unittest.main()
