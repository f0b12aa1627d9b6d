"""The bars that read their text from a program, each with its window manager or compositor and a configuration that has
the feed in it."""

from desktop.processes import wait_for
from desktop.sway import AS_ROOT_AGAIN

I3_CONFIGURATION = "# i3 config file (v4)\nfont pango:monospace 8\n"
# Also sway's.
I3_BAR = "bar {{\n  position {}\n  status_command {}\n}}\n"
TINT2_HEIGHT = 30
TINT2_BAR = f"panel_items = {{}}\npanel_size = 100% {TINT2_HEIGHT}\npanel_position = {{}} center horizontal\n"
TINT2_EXECUTOR = """
execp = new
execp_command = {feed}
execp_interval = 0
execp_continuous = 1
execp_font_color = #ffffff 100
execp_lclick_command = {feed} --activate
"""


def start_i3(desktop, feed):
    configuration = desktop.folder / "i3.conf"
    configuration.write_text(I3_CONFIGURATION + I3_BAR.format("bottom", f"{feed} --i3bar -- i3status"))
    desktop.start("i3", ["i3", "-c", str(configuration)])
    wait_for(lambda: desktop.screen.windows_of("i3bar"), 15, "i3's bar")


def start_tint2(desktop, feed):
    configuration = desktop.folder / "tint2rc"
    configuration.write_text(TINT2_BAR.format("TE", "top") + TINT2_EXECUTOR.format(feed=feed))
    desktop.start("tint2", ["tint2", "-c", str(configuration)])
    wait_for(lambda: desktop.screen.windows_of("tint2"), 15, "tint2's bar")


def start_swaybar(desktop, feed):
    configuration = desktop.folder / "sway.conf"
    status = " ".join([*AS_ROOT_AGAIN, f"{feed} --i3bar -- i3status"])
    configuration.write_text(configuration.read_text() + I3_BAR.format("top", status))
    desktop.screen.message("reload")
    wait_for(lambda: desktop.screen.told("get_bar_config"), 15, "sway's bar")


# The program of each, the kind of desktop that it goes on, and how it is started there.
TEXT_BARS = {
    "i3bar": ("i3", "bare", start_i3),
    "tint2": ("tint2", "strip", start_tint2),
    "swaybar": ("swaybar", "sway", start_swaybar),
}
