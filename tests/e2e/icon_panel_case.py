"""What every panel has in common that shows items."""

from desktop.glimmet import ITEM, ITEM_INTERFACE, NAME, PANEL, STRIP
from desktop.panels import PANELS, WATCHER, RunningPanel, changed_area
from desktop.processes import wait_for, watch_for
from desktop.screen import DOUBLE_CLICK_TIME
from desktop_case import DesktopCase

# Of its ink, in pixels.
LEAST_ICON, WIDEST_ICON = 10, 40


class IconPanelCase(DesktopCase):
    """The class names the `panel`. An icon is found by what changes in the bars where only the mode does."""
    panel = None
    shows_labels = False
    is_beside_strip = False

    @classmethod
    def setUpClass(cls):
        cls.kind = PANELS[cls.panel].desktop
        super().setUpClass()
        cls.running = RunningPanel(cls.desktop, cls.panel).start()
        cls.environment = cls.running.kind.environment
        cls.bars = cls.screen.area
        cls.icon = None

    def setUp(self):
        super().setUp()
        type(self).icon = type(self).icon or self.find_icon()
        self.launch(self.environment)
        self.wait_for_icon()

    def find_icon(self):
        """The program shows it in one mode and then in another; nothing else in the bars changes meanwhile."""
        self.launch(self.environment)

        def icon():
            before = self.picture_of("Clock")
            area = changed_area(before, self.picture_of("Custom"), self.bars)
            return area if area and LEAST_ICON <= area.width <= WIDEST_ICON else None

        found = wait_for(icon, 60, "the icon of another mode in the place of the one before")
        self.glimmet.stop()
        return found

    def picture_of(self, mode):
        """The bars with the program in that mode."""
        self.glimmet.ask_for_panel()
        self.glimmet.choose_mode(mode)
        self.glimmet.close_panel()
        watch_for(1)  # A bar draws in its own time.
        return self.screen.pixels(self.bars)

    def wait_for_icon(self):
        wait_for(lambda: len(set(self.screen.pixels(self.icon))) > 8, 15, "the icon")

    def click(self, button=1):
        self.screen.click(*self.icon.middle, button)

    def tool_tip(self):
        return self.desktop.bus.get(NAME, ITEM, ITEM_INTERFACE, "ToolTip")[2]

    def popup(self):
        """Where the panel's own menu is, None while none is open."""
        kind = self.running.kind
        menus = filter(self.screen.is_menu, self.screen.windows_of(kind.menus or kind.command[0]))
        return next(filter(None, map(self.screen.window_area, menus)), None)

    def open_menu(self):
        """Returns where the menu is once it stays there: its entries come after it."""
        self.click(3)

        def menu():
            before = self.popup()
            watch_for(0.3)
            return before if before and before == self.popup() else None

        return wait_for(menu, 10, "the menu")

    def assert_beside_icon(self, panel):
        self.assert_on_screen(panel)
        self.assertLess(abs(panel.x + panel.width // 2 - self.icon.middle[0]), panel.width, f"{panel}, {self.icon}")
        above, below = self.icon.y - panel.bottom, panel.y - self.icon.bottom
        self.assertTrue(-4 <= above < 40 or -4 <= below < 40, f"panel {panel} not at the icon {self.icon}")

    def test_the_panel_is_told_of_labels_only_where_it_shows_them(self):
        told, text = len(self.glimmet.labels), self.glimmet.label
        wait_for(lambda: self.glimmet.label != text, 15, "the next second")
        self.assertEqual(len(self.glimmet.labels) > told, self.shows_labels)

    def test_opens_at_the_icon_and_closes_by_a_second_click(self):
        for button in (1, 2):
            self.click(button)
            self.assert_beside_icon(self.glimmet.wait_for_panel())
            watch_for(DOUBLE_CLICK_TIME)
            self.keep_picture(self.panel)
            self.click(button)
            self.screen.wait_until_gone(PANEL)
            watch_for(DOUBLE_CLICK_TIME)

    def test_closes_on_a_click_elsewhere(self):
        self.click()
        self.glimmet.wait_for_panel()

        self.click_elsewhere()

        self.screen.wait_until_gone(PANEL)

    def test_offers_a_menu_on_the_right_button_that_opens_and_quits(self):
        menu = self.open_menu()
        self.assertFalse(self.glimmet.is_panel_open())

        self.screen.click(menu.x + menu.width // 2, menu.y + menu.height // 4)
        self.assert_beside_icon(self.glimmet.wait_for_panel())
        self.glimmet.close_panel()
        menu = self.open_menu()
        self.screen.click(menu.x + menu.width // 2, menu.y + menu.height * 3 // 4)

        self.assertEqual(self.glimmet.process.wait(10), 0)

    def test_shows_no_tooltip_over_the_open_panel(self):
        self.assertTrue(self.tool_tip())

        self.click()
        self.glimmet.wait_for_panel()
        self.assertEqual(self.tool_tip(), "")
        self.glimmet.close_panel()

        wait_for(self.tool_tip, 5, "a tooltip again")

    def test_comes_back_after_a_crash_of_the_panel(self):
        for _ in range(3):
            self.running.kill()
            self.running.start()
            wait_for(lambda: self.desktop.bus.get(WATCHER, "/StatusNotifierWatcher", WATCHER,
                                                  "RegisteredStatusNotifierItems"), 15, "the item to register")

        self.elsewhere()
        self.wait_for_icon()
        if self.is_beside_strip:
            self.glimmet.wait_for_strip()
        else:
            self.assertEqual(self.screen.windows(STRIP), [])
        self.click()
        self.glimmet.wait_for_panel()

    def test_shows_the_item_to_a_panel_that_starts_after_it(self):
        self.running.kill()
        self.glimmet.wait_for_strip()

        self.running.start()

        self.wait_for_icon()
        if not self.is_beside_strip:
            self.screen.wait_until_gone(STRIP)


class TextPanelCase(IconPanelCase):
    """A panel that shows the text itself, which is found by its seconds; what changes then is at most `widest`."""
    widest = WIDEST_ICON

    def find_icon(self):
        """Each time anew: it moves with what is beside it."""

    def wait_for_icon(self):
        def seconds():
            before = self.screen.pixels(self.screen.area)
            watch_for(1.1)
            area = changed_area(before, self.screen.pixels(self.screen.area), self.screen.area)
            return area if area and area.width <= self.widest else None

        type(self).icon = wait_for(seconds, 30, "nothing but the text to change")

    def test_shows_the_text_itself(self):
        already = self.screen.pixels(self.icon)

        wait_for(lambda: self.screen.pixels(self.icon) != already, 15, "the shown text to change")

        self.assertRegex(self.glimmet.label, r"^\d\d:\d\d:\d\d$")
