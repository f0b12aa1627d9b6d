"""The ways of a new user through the panel, by a real pointer or by the keyboard alone, to take pictures of: a key
behind a locked keyring, a symbol with a slip in it, deadlines removed by mistake, a date as Germans write it."""

import time

from desktop import pictures
from desktop.glimmet import PANEL
from desktop.keyring import PASSWORD
from desktop.processes import DesktopError, wait_for
from desktop.revenue_server import POLAR

ENVIRONMENT = {"LANG": "de_DE.UTF-8", "LC_ALL": "de_DE.UTF-8", "TZ": "Europe/Berlin"}
DIALOG = "Unlock Login Keyring"
BUTTON, CARD, FIELD = ("push button",), ("radio button",), pictures.FIELD
KEY_FIELD = "POLAR PERSONAL ACCESS TOKEN"
SLIP, MEANT = "APPL", "AAPL"
DEADLINES = ("Rent", "Math Exam", "Release")
# What the page and the sheets do not scroll under.
TOP, BOTTOM = 40, 60
MOST_STOPS = 60
# Between two keys, as long as a quick hand takes.
PAUSE = 0.05
LONGEST_DELAY_OF_A_TIP = 1.5
MODES = ("Clock", "Quote", "Custom", "Revenue", "Crypto", "Deadline")


