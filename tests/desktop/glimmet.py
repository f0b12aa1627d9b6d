"""glimmet as the desktop sees it: its item on the bus, its windows and its panel's accessibility tree."""

import time

from gi.repository import GLib

from desktop import gnome
from desktop.accessibility import find_when_there
from desktop.processes import DesktopError, dispatch_events, wait_for
from desktop.without_network import without_network

NAME = "me.kerno.glimmet"
ITEM = "/StatusNotifierItem"
ITEM_INTERFACE = "org.kde.StatusNotifierItem"
# What the shell's accessibility tree has of the item and of its menu: name and role.
ITEM_SIGHT = ("glimmet", "menu")
MENU_SIGHT = ("Open glimmet", "label")
PANEL = "glimmet"
STRIP = "glimmet strip"


class Glimmet:
    """One launch of the program in a virtual desktop.

    `network` is what to put before the command to give it its network: none at all unless said otherwise, the
    machine's with (). `wrapper` runs inside that."""

    def __init__(self, desktop, binary, environment=None, wrapper=(), network=None, arguments=(),
                 **options):
        self.desktop = desktop
        self.binary = str(binary)
        self._labels = []
        self._stop_following = desktop.bus.follow(NAME, ITEM_INTERFACE, "XAyatanaNewLabel", self._note_label)
        inside = without_network() if network is None else network
        self.started = time.monotonic()
        self.process = desktop.start("glimmet", [*inside, *wrapper, self.binary, *arguments], environment, **options)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()

    def _note_label(self, label, _guide):
        self._labels.append((time.monotonic(), label))

    @property
    def labels(self):
        """All labels of which the item has told by now, each with the time at which that was noticed."""
        dispatch_events()
        return self._labels

    def wait_until_running(self, seconds=15):
        """Returns once the item is on the bus."""
        wait_for(self.is_on_the_bus, seconds, "glimmet on the session bus")
        return self

    def is_on_the_bus(self):
        return self.process.poll() is None and bool(self.label)

    @property
    def label(self):
        """The item's text, empty while the item is not on the bus."""
        try:
            return self.desktop.bus.get(NAME, ITEM, ITEM_INTERFACE, "XAyatanaLabel")
        except GLib.Error:
            return ""

    def wait_for_label(self, wanted, seconds=15):
        """Returns the first label, now or later, for which `wanted(label)` holds."""
        def label_if_wanted():
            label = self.label
            return label if label and wanted(label) else None

        try:
            return wait_for(label_if_wanted, seconds, "the awaited label")
        except DesktopError as error:
            raise DesktopError(f"{error}; it is “{self.label}”") from None

    def wait_for_strip(self, seconds=15):
        return self.desktop.screen.wait_for_window(STRIP, seconds)

    def menu_bar_area(self):
        """Where the text is in the menu bar: the strip, or the item in the shell's top bar. None while it is not."""
        if self.desktop.kind != "gnome":
            return self.desktop.screen.area_of(STRIP)
        return next(filter(None, map(self._area_with_label, self._items())), None)

    def _items(self):
        """The items in the shell's top bar that bear the program's name, also one that is about to go."""
        return gnome.find_all(self.desktop, *ITEM_SIGHT)

    def _area_with_label(self, item):
        """Where an item is, None where it does not show the label."""
        try:
            area, label = item.area, self.label
            return area if self.desktop.screen.area.contains(area) and label and item.find(label, "label") else None
        except GLib.Error:
            return None  # It went while it was looked at.

    def wait_until_off_the_shell(self, seconds=10):
        """Returns once the shell has taken the item of an ended program away."""
        wait_for(lambda: not any(gnome.find_where_last(self.desktop, *sight) for sight in (ITEM_SIGHT, MENU_SIGHT)),
                 seconds, "the item to go from the top bar")

    def wait_for_menu_bar(self, seconds=15):
        return wait_for(self.menu_bar_area, seconds, "the text in the menu bar")

    def wait_until_clickable(self, seconds=20):
        """Returns where the text is once a click on it arrives: the shell shows an item before it has its menu."""
        if self.desktop.kind == "gnome":
            wait_for(self._has_menu, seconds, "the shell to read the item's menu")
        return self.wait_for_menu_bar(seconds)

    def _has_menu(self):
        return bool(gnome.find_all(self.desktop, *MENU_SIGHT))

    def click_point(self):
        """A point on the text. The strip's text stands at its right end."""
        area = self.wait_until_clickable()
        return area.middle if self.desktop.kind == "gnome" else (area.right - 30, area.middle[1])

    def open_panel(self):
        """Opens the panel by a click and returns where it is, once it has the keyboard."""
        self.desktop.screen.click(*self.click_point())
        return self.wait_for_panel()

    def wait_for_panel(self):
        """Returns where the panel is that is just opening, once it has the keyboard."""
        self.desktop.screen.wait_until_typed_into(PANEL)
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

    def focused_control(self):
        """Role and name of what has the keyboard in the panel, None while nothing has."""
        for node in self.desktop.tree.program("glimmet").walk():
            try:
                if node.focused and node.role not in ("frame", "window"):
                    return node.role, node.name
            except GLib.Error:
                pass  # It went while it was looked at.
        return None

    def choose_mode(self, mode):
        card = self.control(mode, "radio button")
        card.press()
        wait_for(lambda: card.checked, 15, f"the card “{mode}” to be chosen")

    def output(self):
        return self.desktop.log("glimmet")

    def stop(self):
        """Ends the program as the session does at its end and returns the exit status."""
        self._stop_following()
        return self.desktop.stop(self.process)
