"""What Orca says while somebody goes through the whole panel by the keyboard alone.

Each line of a walk is what is pressed and what is then said, all of it; what is typed without being shown is entered,
and no character of it may be said. `#` stands for any number, `AM|PM` for either of them, `<day>` for any day's full
date, `<details>` for what a deadline's row adds and `<status>` for whether a key is saved: they depend on when the walk
is.

The words are those of Orca 43, of which NEWER_WORDS makes those of Orca 48. What one of them may say beyond the other
is in brackets, and where they differ otherwise, both sentences are there. The dots at the end of words are pauses,
which each release makes in other places, and are not compared."""

import re
import unittest

from desktop.keyring import Keyring
from desktop.orca import Orca
from desktop.processes import DesktopError, wait_for
from desktop_case import DesktopCase

# The words for the keys that Orca repeats when they are pressed, and with them the characters that are typed into
# what shows them.
ECHOES = {"tab", "space", "return", "left shift", "left control", "backspace", "escape", "delete", "F2"}
OPEN_ENDS = {"#": r"\d+", "AM|PM": "(AM|PM)", "<day>": r"\w+day, \w+ \d+, \d+",
             "<details>": r"\w+ \d+, \d+, \d+:\d+ [AP]M, \d+[dh] \d+[hm] Return edits it, Delete removes it",
             # Orca 48 remembers for two seconds what it was before.
             "<status>": "(Key saved in Keychain|No key saved)",
             # It also says which list the keyboard comes into, and how many rows of it are none that is edited.
             "<list>": r"(Your quotes|Deadlines|Symbols)( List with \d+ items?)?"}
# `<group>` is the name of the group of choices that was entered last.
NEWER_WORDS = [
    (r"\bpush button", "button"),
    (r"(#|\d+|AM\|PM) spin button", r"spin button \1"),
    (r"^(.+ panel )?(.+) (not selected|selected) radio button$", r"\1<group> \2 \3 radio button"),
]


def without_pauses(text):
    return re.sub(r"\.(?=[ \]]|$)", "", text)


def in_older_words(sentence):
    """The signs are spelled, each dot of a hidden text on its own."""
    return re.sub("•+", lambda dots: " ".join(["bullet"] * len(dots[0])), sentence.replace("→", "right arrow"))


def in_newer_words(sentence, group):
    for words, newer in NEWER_WORDS:
        sentence = re.sub(words, newer, sentence)
    return sentence.replace("<group>", group)


def pattern_of(words):
    pattern = re.escape(words)
    pattern = re.sub(r"\\\[(.*?)\\\]\\ ", r"(\1\\ )?", pattern)
    pattern = re.sub(r"\\ \\\[(.*?)\\\]$", r"(\\ \1)?", pattern)
    for mark, meaning in OPEN_ENDS.items():
        pattern = pattern.replace(re.escape(mark), meaning)
    return pattern


def matches(sentence, group, said):
    plain = map(without_pauses, sentence.split(" // "))
    return any(re.fullmatch(pattern_of(words), without_pauses(said))
               for each in plain for words in (in_older_words(each), f"[<list>] {in_newer_words(each, group)}"))


