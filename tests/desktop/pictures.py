"""Pictures of the menu bar and of the open panel: every editor and sheet."""

import subprocess
import time
from dataclasses import dataclass

from gi.repository import GLib

from desktop.glimmet import PANEL, Glimmet
from desktop.image import CELL, Image, first_shown
from desktop.processes import wait_for
from desktop.screen import Area
from desktop.x_images import x_images

SCHEMES = ("light", "dark")
MARGIN = 16
LONGEST_TRANSITION = 0.3
# How often a picture is taken that shows something else than the window has.
TRIES = 3
# What can go wrong on the way to one picture and does not speak against the next.
FAULTS = (RuntimeError, OSError, GLib.Error, subprocess.SubprocessError)
# Room for the panel at either scale, and not much more.
SCREEN_SIZES = {1: (1280, 800), 2: (1600, 1200)}
FIELD = ("text", "entry", "password text")
QUOTES = ("measure twice, cut once",
          "make it work, make it right, make it fast: in that order, and only as fast as needed")
DEADLINES = ("Math Exam 🎓", "A release with a name that is much too long for its row", "Rent")
SYMBOLS = "AAPL, TSLA, SOL-USD, DOGE-USD, NVDA"


class Stage:
    """The open panel of one launch, brought from scene to scene as an assistive program does it."""

    def __init__(self, glimmet):
        self.glimmet = glimmet
        self.screen = glimmet.desktop.screen

    def control(self, name, *roles):
        return self.glimmet.control(name, *roles)


def mode(name):
    return lambda stage: stage.glimmet.choose_mode(name)


def tap(name):
    return lambda stage: stage.control(name, "push button", "radio button").press()


def add(field, button, *texts):
    """Writes each text into the field and presses the button."""
    def added(stage):
        for text in texts:
            stage.control(field, *FIELD).write(text)
            stage.control(button, "push button").press()

    return added


def label(wanted):
    """Waits for what the menu bar shows."""
    return lambda stage: stage.glimmet.wait_for_label(wanted, 15)


