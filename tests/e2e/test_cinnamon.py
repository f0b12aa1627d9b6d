"""The item in Cinnamon's panel, which shows the text as a picture."""

import shutil
import unittest

from desktop.glimmet import STRIP
from desktop.panels import RunningPanel
from desktop_case import DesktopCase
from icon_panel_case import IconPanelCase, TextPanelCase


def reason_to_skip():
    return None if shutil.which("cinnamon") else "Cinnamon is not installed (scripts/setup desktops)"


class Cinnamon(TextPanelCase):
    panel = "cinnamon"
    widest = 100

    def test_shows_the_item_to_a_panel_that_starts_after_it(self):
        """What takes items stays there without the shell, and says that it shows them."""
        self.glimmet.stop()
        self.running.kill()
        self.launch(self.environment)

        self.running.start()

        self.wait_for_icon()
        self.assertEqual(self.screen.windows(STRIP), [])


class Login(DesktopCase):
    kind = "bare"

    def test_gives_the_strip_up_for_a_shell_that_starts_late(self):
        self.launch({"XDG_CURRENT_DESKTOP": "X-Cinnamon"}).wait_for_strip()

        RunningPanel(self.desktop, "cinnamon").start()

        self.screen.wait_until_gone(STRIP)


del IconPanelCase, TextPanelCase, DesktopCase

if __name__ == "__main__":
    unittest.main()
