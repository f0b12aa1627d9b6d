"""The panels of other desktops on a virtual screen, each started by itself as its desktop would start it."""

import shutil
from dataclasses import dataclass
from pathlib import Path

from desktop.processes import wait_for, watch_for
from desktop.screen import Area

WATCHER = "org.kde.StatusNotifierWatcher"
SERVICES = Path("/usr/share/dbus-1/services")
# The version that is installed.
PLASMA = "6" if shutil.which("kded6") else "5"
PLASMA_ENVIRONMENT = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": PLASMA}
KDED = (f"kded{PLASMA}", f"org.kde.kded{PLASMA}")


@dataclass(frozen=True)
class Panel:
    """How one of them is started; `command` is run again after a crash."""
    command: tuple
    environment: dict
    helpers: tuple = ()  # programs that it needs, each with the name by which that is known
    menus: str = ""  # the class of its menus' windows, where that is not its own
    services: str = ""  # a pattern of the machine's services that the bus may start for it
    name: str = WATCHER  # on the bus while it has room for items
    desktop: str = "strip"  # the kind of virtual desktop; "bare" where it manages windows itself


PANELS = {
    "xfce": Panel(("xfce4-panel", "--disable-wm-check"), {"XDG_CURRENT_DESKTOP": "XFCE"},
                  (("/usr/lib/x86_64-linux-gnu/xfce4/xfconf/xfconfd", "org.xfce.Xfconf"),), "wrapper-2.0"),
    "mate": Panel(("mate-panel",), {"XDG_CURRENT_DESKTOP": "MATE"}, (("/usr/libexec/dconf-service", "ca.desrt.dconf"),),
                  "notification-area-applet",
                  "org.mate.panel.applet.*.service"),
    "lxqt": Panel(("lxqt-panel",), {"XDG_CURRENT_DESKTOP": "LXQt", "XDG_CONFIG_DIRS": "/etc/xdg:/usr/share"}),
    "cinnamon": Panel(("cinnamon",), {"XDG_CURRENT_DESKTOP": "X-Cinnamon", "LIBGL_ALWAYS_SOFTWARE": "1"},
                      (("/usr/libexec/xapps/sn-watcher/xapp-sn-watcher", "org.x.StatusNotifierWatcher"),),
                      "xapp-sn-watcher", "ca.desrt.dconf.service", "org.x.StatusIconMonitor.cinnamon_0", "bare"),
    "plasma": Panel(("plasmashell", "--no-respawn"), PLASMA_ENVIRONMENT | {"XDG_SESSION_TYPE": "x11"},
                    (("kwin_x11", "org.kde.KWin"), KDED), services="org.kde.ActivityManager.service",
                    name="org.kde.plasmashell", desktop="bare"),
    "plasma-wayland": Panel(("plasmashell", "--no-respawn"), PLASMA_ENVIRONMENT, (KDED,),
                            services="org.kde.ActivityManager.service", name="org.kde.plasmashell", desktop="kwin"),
}


class RunningPanel:
    """One of them in a virtual desktop of its kind."""

    def __init__(self, desktop, name):
        self.desktop = desktop
        self.name = name
        self.kind = PANELS[name]
        self._process = None
        for service in SERVICES.glob(self.kind.services) if self.kind.services else ():
            shutil.copy(service, desktop.folder / "services")
        if name == "lxqt":
            settings = desktop.home / ".config" / "lxqt"
            settings.mkdir(parents=True)
            shutil.copy("/usr/share/lxqt/panel.conf", settings)
        for number, (program, service) in enumerate(self.kind.helpers):
            desktop.start(f"panel-helper-{number}", [program], self.kind.environment)
            wait_for(lambda: desktop.bus.owner(service), 30, service)

    def start(self):
        """Returns once it has room for items."""
        self._process = self.desktop.start("panel", list(self.kind.command), self.kind.environment)
        wait_for(lambda: self.desktop.bus.owner(self.kind.name), 60, f"the panel of {self.name}")
        return self

    def kill(self):
        """Ends it as a crash would."""
        self._process.kill()
        self._process.wait()
        wait_for(lambda: not self.desktop.bus.owner(self.kind.name), 15, "the panel to be gone")


def changed_area(before, after, area):
    """The smallest area that holds all that differs between two pictures of `area`, None where nothing does."""
    stride = area.width * 3
    rows = [row for row in range(area.height)
            if before[row * stride:(row + 1) * stride] != after[row * stride:(row + 1) * stride]]
    if not rows:
        return None
    columns = [column for column in range(area.width) for row in rows
               if before[row * stride + column * 3:][:3] != after[row * stride + column * 3:][:3]]
    return Area(area.x + min(columns), area.y + rows[0], max(columns) - min(columns) + 1, rows[-1] - rows[0] + 1)


def wait_for_seconds(screen, place, widest):
    """Returns where in `place` a text changes each second, and nothing beside it."""
    def text():
        before = screen.pixels(place)
        watch_for(1.1)
        area = changed_area(before, screen.pixels(place), place)
        return area if area and area.width <= widest else None

    return wait_for(text, 30, "a text that changes each second")
