"""Pictures of the panel where something else is on the screen than the window has."""

import tempfile
import unittest
from pathlib import Path

from desktop import pictures
from desktop.processes import wait_for
from desktop.screen import Area
from desktop_case import DesktopCase

OTHER = "Event Tester"


class PicturesOfThePanel(DesktopCase):
    compositor = True

    def setUp(self):
        super().setUp()
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.path = self.folder / "panel.png"
        self.launch()
        self.panel = self.glimmet.ask_for_panel()

    def cover(self):
        """Puts another program's window, over which the window manager has no say, on the panel."""
        self.addCleanup(self.desktop.stop, self.desktop.start("other", ["xev"]))
        self.screen.wait_for_window(OTHER)
        window, = self.screen.windows(OTHER)
        x, y = self.panel.middle
        spot = Area(x, y, 20, 20)
        free = self.screen.pixels(spot)
        self.screen.run("xdotool", "windowunmap", "--sync", window, "set_window", "--overrideredirect", "1", window)

        def covered():
            self.screen.run("xdotool", "windowmap", window, "windowmove", window, str(x), str(y), "windowraise", window)
            return self.screen.pixels(spot) != free

        wait_for(covered, 10, "the other window over the panel")

    def test_are_of_the_panel_and_its_surroundings(self):
        taken = pictures.take_panel(self.glimmet, self.path)

        self.assertEqual((taken.paths, taken.fault), ((self.path,), ""))
        size = self.screen.run("identify", "-format", "%w %h", str(self.path)).split()
        around = pictures._with_surroundings(self.glimmet, self.panel)
        self.assertEqual(size, [str(around.width), str(around.height)])

    def test_are_kept_apart_where_the_screen_shows_something_else_than_the_window_has(self):
        self.cover()

        taken = pictures.take_panel(self.glimmet, self.path)

        self.assertIn("the screen differs from the window", taken.fault)
        self.assertEqual(taken.tries, pictures.TRIES)
        self.assertEqual([path.name for path in taken.paths], ["panel-differs.png", "panel-window.png"])
        self.assertEqual(sorted(self.folder.iterdir()), sorted(taken.paths))
        size = self.screen.run("identify", "-format", "%w %h", str(taken.paths[1])).split()
        self.assertEqual(Area(0, 0, *map(int, size)), Area(0, 0, self.panel.width, self.panel.height))


if __name__ == "__main__":
    unittest.main()
