"""glimmet as the desktop sees it: its item on the bus, its windows and its panel's accessibility tree."""

import time

from gi.repository import GLib

from desktop.accessibility import find_when_there
from desktop.processes import wait_for

NAME = "me.kerno.glimmet"
ITEM = "/StatusNotifierItem"
ITEM_INTERFACE = "org.kde.StatusNotifierItem"
PANEL = "glimmet"
STRIP = "glimmet strip"


class Glimmet:
    """One launch of the program in a virtual desktop."""

    def __init__(self, desktop, binary, environment=None, wrapper=(), **options):
        self.desktop = desktop
        self._binary = str(binary)
        self.labels = []
        self._stop_following = desktop.bus.follow(NAME, ITEM_INTERFACE, "XAyatanaNewLabel", self._note_label)
        self.started = time.monotonic()
        self.process = desktop.start("glimmet", [*wrapper, self._binary], environment, **options)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()

    def _note_label(self, label, _guide):
        self.labels.append((time.monotonic(), label))

    def wait_until_running(self, seconds=15):
        """Returns once the item is on the bus."""
        wait_for(self.is_on_the_bus, seconds, "glimmet on the session bus")
        return self

    def is_on_the_bus(self):
        try:
            return self.process.poll() is None and bool(self.label)
        except GLib.Error:
            return False  # Neither name nor item yet, or the name alone.

    @property
    def label(self):
        return self.desktop.bus.get(NAME, ITEM, ITEM_INTERFACE, "XAyatanaLabel")

    def wait_for_label(self, wanted, seconds=5):
        """Returns the first label, now or later, for which `wanted(label)` holds."""
        def label_if_wanted():
            label = self.label
            return label if wanted(label) else None

        return wait_for(label_if_wanted, seconds, f"another label than “{self.label}”")

    def wait_for_strip(self, seconds=15):
        return self.desktop.screen.wait_for_window(STRIP, seconds)

    def menu_bar_area(self):
        """Where the text is in the menu bar: the strip, or the item in the shell's top bar. None while it is not."""
        if self.desktop.kind == "strip":
            return self.desktop.screen.area_of(STRIP)
        screen = self.desktop.screen.area
        shell = self.desktop.tree.program("gnome-shell")
        items = (node for node in shell.walk() if node.is_called("glimmet", ("menu",)))
        return next((item.area for item in items if screen.contains(item.area)), None)

    def wait_for_menu_bar(self, seconds=15):
        return wait_for(self.menu_bar_area, seconds, "the text in the menu bar")

    def click_point(self):
        """A point on the text. The strip's text stands at its right end."""
        area = self.wait_for_menu_bar()
        return area.middle if self.desktop.kind == "gnome" else (area.right - 30, area.middle[1])

    def open_panel(self):
        """Opens the panel by a click and returns where it is."""
        self.desktop.screen.click(*self.click_point())
        return self.desktop.screen.wait_for_window(PANEL)

    def ask_for_panel(self):
        """Opens the panel as a launcher does, without a pointer."""
        self.desktop.bus.call(NAME, "/me/kerno/glimmet", "org.freedesktop.Application", "Activate",
                              GLib.Variant("(a{sv})", ({},)))
        return self.desktop.screen.wait_for_window(PANEL)

    def close_panel(self):
        self.desktop.screen.key("Escape")
        self.desktop.screen.wait_until_gone(PANEL)

    def is_panel_open(self):
        return bool(self.desktop.screen.windows(PANEL))

    def control(self, name, *roles):
        """The control of the open panel with this accessible name."""
        return find_when_there(self.desktop.tree.program("glimmet"), name, *roles)

    def choose_mode(self, mode):
        card = self.control(mode, "radio button")
        card.press()
        wait_for(lambda: card.checked, 5, f"the card “{mode}” to be chosen")

    def output(self):
        return self.desktop.log("glimmet")

    def stop(self):
        """Ends the program as the session does at its end and returns the exit status."""
        self._stop_following()
        return self.desktop.stop(self.process)