class SpokenPanel(DesktopCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.keyring = Keyring(cls.desktop)

    def setUp(self):
        super().setUp()
        self.keyring.clear()
        # Of its own: Orca 48 remembers for a minute where in its memory a program that has ended had its parts, and is
        # silent about those of the next one that come to lie there.
        self.orca = self.enterContext(Orca(self.desktop))

    def open(self, mode=None, **preferences):
        if preferences:
            self.seed({f"me.kerno.glimmet.{key}": value for key, value in preferences.items()})
        self.announced = []
        self.addCleanup(self.desktop.tree.follow_announcements(self.announced.append))
        self.group = ""
        self.begin_step(set())
        self.launch().ask_for_panel()
        self.screen.wait_until_typed_into("glimmet")
        self.wait_to_hear("glimmet frame.")
        if mode:
            self.glimmet.choose_mode(mode)
        if mode == "Revenue":
            self.glimmet.control("add api key", "push button")
        self.find_the_keyboard()

    def find_the_keyboard(self):
        """Orca 48 says nothing of the first control that gets the keyboard where it hears of the key only then."""
        self.begin_step(ECHOES)
        self.screen.key("Tab")
        wait_for(lambda: "tab" in self.orca.lines[self.beginning:], 10, "Orca to hear of the key")
        self.step(["shift+Tab"], "[Settings push button.] Quit push button.")

    def begin_step(self, echoes):
        self.beginning = len(self.orca.lines)
        self.echoes = echoes

    def said(self, left_out=()):
        """What was said in this step, but for the names of the keys."""
        lines = self.orca.lines[self.beginning:]
        return " ".join(line for line in lines if line not in self.echoes and line not in left_out)

    def hears(self, sentence):
        """Newer releases of Orca also say what the panel announces, whenever that is."""
        return any(matches(sentence, self.group, said) for said in (self.said(), self.said(self.announced)))

    def wait_to_hear(self, sentence):
        try:
            wait_for(lambda: self.hears(sentence), 10, "words")
        except DesktopError:
            self.fail(f"“{self.said()}” is said, not “{sentence}”")

    def walk(self, steps):
        for line in steps.strip().splitlines():
            actions, _, sentence = line.strip().partition(": ")
            if " panel. " in sentence:
                self.group = sentence.partition(" panel. ")[0]
            self.step(actions.split(", "), sentence)

    def step(self, actions, sentence):
        typed = "".join(action.removeprefix("type ") for action in actions if action.startswith("type "))
        pressed = {action.rpartition("+")[2] for action in actions}
        self.begin_step(ECHOES | set(typed) | pressed)
        for action in actions:
            word, _, text = action.partition(" ")
            if word in ("type", "enter"):
                self.screen.type(text)
            else:
                self.screen.key(action)
        self.wait_to_hear(sentence)


class PanelByKeyboard(SpokenPanel):
    def wait_until_saved(self, key):
        field = self.glimmet.control(key, "text", "password text")
        wait_for(lambda: "Key saved" in field.description, 10, "the key to be saved")

    def test_the_cards_and_the_clock(self):
        self.open()

        self.walk("""
            Tab: Settings push button.
            Tab: Display mode panel. Clock. selected radio button
            Right: Quote. not selected radio button
            Right: Custom. not selected radio button
            Right: Revenue. not selected radio button
            Right: Crypto. not selected radio button
            Right: Deadline. not selected radio button
            Up: Revenue. not selected radio button
            Up: Quote. not selected radio button
            Left: Clock. selected radio button
            Tab: Show seconds check box checked.
            space: not checked
            Tab: 24-hour format check box checked.
            space: not checked
            Tab: Quit push button.
            Tab: Settings push button.
        """)

    def test_quotes(self):
        self.open(quotes=["make it work", "make it right"])

        self.walk("""
            Tab: Settings push button.
            Tab: Display mode panel. Clock. selected radio button
            Right: Quote. not selected radio button
            space: selected
            Tab: New quote text. stay curious ✦
            type measure, Tab: Add push button.
            Tab: Reset to defaults push button.
            Tab: make it work. Return edits it, Delete removes it.
            Tab: make it right. Return edits it, Delete removes it.
            F2: make it right selected make it right // Quote text. make it right selected. [make it right]
            Home: [make it right] Text unselected. m
            Escape: make it right. Return edits it, Delete removes it.
            Delete: make it work. Return edits it, Delete removes it.
            Tab: Undo Remove make it right push button.
            space: make it right. Return edits it, Delete removes it.
            Tab: Quit push button.
        """)

    def test_a_text_of_ones_own(self):
        self.open("Custom")

        self.walk("""
            Tab: Settings push button.
            Tab: Display mode panel. Custom. selected radio button
            Tab: Custom text text. hello world ✦ Type your text…
            Tab: Quit push button.
        """)

    def test_prices(self):
        self.open("Crypto")
        for symbol in ("BTC-USD", "ETH-USD"):
            cross = self.glimmet.control(f"Remove {symbol}", "push button")
            wait_for(lambda: cross.description, 30, "the reason why there is no price")

        self.walk("""
            Tab: Settings push button.
            Tab: Display mode panel. Crypto. selected radio button
            Tab: Remove BTC-USD push button. No network.
            Tab: Remove ETH-USD push button. No network.
            space: Remove BTC-USD push button. No network.
            Tab: Undo Remove ETH-USD push button.
            Tab: New symbol text. BTC, ETH-USD, AAPL…
            Tab: Add push button.
            Tab: Refresh every panel. 10s. selected radio button
            Right: 30s. not selected radio button
            space: selected
            Tab: Refresh push button.
            Tab: Quit push button.
        """)

    def test_revenue(self):
        self.open("Revenue")

        self.walk("""
            Tab: Settings push button.
            Tab: add api key push button. Opens the API keys.
            Tab: Display mode panel. Revenue. selected radio button
            Tab: Platform panel. Polar. selected radio button
            Right: RevenueCat. not selected radio button
            Right: Dodo. not selected radio button
            Right: Stripe. not selected radio button
            Right: Lemon Squeezy. not selected radio button
            Up: Dodo. not selected radio button
            space: selected
            Tab: Currency panel. USD. selected radio button
            Right: EUR. not selected radio button
            Tab: Currency code text. USD.
            Tab: Apply push button.
            Tab: Figure panel. METRIC Revenue. selected radio button
            Right: Orders. not selected radio button
            Right: Avg. not selected radio button
            Right: Top. not selected radio button
            Tab: Period panel. All Time. selected radio button
            Left: Month. not selected radio button
            Left: Week. not selected radio button
            Left: Today. not selected radio button
            Tab: Refresh push button.
            Tab: API Keys push button.
            Tab: Quit push button.
        """)

    def test_deadlines(self):
        self.open("Deadline")

        self.walk("""
            Tab: Settings push button.
            Tab: Display mode panel. Deadline. selected radio button
            Tab: Deadline name text. Name (e.g. Math Exam)
            type rent, Tab: Due date, month # spin button.
            Tab: Due date, day # spin button.
            Tab: Due date, year # spin button.
            Up: #
            Tab: Due date, hour # spin button.
            Tab: Due date, minute # spin button.
            Tab: Due date, AM or PM AM|PM spin button.
            Up: AM|PM
            Down: AM|PM
            Tab: Due date push button.
            space: <day> push button. Selected.
            Right: <day> push button.
            shift+Tab: Next month push button.
            Tab: <day> push button.
            Escape: Due date push button.
            Tab: Add Deadline push button.
            space, shift+Tab: [Deadline name text. Name (e.g. Math Exam)] rent. <details>
            Return: rent selected rent // Name text. rent selected. [rent]
            Home: [rent] Text unselected. r
            Tab: Save push button.
            Escape: rent. <details>
            shift+Tab: Clear all push button.
            space, Tab: [Undo Clear all push button.] Deadline name text. Name (e.g. Math Exam)
            shift+Tab: Undo Clear all push button.
            space, Tab: [Clear all push button.] rent. <details>
        """)

    def test_the_settings(self):
        self.open()

        self.walk("""
            Tab: Settings push button.
            space: Settings dialog.
            Tab: Close push button.
            Tab: Launch on startup check box not checked.
            space: checked
            Tab: Check for Updates push button.
            Tab: Close push button.
            space: Settings push button.
        """)

    def test_the_keys(self):
        self.open("Revenue")

        self.walk("""
            Tab: Settings push button.
            Tab: add api key push button. Opens the API keys.
            space: API Keys dialog POLAR PERSONAL ACCESS TOKEN password text. Polar → Settings → API. No key saved.
            Tab: Show key push button. POLAR PERSONAL ACCESS TOKEN.
            Tab: REVENUECAT SECRET API KEY password text. Dashboard → Project → API Keys. No key saved.
            Tab: Show key push button. REVENUECAT SECRET API KEY.
            Tab: REVENUECAT PROJECT ID password text. Dashboard → Project Settings. No key saved.
            Tab: Show key push button. REVENUECAT PROJECT ID.
            Tab: DODO PAYMENTS API KEY password text. Dodo Payments → Settings → API Keys. No key saved.
            Tab: Show key push button. DODO PAYMENTS API KEY.
            Tab: STRIPE RESTRICTED KEY password text. Dashboard → Developers → API keys. No key saved.
            Tab: Show key push button. STRIPE RESTRICTED KEY.
            Tab: LEMON SQUEEZY API KEY password text. Lemon Squeezy → Settings → API. No key saved.
            Tab: Show key push button. LEMON SQUEEZY API KEY.
            Tab: Close push button.
            space: add api key push button. Opens the API keys.
        """)

    def test_a_keys_characters_are_said_only_while_it_is_shown(self):
        self.open("Revenue")
        before = len(self.orca.lines)

        self.walk("""
            Tab: Settings push button.
            Tab: add api key push button. Opens the API keys.
            space: API Keys dialog POLAR PERSONAL ACCESS TOKEN password text. Polar → Settings → API. No key saved.
            enter qzw, Tab: Show key push button. POLAR PERSONAL ACCESS TOKEN.
        """)
        self.wait_until_saved("POLAR PERSONAL ACCESS TOKEN")
        self.walk("""
            shift+Tab: POLAR PERSONAL ACCESS TOKEN password text ••• Polar → Settings → API. <status>
            Left: •
            Home: •
            shift+End: ••• selected
            BackSpace: [Polar → Settings → API. No key saved.] Text unselected.
            enter qzw, Tab: Show key push button. POLAR PERSONAL ACCESS TOKEN.
        """)
        self.wait_until_saved("POLAR PERSONAL ACCESS TOKEN")
        for line in self.orca.lines[before:]:
            self.assertIsNone(re.search(r"[qz]|\bw\b", line), line)

        next_key = "REVENUECAT SECRET API KEY password text. Dashboard → Project → API Keys. No key saved."
        self.walk(f"""
            space, Tab: [Hide key push button.] {next_key}
            shift+Tab: Hide key push button. POLAR PERSONAL ACCESS TOKEN.
            shift+Tab: POLAR PERSONAL ACCESS TOKEN [password] text qzw. Polar → Settings → API. <status>
            Left: w
        """)


if __name__ == "__main__":
    unittest.main()
