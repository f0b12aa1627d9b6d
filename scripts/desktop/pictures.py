"""Pictures of the menu bar and of the open panel."""

from desktop.program import Glimmet
from desktop.processes import wait_for
from desktop.screen import Area

MODES = ("Clock", "Quote", "Custom")
SCHEMES = ("light", "dark")
FIRST_WORDS = {"Quote": "stay curious ✦", "Custom": "hello world ✦"}
MARGIN = 16
# Room for the panel at either scale, and not much more.
SCREEN_SIZES = {1: (1280, 800), 2: (1600, 1200)}


def take_menu_bar(glimmet, path):
    """The right half of the menu bar, where the text is."""
    area = glimmet.wait_for_menu_bar()
    width = glimmet.desktop.screen.area.width
    glimmet.desktop.screen.screenshot(path, Area(width // 2, area.y, width - width // 2, area.height))


def _with_surroundings(glimmet, panel):
    screen = glimmet.desktop.screen.area
    left, right = max(panel.x - MARGIN, 0), min(panel.right + MARGIN, screen.right)
    return Area(left, 0, right - left, min(panel.bottom + MARGIN, screen.bottom))


def take_panel(glimmet, path):
    """The open panel and the menu bar above it, once two looks at it agree but for the clock's text."""
    screen = glimmet.desktop.screen
    area = _with_surroundings(glimmet, screen.wait_for_window("glimmet"))
    wait_for(lambda: _is_still(screen, area), 10, "the panel to come to rest")
    screen.screenshot(path, area)


def _is_still(screen, area):
    # The options below the mode cards slide in; the header's dot and the clock never rest.
    lower = Area(area.x, area.y + area.height * 2 // 5, area.width, area.height * 3 // 5)
    return screen.pixels(lower) == screen.pixels(lower)


def take_all(glimmet, folder, prefix):
    """One picture of the menu bar and one of the panel for each mode, light and dark; returns the paths."""
    paths = []
    for scheme in SCHEMES:
        glimmet.desktop.prefer(scheme)
        for mode in MODES:
            paths += take_mode(glimmet, mode, folder, f"{prefix}-{mode.lower()}-{scheme}")
    return paths


def take_mode(glimmet, mode, folder, stem):
    """Chooses the mode in the panel, then takes both pictures; leaves the panel closed."""
    bar, panel = folder / f"{stem}-menubar.png", folder / f"{stem}-panel.png"
    glimmet.open_panel()
    glimmet.choose_mode(mode)
    wanted = FIRST_WORDS.get(mode)
    glimmet.wait_for_label(lambda label: label == wanted if wanted else label[:1].isdigit())
    take_panel(glimmet, panel)
    glimmet.close_panel()
    take_menu_bar(glimmet, bar)
    return [bar, panel]


def start(desktop, binary, scale=1):
    """Starts glimmet for its pictures, with the machine's network, and returns it once its text is in the menu bar."""
    environment = {"QT_SCALE_FACTOR": str(scale)} if scale != 1 else {}
    glimmet = Glimmet(desktop, binary, environment, network=()).wait_until_running()
    glimmet.wait_until_clickable()
    return glimmet
