"""Clicks on the text in the menu bar by the hundred, and what came of each."""

import json
import re
import subprocess
import time
from dataclasses import dataclass, field
from pathlib import Path

from gi.repository import GLib

from desktop import gnome, top_bar
from desktop.glimmet import MENU_SIGHT, PANEL, Glimmet
from desktop.processes import DesktopError, wait_for, watch_for
from desktop.screen import DOUBLE_CLICK_TIME
from desktop.virtual_desktop import VirtualDesktop

# Seconds after which nothing comes of a click any more, however busy the machine.
PATIENCE = 10
# How much less the busy programs matter than the desktop, as `nice` counts it.
NICENESS = 5
BUSY_LOOP = ["nice", "-n", str(NICENESS), "sh", "-c", "while :; do :; done"]


@dataclass(frozen=True)
class Form:
    """How the text is in a bar: by the desktop's `kind`, and in GNOME Shell by AppIndicator or as a button."""
    kind: str
    is_wayland: bool = False
    has_button: bool = False


FORMS = {
    "GNOME Shell, AppIndicator, X11": Form("gnome"),
    "GNOME Shell, AppIndicator, Wayland": Form("gnome", is_wayland=True),
    "GNOME Shell, the extension, X11": Form("gnome", has_button=True),
    "GNOME Shell, the extension, Wayland": Form("gnome", is_wayland=True, has_button=True),
    "the strip, X11": Form("strip"),
}


@dataclass
class Tally:
    """What came of the clicks: seconds until each did what it is for, and how many failed in which way."""
    seconds: dict = field(default_factory=lambda: {"open": [], "close": []})
    lost: int = 0
    undone: int = 0
    without_keyboard: int = 0
    menus_left_open: int = 0

    @property
    def clicks(self):
        return sum(map(len, self.seconds.values())) + self.lost

    @property
    def faults(self):
        return self.lost + self.undone + self.without_keyboard + self.menus_left_open


def came_true(condition, seconds):
    try:
        return bool(wait_for(condition, seconds, "it"))
    except DesktopError:
        return False


def click_point(glimmet, form):
    if form.has_button:
        return top_bar.wait_for_button(glimmet.desktop).middle
    return glimmet.click_point()


def is_menu_open(desktop):
    """Whether the item's menu is in sight, by whose opening the shell tells of a click."""
    try:
        return any(node.showing for node in gnome.find_where_last(desktop, *MENU_SIGHT))
    except GLib.Error:
        return False  # It went while it was looked at.


def click_once(glimmet, form, wanted, tally):
    """One click by which the panel is to open (or close, where it is not `wanted`)."""
    desktop = glimmet.desktop
    point = click_point(glimmet, form)
    start = time.monotonic()
    desktop.screen.click(*point)
    if not came_true(lambda: glimmet.is_panel_open() == wanted, PATIENCE):
        tally.lost += 1
        (glimmet.ask_for_panel if wanted else glimmet.close_panel)()
        return
    tally.seconds["open" if wanted else "close"].append(time.monotonic() - start)
    if wanted and not came_true(lambda: desktop.screen.has_keyboard(PANEL), PATIENCE):
        tally.without_keyboard += 1
    watch_for(DOUBLE_CLICK_TIME)
    if glimmet.is_panel_open() != wanted:
        tally.undone += 1
        (glimmet.ask_for_panel if wanted else glimmet.close_panel)()
    if desktop.kind == "gnome" and not came_true(lambda: not is_menu_open(desktop), PATIENCE):
        tally.menus_left_open += 1


def play(form, binary, rounds, busy_programs=0, shell_extensions=None):
    """Opens and closes the panel by single clicks, so many times each, while that many programs do nothing but keep a
    processor busy. `shell_extensions`: the folder of the program's own extension."""
    tally = Tally()
    extensions = shell_extensions if form.has_button else None
    with VirtualDesktop(form.kind, is_wayland=form.is_wayland, shell_extensions=extensions) as desktop:
        if form.has_button:
            top_bar.set_extension(desktop, True)
        glimmet = Glimmet(desktop, binary).wait_until_running()
        click_point(glimmet, form)
        for number in range(busy_programs):
            desktop.start(f"busy-{number}", BUSY_LOOP)
        for _ in range(rounds):
            for wanted in (True, False):
                click_once(glimmet, form, wanted, tally)
        glimmet.stop()
    return tally


def extensions_of(binary):
    """Where the build that `binary` is of has the extension, in the form that this machine's shell takes."""
    version = re.search(r"\d+", subprocess.check_output(["gnome-shell", "--version"], text=True))[0]
    forms = Path(binary).parent.parent / "desktops" / "gnome-shell"
    return next(form for form in forms.iterdir() for metadata in form.glob("*/metadata.json")
                if version in json.loads(metadata.read_text())["shell-version"])