def point_at(name, roles):
    """Moves the pointer over the control, which the wheel brings into view first."""
    def pointed(stage):
        node, panel = stage.control(name, *roles), stage.screen.wait_for_window(PANEL)
        for _ in range(MOST_STOPS):
            x, y = node.area.middle
            if panel.y + TOP < y < panel.bottom - BOTTOM and node.showing:
                break
            stage.screen.run("xdotool", "mousemove", str(panel.middle[0]), str(panel.y + panel.height * 2 // 3),
                             "click", "5" if y > panel.middle[1] else "4")
            time.sleep(PAUSE)
        stage.screen.move(x, y)

    return pointed


def click(name, roles=BUTTON):
    def clicked(stage):
        point_at(name, roles)(stage)
        # What slides in or scrolls is still on its way.
        wait_for(lambda: _stands_still(stage, name, roles), 10, f"“{name}” to stand still")
        stage.screen.click(*stage.control(name, *roles).area.middle)

    return clicked


def _stands_still(stage, name, roles):
    before = stage.control(name, *roles).area
    time.sleep(pictures.LONGEST_TRANSITION / 3)
    return stage.control(name, *roles).area == before


def tab_to(name, roles=BUTTON, key="Tab"):
    """Goes on by one key until the control has the keyboard."""
    def arrived(stage):
        for _ in range(MOST_STOPS):
            node = stage.glimmet.desktop.tree.program(PANEL).find(name, *roles)
            if node and node.focused:
                return
            stage.screen.key(key)
            time.sleep(PAUSE)
        raise DesktopError(f"{MOST_STOPS} times {key} never led to “{name}”")

    return arrived


def choose_by_keys(name):
    """Space on a card of the group of modes, which is one stop of the Tab key."""
    def chosen(stage):
        tree = stage.glimmet.desktop.tree.program(PANEL)
        cards = [tree.find(mode, *CARD) for mode in MODES]

        def focused():
            return next((i for i, card in enumerate(cards) if card.focused), None)

        for _ in range(MOST_STOPS):
            if focused() is not None:
                break
            stage.screen.key("Tab")
            time.sleep(PAUSE)
        key = "Right" if MODES.index(name) > (focused() or 0) else "Left"
        tab_to(name, CARD, key)(stage)
        stage.screen.key("space")

    return chosen


def press(*keys):
    return lambda stage: stage.screen.key(*keys)


def type_text(text):
    return lambda stage: stage.screen.type(text)


def type_line(text):
    """What is typed, and Return."""
    return lambda stage: (stage.screen.type(text), stage.screen.key("Return"))


def words(text):
    return lambda stage: stage.control(text, "label", "static", "paragraph")


def dialog(stage):
    """The keyring asks for its password."""
    window = wait_for(lambda: stage.screen.windows(DIALOG), 15, "the keyring's dialog")[0]
    wait_for(lambda: stage.screen.keyboard_owner() == window, 15, "the dialog to have the keyboard")


def dismiss(stage):
    stage.screen.key("Escape")
    stage.screen.wait_until_gone(DIALOG)
    stage.screen.wait_until_typed_into(PANEL)


def type_password(stage):
    stage.screen.type(PASSWORD.decode())
    stage.screen.key("Return")
    stage.screen.wait_until_gone(DIALOG)


def has_keyboard(name, roles=FIELD):
    return lambda stage: wait_for(lambda: stage.control(name, *roles).focused, 10, f"the keyboard in “{name}”")


def add_deadlines(stage):
    pictures.add("Deadline name", "Add Deadline", *DEADLINES)(stage)
    for name in DEADLINES:
        stage.control(f"Remove {name}", *BUTTON)


def paste_key(stage):
    """A whole key at once, as it comes from a clipboard."""
    stage.control(KEY_FIELD, *FIELD).write(POLAR.key)


def told_why(stage):
    """A symbol without a price says why after two tries."""
    def told():
        stage.control("Refresh", *BUTTON).press()
        time.sleep(1)
        return any(node.is_described("Not found") for node in stage.glimmet.desktop.tree.program(PANEL).walk())

    wait_for(told, 20, "the reason why there is no price")


def let_tip_come(_stage):
    time.sleep(LONGEST_DELAY_OF_A_TIP)


def each(make, names):
    """The same step for each of the names, as one."""
    return lambda stage: [make(name)(stage) for name in names]


BY_POINTER = (
    (("key-1-revenue-dialog", click("Revenue", CARD), dialog),
     ("key-2-dismissed", dismiss),
     ("key-3-sheet", click("add api key"), has_keyboard(KEY_FIELD)),
     ("key-4-pasted-dialog", paste_key, dialog),
     ("key-4-not-saved", dismiss, words("Keyring locked: kept until glimmet quits")),
     ("key-5-unlocking-dialog", click("Unlock"), dialog),
     ("key-6-saved", type_password, words("Key saved in Keychain")),
     ("key-7-figure", click("Close"), pictures.label(lambda text: text.startswith("💰")))),
    (("symbol-1-typed", click("Crypto", CARD), click("New symbol", FIELD), type_text(SLIP)),
     ("symbol-2-added", press("Return")),
     ("symbol-3-told", told_why),
     ("symbol-4-tooltip", point_at(SLIP, ()), let_tip_come),
     ("symbol-5-chart", pictures.label(lambda text: SLIP in text), pictures.scroll_to_end),
     ("symbol-6-removed", click(f"Remove {SLIP}")),
     ("symbol-7-right", click("New symbol", FIELD), type_text(MEANT), press("Return"))),
    (("deadlines-1-three", click("Deadline", CARD), add_deadlines),
     ("deadlines-2-removed", each(lambda name: click(f"Remove {name}"), DEADLINES)),
     ("deadlines-3-back", each(lambda name: click(f"Undo Remove {name}"), DEADLINES)),
     ("deadlines-4-cleared", click("Clear all")),
     ("deadlines-5-back", click("Undo Clear all"))),
    (("date-1-name", click("Deadline name", FIELD), type_text("Steuer")),
     ("date-2-written", click("Due date, day", ()), type_text("1.2.2027 9:15")),
     ("date-3-added", click("Add Deadline"))),
)
BY_KEYBOARD = (
    (("key-1-revenue-dialog", choose_by_keys("Revenue"), dialog),
     ("key-2-dismissed", dismiss),
     ("key-3-sheet", tab_to("add api key"), press("space"), has_keyboard(KEY_FIELD)),
     ("key-4-pasted-dialog", paste_key, dialog),
     ("key-4-not-saved", dismiss, words("Keyring locked: kept until glimmet quits")),
     ("key-5-unlocking-dialog", tab_to("Unlock"), press("space"), dialog),
     ("key-6-saved", type_password, words("Key saved in Keychain")),
     ("key-7-figure", tab_to("Close"), press("space"), pictures.label(lambda text: text.startswith("💰")))),
    (("symbol-1-typed", choose_by_keys("Crypto"), tab_to("New symbol", FIELD), type_text(SLIP)),
     ("symbol-2-added", press("Return")),
     ("symbol-3-told", told_why),
     ("symbol-4-focused", tab_to(f"Remove {SLIP}", key="shift+Tab"), let_tip_come),
     ("symbol-6-removed", press("space")),
     ("symbol-7-right", tab_to("New symbol", FIELD), type_text(MEANT), press("Return"))),
    (("deadlines-1-three", choose_by_keys("Deadline"), tab_to("Deadline name", FIELD),
      each(type_line, DEADLINES)),
     ("deadlines-2-removed", tab_to("Clear all"), press("Tab", "Delete", "Delete", "Delete")),
     ("deadlines-3-back", press("ctrl+z", "ctrl+z", "ctrl+z")),
     ("deadlines-4-cleared", tab_to("Clear all"), press("space")),
     ("deadlines-5-back", press("ctrl+z"))),
    (("date-1-name", tab_to("Deadline name", FIELD), type_text("Steuer")),
     ("date-2-written", press("Tab"), type_text("1.2.2027 9:15")),
     ("date-3-added", tab_to("Add Deadline"), press("space"))),
)
WALKS = {"pointer": BY_POINTER, "keyboard": BY_KEYBOARD}
