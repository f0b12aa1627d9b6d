"""KWin as a Wayland compositor in a window that fills a virtual screen: the hands and the pictures are that screen's,
the windows XWayland's inside it. Drawn by software."""

from desktop.processes import wait_for
from desktop.screen import Screen

ENVIRONMENT = {
    "XDG_CURRENT_DESKTOP": "KDE",
    "XDG_SESSION_TYPE": "wayland",
    "WAYLAND_DISPLAY": "wayland-virtual",
    "KWIN_COMPOSE": "Q",
}


def start(desktop, size):
    """Starts it, and has the desktop's environment name its displays."""
    outside = desktop.environment | {"DISPLAY": desktop.start_screen("screen", "-noreset")}
    told = desktop.folder / "kwin.display"
    teller = desktop.folder / "tell-display"
    teller.write_text(f'#!/bin/sh\necho "$DISPLAY" >{told}.new && mv {told}.new {told}\n')
    teller.chmod(0o755)
    width, height = map(str, size)
    desktop.start("kwin", [
        "kwin_wayland", "--x11-display", outside["DISPLAY"], "--width", width, "--height", height,
        "--xwayland", "--no-lockscreen", "--socket", ENVIRONMENT["WAYLAND_DISPLAY"], str(teller)])
    wait_for(told.exists, 30, "KWin")
    desktop.environment["DISPLAY"] = told.read_text().strip()
    desktop.screen = NestedScreen(desktop.environment, Screen(outside, size))


class NestedScreen(Screen):
    """`outer` is the screen whose window this one is, pixel for pixel."""

    def __init__(self, environment, outer):
        super().__init__(environment, (outer.area.width, outer.area.height))
        for name in ("move", "click", "drag", "key", "type", "screenshot", "pixels"):
            setattr(self, name, getattr(outer, name))
