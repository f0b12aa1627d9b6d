"""What the tests of Plasma have in common, which run on whichever version is installed."""

import shutil

from gi.repository import GLib

from desktop.panels import PANELS, RunningPanel
from desktop.processes import wait_for
from desktop_case import DesktopCase

SHELL = ("org.kde.plasmashell", "/PlasmaShell", "org.kde.PlasmaShell")


def is_plasma_there():
    return all(map(shutil.which, ("plasmashell", "kwin_x11", "kwin_wayland")))


class PlasmaShell:
    """Its panels, as scripts set them up that the shell runs."""
    panel = "plasma"

    @classmethod
    def start_shell(cls):
        cls.running = RunningPanel(cls.desktop, cls.panel).start()
        cls.environment = cls.running.kind.environment
        cls.wait_for_bar()

    @classmethod
    def wait_for_bar(cls):
        wait_for(lambda: cls.script("print(panels().length)") == "1", 60, "Plasma's panel")

    @classmethod
    def script(cls, text):
        """Returns what the script printed."""
        try:
            return cls.desktop.bus.call(*SHELL, "evaluateScript", GLib.Variant("(s)", (text,)))[0]
        except GLib.Error:
            return ""  # It is just starting.


class PlasmaCase(PlasmaShell, DesktopCase):
    @classmethod
    def setUpClass(cls):
        cls.kind = PANELS[cls.panel].desktop
        super().setUpClass()
        cls.start_shell()
