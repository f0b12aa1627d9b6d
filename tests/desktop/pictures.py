"""Pictures of the menu bar and of the open panel: every editor and sheet."""

import time

from desktop.glimmet import Glimmet
from desktop.processes import wait_for
from desktop.screen import Area

SCHEMES = ("light", "dark")
MARGIN = 16
LONGEST_TRANSITION = 0.3
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


# What each picture is called, and what is done before it is taken. Each scene goes on from the one before it.
SCENES = (
    ("clock", mode("Clock"), label(lambda text: text[:1].isdigit())),
    ("settings", tap("Settings")),
    ("quote", tap("Close"), mode("Quote"), label(lambda text: text == "stay curious ✦")),
    ("quote-own", add("New quote", "Add", *QUOTES), label(lambda text: text == QUOTES[0])),
    ("custom", mode("Custom"), label(lambda text: text == "hello world ✦")),
    ("revenue", mode("Revenue"), label(lambda text: text.startswith("💰"))),
    ("revenue-end", scroll_to_end),
    ("revenue-revenuecat", tap("RevenueCat"), scroll_to_end),
    ("revenue-dodo", tap("Dodo"), scroll_to_end),
    ("revenue-stripe", tap("Stripe"), scroll_to_end),
    ("keys", tap("API Keys")),
    ("keys-revealed", reveal_in_view),
    ("keys-end", scroll_to_end),
    ("crypto", tap("Close"), mode("Crypto"), label(lambda text: text.startswith("BTC $"))),
    ("crypto-many", add("New symbol", "Add", SYMBOLS)),
    ("crypto-end", scroll_to_end),
    ("deadline-empty", mode("Deadline"), label(lambda text: text == "no deadlines")),
    ("deadline", add("Deadline name", "Add Deadline", *DEADLINES),
     label(lambda text: text.startswith(DEADLINES[0]))),
    ("deadline-end", scroll_to_end),
    ("deadline-calendar", tap("Due date"), scroll_to_end),
)


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
    before = screen.pixels(lower)
    time.sleep(LONGEST_TRANSITION)
    return screen.pixels(lower) == before


def play(glimmet, scenes, picture):
    """Opens the panel, brings it from scene to scene and calls `picture(name)` at each."""
    glimmet.open_panel()
    stage = Stage(glimmet)
    for name, *steps in scenes:
        for step in steps:
            step(stage)
        picture(name)
    # What is open in the panel takes the first Escape.
    stage.screen.key("Escape", "Escape")
    stage.screen.wait_until_gone("glimmet")


def start(desktop, binary, scale=1, network=()):
    """Starts glimmet for its pictures and returns it once its text is in the menu bar."""
    environment = {"QT_SCALE_FACTOR": str(scale)} if scale != 1 else {}
    glimmet = Glimmet(desktop, binary, environment, network=network).wait_until_running()
    glimmet.wait_until_clickable()
    return glimmet