def scroll_to_end(stage):
    area = stage.screen.wait_for_window("glimmet")
    x, y = area.middle
    stage.screen.run("xdotool", "mousemove", str(x), str(y + area.height // 6),
                     "click", "--repeat", "40", "--delay", "10", "5")
    stage.screen.move(area.x // 2, stage.screen.area.bottom - MARGIN)


def reveal_in_view(stage):
    """Shows the first key that can be seen: the sheet opens at the platform that is chosen."""
    def hidden_key():
        nodes = stage.glimmet.desktop.tree.program("glimmet").walk()
        return next((node for node in nodes if node.is_called("Show key", ("push button",)) and node.showing), None)

    wait_for(hidden_key, 10, "a hidden key in view").press()


# What each picture is called, and what is done before it is taken. In a group a scene goes on from the one before it; a
# group begins with the panel just opened.
GROUPS = (
    (("clock", mode("Clock"), label(lambda text: text[:1].isdigit())),
     ("settings", tap("Settings"))),
    (("quote", mode("Quote"), label(lambda text: text == "stay curious ✦")),
     ("quote-own", add("New quote", "Add", *QUOTES), label(lambda text: text == QUOTES[0]))),
    (("custom", mode("Custom"), label(lambda text: text == "hello world ✦")),),
    (("revenue", mode("Revenue"), label(lambda text: text.startswith("💰"))),
     ("revenue-end", scroll_to_end),
     ("revenue-revenuecat", tap("RevenueCat"), scroll_to_end),
     ("revenue-dodo", tap("Dodo"), scroll_to_end),
     ("revenue-stripe", tap("Stripe"), scroll_to_end),
     ("keys", tap("API Keys")),
     ("keys-revealed", reveal_in_view),
     ("keys-end", scroll_to_end)),
    (("crypto", mode("Crypto"), label(lambda text: text.startswith("BTC $"))),
     ("crypto-many", add("New symbol", "Add", SYMBOLS)),
     ("crypto-end", scroll_to_end)),
    (("deadline-empty", mode("Deadline"), label(lambda text: text == "no deadlines")),
     ("deadline", add("Deadline name", "Add Deadline", *DEADLINES),
      label(lambda text: text.startswith(DEADLINES[0]))),
     ("deadline-end", scroll_to_end),
     ("deadline-calendar", tap("Due date"), scroll_to_end)),
)


@dataclass(frozen=True)
class Grab:
    """The looks at a window, in time around the one at its place on the screen, and what surrounds that."""
    looks: tuple
    screen: Image
    surroundings: Image


@dataclass(frozen=True)
class Taken:
    """What came of one picture: the files that were written, after so many tries, and why the screen is not to be
    trusted, which is empty where it is."""
    paths: tuple
    tries: int = 1
    fault: str = ""


def take_menu_bar(glimmet, path):
    """The right half of the menu bar, where the text is."""
    area = glimmet.wait_for_menu_bar()
    width = glimmet.desktop.screen.area.width
    glimmet.desktop.screen.screenshot(path, Area(width // 2, area.y, width - width // 2, area.height))
    return Taken((path,))


def take_screen(glimmet, path):
    """The whole screen as it is, also where another program's dialog is over the panel."""
    time.sleep(LONGEST_TRANSITION)
    glimmet.desktop.screen.screenshot(path)
    return Taken((path,))


def _with_surroundings(glimmet, panel):
    screen = glimmet.desktop.screen.area
    left, right = max(panel.x - MARGIN, 0), min(panel.right + MARGIN, screen.right)
    return Area(left, 0, right - left, min(panel.bottom + MARGIN, screen.bottom))


def take_panel(glimmet, path, tries=TRIES):
    """The open panel and the menu bar above it, once the window has come to rest and the screen shows what it has.

    What still differs after some tries is kept under names of its own, beside what the window has; `path` is left as it
    is then."""
    grabbed, tried, cells = first_shown(lambda: grab_panel(glimmet), tries, lambda: have_fetched_anew(glimmet))
    if cells == set():
        return Taken((write_png(grabbed.surroundings, path),), tried)
    kept = (write_png(grabbed.surroundings, path.with_stem(f"{path.stem}-differs")),
            write_png(grabbed.looks[-1], path.with_stem(f"{path.stem}-window")))
    return Taken(kept, tried, fault_text(cells))


def fault_text(cells):
    if cells is None:
        return "the window never came to rest"
    top, left = min((row * CELL, column * CELL) for column, row in cells)
    return f"the screen differs from the window in {len(cells)} squares of {CELL} by {CELL}, first at {left}, {top}"


def _panel(glimmet):
    """The panel's window and where that is."""
    screen = glimmet.desktop.screen
    screen.wait_for_window(PANEL)
    window = screen.windows(PANEL)[0]
    return window, screen.window_area(window)


def have_fetched_anew(glimmet):
    """GNOME Shell on a virtual screen goes on showing parts of older frames until more of the window is painted."""
    with x_images(glimmet.desktop.environment["DISPLAY"]) as images:
        images.tell_of_damage(*_panel(glimmet))


def grab_panel(glimmet):
    window, area = _panel(glimmet)
    around = _with_surroundings(glimmet, area)
    with x_images(glimmet.desktop.environment["DISPLAY"]) as images:
        def look():
            return images.of_window(window, area)

        resting = wait_for(lambda: _two_looks_at_rest(look), 10, "the panel to come to rest")
        before, surroundings, after = look(), images.of_screen(around), look()
    shown = surroundings.crop(area.x - around.x, area.y - around.y, area.width, area.height)
    return Grab((*resting, before, after), shown, surroundings)


def _two_looks_at_rest(look):
    """Two looks at the window that agree but for its upper part: the options below the mode cards slide in; the
    header's dot and the clock never rest."""
    before = look()
    time.sleep(LONGEST_TRANSITION)
    after = look()
    start = before.height * 2 // 5 * before.width * 4
    return (before, after) if before.pixels[start:] == after.pixels[start:] else None


def write_png(image, path):
    subprocess.run(["convert", "-size", f"{image.width}x{image.height}", "-depth", "8", "bgra:-", "-alpha", "off",
                    "-strip", f"png:{path}"], input=image.pixels, check=True, capture_output=True, timeout=20)
    return path


def play(launch, groups, picture):
    """Brings the panel from scene to scene and calls `picture(glimmet, name)` at each. What fails keeps nothing else
    from being tried: returns each failure as (name, error). `launch()` starts the program, once more where it ended."""
    failures, glimmet = [], None
    for group in groups:
        try:
            if glimmet is None or glimmet.process.poll() is not None:
                glimmet = launch()
            open_anew(glimmet)
        except FAULTS as error:
            failures += [(name, error) for name, *_ in group]
            continue
        failures += play_group(Stage(glimmet), group, picture)
    try:
        put_away(glimmet)
    except FAULTS as error:
        failures.append(("end", error))
    return failures


def play_group(stage, group, picture):
    failures = []
    for name, *steps in group:
        try:
            for step in steps:
                step(stage)
            picture(stage.glimmet, name)
        except FAULTS as error:
            failures.append((name, error))
    return failures


def open_anew(glimmet):
    put_away(glimmet)
    glimmet.open_panel()


def put_away(glimmet):
    """Closes the panel where it is open: what is open in it takes an Escape each."""
    def closed():
        if glimmet.is_panel_open():
            glimmet.desktop.screen.key("Escape")
        return not glimmet.is_panel_open()

    if glimmet is not None:
        wait_for(closed, 10, "the panel to close")


def start(desktop, binary, scale=1, network=(), environment=None):
    """Starts glimmet for its pictures and returns it once its text is in the menu bar."""
    scaling = {"QT_SCALE_FACTOR": str(scale)} if scale != 1 else {}
    glimmet = Glimmet(desktop, binary, scaling | (environment or {}), network=network).wait_until_running()
    glimmet.wait_until_clickable()
    return glimmet
