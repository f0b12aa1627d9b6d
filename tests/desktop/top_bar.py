"""The button in GNOME Shell's top bar, by the extension that comes with the program."""

from gi.repository import GLib

from desktop import gnome
from desktop.processes import wait_for

EXTENSION = "glimmet@kerno.me"
EXTENSION_NAME = "me.kerno.glimmet.TopBar"
# What the shell's accessibility tree has of the button: name and role, which newer libraries call differently.
BUTTON_SIGHT = ("glimmet", "push button", "button")


def set_extension(desktop, wanted):
    gnome.set_extension(desktop, EXTENSION, EXTENSION_NAME, wanted)


def buttons(desktop):
    """The buttons that are in sight, each with its label."""
    return [(node.area, label.name) for node in gnome.find_all(desktop, *BUTTON_SIGHT)
            for label in node.children() if label.showing and label.name]


def buttons_in_peace(desktop):
    try:
        return buttons(desktop)
    except GLib.Error:
        return []  # One went while it was looked at.


def wait_for_button(desktop):
    """Returns where the button is."""
    (area, _), = wait_for(lambda: buttons_in_peace(desktop), 20, "the button in the top bar")
    return area
