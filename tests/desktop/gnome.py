"""GNOME Shell with the AppIndicator extension on a virtual screen, under X11 or Wayland."""

import os
import re
import shutil
import signal
import sys
from contextlib import contextmanager

from gi.repository import GLib

from desktop.bus import connect_when_there
from desktop.mutter_screen import REMOTE, MutterScreen
from desktop.processes import wait_for
from desktop.screen import Area

SHELL = "org.gnome.Shell"
INDICATORS = "ubuntu-appindicators@ubuntu.com"
EXTENSIONS = "org.gnome.Shell.Extensions"
WATCHER = "org.kde.StatusNotifierWatcher"
OVERVIEW = (SHELL, "/org/gnome/Shell", SHELL, "OverviewActive")
TOP_BAR = Area(0, 0, 200, 24)
# How deep in the shell's accessibility tree its parts are: application, stage, group of all.
PARTS = 3

SYSTEM_BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>system</type><listen>unix:path={path}</listen>
<policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/>
</policy></busconfig>
"""

ENVIRONMENT = {
    "XDG_CURRENT_DESKTOP": "GNOME",
    "XDG_SESSION_TYPE": "x11",
    "XDG_SESSION_DESKTOP": "gnome",
    "GDK_BACKEND": "x11",
    "LIBGL_ALWAYS_SOFTWARE": "1",
}
WAYLAND_ENVIRONMENT = ENVIRONMENT | {
    "XDG_SESSION_TYPE": "wayland",
    "WAYLAND_DISPLAY": "wayland-virtual",
}

SETTINGS = (
    ("org.gnome.shell", "welcome-dialog-last-shown-version", "'99'"),
    ("org.gnome.shell", "disable-user-extensions", "false"),
    ("org.gnome.shell", "enabled-extensions", f"['{INDICATORS}']"),
    ("org.gnome.desktop.interface", "toolkit-accessibility", "true"),
    # A blanked or locked screen would swallow the clicks of a long run.
    ("org.gnome.desktop.session", "idle-delay", "uint32 0"),
    ("org.gnome.desktop.screensaver", "lock-enabled", "false"),
    ("org.gnome.desktop.notifications", "show-banners", "false"),
)


def start_system_bus(desktop):
    """The shell asks logind about its session. A system bus of its own keeps the machine's out of it."""
    path = desktop.runtime / "system_bus"
    configuration = desktop.folder / "system-bus.conf"
    configuration.write_text(SYSTEM_BUS.format(path=path))
    desktop.environment["DBUS_SYSTEM_BUS_ADDRESS"] = f"unix:path={path}"
    desktop.start("system-bus", ["dbus-daemon", f"--config-file={configuration}", "--nofork", "--nopidfile"])
    bus = connect_when_there(desktop.environment["DBUS_SYSTEM_BUS_ADDRESS"])
    desktop.start("logind", [sys.executable, "-m", "dbusmock", "--system", "--template", "logind"])
    wait_for(lambda: bus.owner("org.freedesktop.login1"), 10, "the login manager")
    bus.close()


def start_shell(desktop, own_extensions=None):
    """Returns when the shell shows its top bar with the indicators' host in it, and nothing over it. The extensions in
    the folder `own_extensions` are there too, none of them enabled."""
    prepare(desktop, own_extensions)
    desktop.start("gnome-shell", ["gnome-shell", "--x11"])
    wait_until_there(desktop)


def start_wayland_shell(desktop, size, own_extensions=None, monitors=1):
    """The same under Wayland: the shell brings the screen itself, which is the desktop's from then on. Each of its
    monitors is of that size."""
    prepare(desktop, own_extensions)
    desktop.start("gnome-shell", [
        "gnome-shell", "--wayland", "--headless", "--unsafe-mode",
        *(["--virtual-monitor", "{}x{}".format(*size)] * monitors),
        "--wayland-display", desktop.environment["WAYLAND_DISPLAY"]])
    wait_for(lambda: desktop.bus.owner(REMOTE), 60, "GNOME Shell")
    desktop.environment |= wait_for(lambda: x_display(desktop), 30, "XWayland")
    desktop.screen = MutterScreen(desktop.environment, size, desktop.folder)
    wait_until_there(desktop)
    # What is typed before XWayland knows of the keyboard is lost.
    desktop.screen.windows("any")
    desktop.screen.key("Shift_L")


def x_display(desktop):
    """The environment by which a program finds the shell's XWayland; empty before that is there."""
    display = re.search(r"public X11 display (:\d+)", desktop.log("gnome-shell"))
    permission = next(desktop.runtime.glob(".mutter-Xwaylandauth*"), None)
    return {"DISPLAY": display[1], "XAUTHORITY": str(permission)} if display and permission else {}


def prepare(desktop, own_extensions):
    if own_extensions:
        shutil.copytree(own_extensions, desktop.home / ".local" / "share" / "gnome-shell" / "extensions")
    for setting in SETTINGS:
        desktop.run("gsettings", "set", *setting)


def wait_until_there(desktop):
    wait_for(lambda: desktop.bus.owner(SHELL), 60, "GNOME Shell")
    wait_for(lambda: desktop.bus.owner(WATCHER), 30, "the indicators' host")
    leave_overview(desktop)


def leave_overview(desktop):
    """A fresh shell opens with its overview, which would take the first click."""
    def is_open():
        try:
            return desktop.bus.get(*OVERVIEW)
        except GLib.Error:
            return False  # Not exported yet.

    def has_closed():
        desktop.bus.set(*OVERVIEW, GLib.Variant("b", False))
        return not is_open()

    wait_for(lambda: is_open() and any(desktop.screen.pixels(TOP_BAR)), 30, "the shell's first picture")
    wait_for(has_closed, 30, "the overview to close")


def find_all(desktop, name, *roles):
    """All objects of the shell with this name and one of the roles, in the part of it that has any: the top bar, or one
    of the menus."""
    return find_where_last(desktop, name, *roles) or _find_anywhere(desktop, name, roles)


def find_where_last(desktop, name, *roles):
    """The same, but only where such were found the last time, in the whole shell the first time: that takes seconds on
    a busy machine."""
    part = desktop.tree.known_parts.get((name, roles))
    return part.find_all(name, *roles) if part else _find_anywhere(desktop, name, roles)


def _find_anywhere(desktop, name, roles):
    # Menus are in the order in which they were made.
    for part in reversed(desktop.tree.program("gnome-shell").branches(PARTS)):
        found = part.find_all(name, *roles)
        if found:
            desktop.tree.known_parts[name, roles] = part
            return found
    return []


def set_indicators(desktop, wanted):
    """Switches the indicators' host on or off."""
    set_extension(desktop, INDICATORS, WATCHER, wanted)


def set_extension(desktop, extension, name, wanted):
    """Switches an extension on or off, as its user does in the shell's settings; it has a name on the bus while it
    is on."""
    method = "EnableExtension" if wanted else "DisableExtension"
    desktop.bus.call(SHELL, "/org/gnome/Shell", EXTENSIONS, method, GLib.Variant("(s)", (extension,)))
    wait_for(lambda: bool(desktop.bus.owner(name)) == wanted, 20, f"{method} of {extension} to take effect")


@contextmanager
def halted(desktop):
    """The shell stands still meanwhile, as one that has too much to do."""
    shell = desktop.bus.process_of(SHELL)
    os.kill(shell, signal.SIGSTOP)
    try:
        yield
    finally:
        os.kill(shell, signal.SIGCONT)
