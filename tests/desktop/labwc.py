"""labwc on a screen without hardware."""

from desktop import wlroots

ENVIRONMENT = wlroots.ENVIRONMENT | {"XDG_CURRENT_DESKTOP": "labwc:wlroots"}
OUTPUT = "HEADLESS-1"
TOLD = ("WAYLAND_DISPLAY", "DISPLAY")


def start(desktop, size):
    """Starts it, and has the desktop's environment name its displays."""
    folder, told = desktop.folder / "labwc", desktop.folder / "labwc.environment"
    folder.mkdir()
    (folder / "autostart").write_text(f"env >{told}\n")
    socket = wlroots.start(desktop, ["labwc", "--config-dir", str(folder)], told, TOLD)
    desktop.screen = wlroots.WlrootsScreen(desktop.environment, size, socket)
    desktop.screen.run("wlr-randr", "--output", OUTPUT, "--custom-mode", f"{size[0]}x{size[1]}")
