"""What the tests of whole desktops have in common: a fresh desktop a class, a fresh program a test."""

import base64
import json
import os
import shutil
import signal
import sys
import unittest
from pathlib import Path

from desktop.glimmet import PANEL, Glimmet
from desktop.screen import Area
from desktop.virtual_desktop import VirtualDesktop

BINARY = Path(os.environ["GLIMMET_BINARY"]).resolve(strict=True)
PICTURES = os.environ.get("GLIMMET_PICTURES")
# Interrupted from outside, the desktop is still taken down.
signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))


class DesktopCase(unittest.TestCase):
    kind = "strip"
    size = (1280, 800)
    compositor = False
    has_keyring = True
    shell_extensions = None
    is_wayland = False
    monitors = 1

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(VirtualDesktop(
            cls.kind, cls.size, cls.compositor, cls.has_keyring, cls.shell_extensions, cls.is_wayland,
            cls.monitors))
        cls.screen = cls.desktop.screen

    def setUp(self):
        shutil.rmtree(self.preferences.parent, ignore_errors=True)
        self.elsewhere()

    def run(self, result=None):
        before = len(result.failures) + len(result.errors)
        super().run(result)
        if len(result.failures) + len(result.errors) > before:
            print(f"--- what glimmet said in {self.id()}", getattr(self, "said", ""), sep="\n", file=sys.stderr)

    @property
    def preferences(self):
        return self.desktop.home / ".config" / "me.kerno.glimmet" / "preferences.json"

    def seed(self, values):
        """Writes the preferences that the next launch finds."""
        self.preferences.parent.mkdir(parents=True, exist_ok=True)
        self.preferences.write_text(json.dumps(values))

    def stored(self):
        return json.loads(self.preferences.read_text())

    def stored_deadlines(self):
        return json.loads(base64.b64decode(self.stored()["me.kerno.glimmet.deadlines"]["data"]))

    def begin(self, environment=None, **options):
        """Starts the program for this test, which also ends it."""
        self.glimmet = Glimmet(self.desktop, BINARY, environment, **options)
        self.addCleanup(self._end)
        return self.glimmet

    def launch(self, environment=None, **options):
        """The same, and reads its item once that is there."""
        return self.begin(environment, **options).wait_until_running()

    def _end(self):
        self.glimmet.stop()
        self.said = self.glimmet.output()
        if self.kind == "gnome":
            # The shell is slow to let go of an item, and slow to take one that comes meanwhile.
            self.glimmet.wait_until_off_the_shell()

    def elsewhere(self):
        """Puts the pointer where nothing of glimmet is."""
        self.screen.move(*self.empty_place)

    def click_elsewhere(self):
        self.screen.click(*self.empty_place)

    @property
    def empty_place(self):
        area = self.screen.area
        return area.x + area.width // 4, area.y + area.height * 3 // 4

    def keep_picture(self, name):
        """The open panel with what it hangs from, where the environment names a folder for such pictures."""
        if PICTURES:
            panel, screen = self.screen.area_of(PANEL), self.screen.area
            left, top = max(panel.x - 20, 0), max(panel.y - 44, 0)
            right, bottom = min(panel.right + 20, screen.right), min(panel.bottom + 44, screen.bottom)
            self.screen.screenshot(Path(PICTURES) / f"{name}.png", Area(left, top, right - left, bottom - top))

    def assert_on_screen(self, area):
        self.assertTrue(self.screen.area.contains(area), f"{area} leaves the screen {self.screen.area}")

    def assert_under(self, panel, item):
        """The panel hangs from the item: right below it, and beside neither end of it."""
        self.assertLess(abs(panel.y - item.bottom), 24, f"panel {panel} not right below {item}")
        self.assertLess(panel.x, item.right, f"panel {panel} right of {item}")
        self.assertGreater(panel.right, item.x, f"panel {panel} left of {item}")
