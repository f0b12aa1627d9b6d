"""The panel's place on low screens and at other scales."""

import signal
import unittest

from desktop.processes import wait_for
from desktop.screen import Area
from desktop_case import DesktopCase

SIZE = (340, 540)


class Geometry(DesktopCase):
    def open_at_scale(self, scale):
        self.launch({"QT_SCALE_FACTOR": str(scale)})
        self.strip = self.glimmet.wait_for_strip()
        return self.glimmet.open_panel()

    def assert_scaled(self, panel, scale):
        self.assertEqual((panel.width, panel.height), tuple(round(length * scale) for length in SIZE))

    def test_has_its_own_size_where_there_is_room(self):
        panel = self.open_at_scale(1)

        self.assert_on_screen(panel)
        self.assert_scaled(panel, 1)

    def test_grows_with_the_scale(self):
        panel = self.open_at_scale(1.25)

        self.assert_on_screen(panel)
        self.assert_under(panel, self.strip)
        self.assert_scaled(panel, 1.25)

    def test_is_lowered_where_the_scale_leaves_no_room(self):
        panel = self.open_at_scale(2)

        self.assert_on_screen(panel)
        self.assertEqual(panel.width, 2 * SIZE[0])
        self.assertLess(panel.height, 2 * SIZE[1])


class TextSize(DesktopCase):
    """Desktops tell the user's text size to X programs as dots an inch."""
    size = (1280, 1024)

    def prefer_text_at(self, scale):
        self.settings.write_text(f"Xft/DPI {round(96 * 1024 * scale)}\n")

    def change_text_to(self, scale):
        self.prefer_text_at(scale)
        self.daemon.send_signal(signal.SIGHUP)

    def setUp(self):
        super().setUp()
        self.settings = self.desktop.folder / "xsettings"
        self.prefer_text_at(1.25)
        self.daemon = self.desktop.start("xsettings", ["xsettingsd", "-c", str(self.settings)])
        self.addCleanup(self.desktop.stop, self.daemon)
        wait_for(self.has_settings, 15, "the desktop's settings")
        self.launch().wait_for_strip()

    def has_settings(self):
        return any("xsettingsd" in line for line in self.screen.run("xwininfo", "-root", "-tree").splitlines())

    def wait_for_panel(self, scale):
        wanted = tuple(round(length * scale) for length in SIZE)
        wait_for(lambda: (area := self.screen.area_of("glimmet")) and (area.width, area.height) == wanted, 15,
                 f"a panel {scale} times as large")
        self.assert_on_screen(self.screen.area_of("glimmet"))

    def test_scales_the_panel_as_a_whole(self):
        self.glimmet.open_panel()

        self.wait_for_panel(1.25)

    def test_scales_the_open_panel_when_it_changes(self):
        self.glimmet.open_panel()

        self.change_text_to(1.5)

        self.wait_for_panel(1.5)

    def test_cuts_nothing_off_the_open_panel_when_it_changes(self):
        self.glimmet.open_panel()

        for scale in (1.5, 1):
            self.change_text_to(scale)

            self.wait_for_panel(scale)
            size = "x".join(str(round(length * scale)) for length in SIZE)
            wait_for(lambda: f"shape extents:  {size}+0+0" in self.shape(), 15, f"a shape of {size}")

    def shape(self):
        """What the window system leaves of the panel's window."""
        return self.screen.run("xwininfo", "-shape", "-id", self.screen.windows("glimmet")[0])

    def test_scales_the_next_panel_when_it_changes(self):
        self.change_text_to(1)
        self.glimmet.open_panel()

        self.wait_for_panel(1)


class ShrinkingScreen(DesktopCase):
    # Timings that no monitor has to keep: the virtual screen takes any.
    MODE = ("smaller", "40", "800", "840", "920", "1056", "480", "481", "484", "500")

    def shrink(self):
        self.screen.run("xrandr", "--newmode", *self.MODE)
        self.screen.run("xrandr", "--addmode", "screen", self.MODE[0])
        self.screen.run("xrandr", "--output", "screen", "--mode", self.MODE[0])
        return Area(0, 0, 800, 480)

    def test_an_open_panel_comes_along_when_its_screen_becomes_smaller(self):
        self.launch().wait_for_strip()
        self.glimmet.open_panel()

        smaller = self.shrink()

        wait_for(lambda: smaller.contains(self.screen.area_of("glimmet")), 15, "the panel on the smaller screen")


class LowScreen(DesktopCase):
    size = (800, 480)

    def test_a_screen_lower_than_the_panel_lowers_it(self):
        self.launch().wait_for_strip()

        panel = self.glimmet.open_panel()

        self.assert_on_screen(panel)
        self.assertEqual(panel.width, SIZE[0])
        self.assertGreater(panel.height, 400)

    def test_the_lowered_panel_keeps_its_footer(self):
        self.launch().wait_for_strip()
        self.glimmet.open_panel()

        self.assert_on_screen(self.glimmet.control("Quit", "push button").area)


class CornersCase(DesktopCase):
    WHITE = "ffffff"  # which the panel is nowhere at its edges

    def colors(self, areas):
        return [self.screen.pixels(area).hex() for area in areas]

    def put_white_behind(self):
        """A window: not every compositor paints the root window's colour."""
        whole = self.screen.area
        behind = self.desktop.start("backdrop", ["xev", "-event", "mouse", "-geometry",
                                                 f"{whole.width}x{whole.height}+0+0"])
        self.addCleanup(self.desktop.stop, behind)
        middle = Area(*whole.middle, 1, 1)
        wait_for(lambda: self.colors([middle]) == [self.WHITE], 15, "a white window")

    def assert_corners_show_what_is_behind(self):
        self.put_white_behind()
        self.launch().wait_for_strip()
        panel = self.glimmet.open_panel()

        corners = [Area(x, panel.bottom - 1, 1, 1) for x in (panel.x, panel.right - 1)]
        inside = Area(panel.middle[0], panel.bottom - 1, 1, 1)
        wait_for(lambda: self.colors(corners) == [self.WHITE] * 2, 15, "the white window at the panel's corners")
        self.assertNotEqual(self.colors([inside]), [self.WHITE])


class Corners(CornersCase):
    def test_show_what_is_behind_without_a_compositor(self):
        self.assert_corners_show_what_is_behind()


class CompositedCorners(CornersCase):
    compositor = True

    def test_show_what_is_behind_with_a_compositor(self):
        self.assert_corners_show_what_is_behind()


if __name__ == "__main__":
    unittest.main()
