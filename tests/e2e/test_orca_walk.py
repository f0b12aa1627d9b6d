"""What a new user hears of Orca on the way to a first figure, a price and a deadline, by the keyboard alone.

Orca 43 says nothing of what the panel announces: all of this is said of where the keyboard comes to."""

import datetime
import unittest

from desktop import own_namespaces
from desktop.pictures import Stage
from desktop.processes import DesktopError, wait_for
from desktop.walks import (
    ENVIRONMENT, KEY_FIELD, SLIP, dialog, dismiss, paste_key, press, told_why, type_line, type_password, type_text,
    words)
from desktop.world_server import WorldServer
from revenue_case import FIGURE, RevenueCase
from test_orca import SpokenPanel, in_newer_words, in_older_words, without_pauses

reason_to_skip = own_namespaces.reason_to_skip
PRICES = (("BTC-USD", 97012), ("ETH-USD", 3400))
SAVED = "Key saved in Keychain"
DEADLINES = ("Rent", "Exam", "Trip")


class NewUser(RevenueCase, SpokenPanel):
    server_class = WorldServer
    environment = None

    def begin(self, environment=None, **options):
        return super().begin(environment or self.environment, **options)

    def do(self, *actions):
        self.begin_step(set())
        for action in actions:
            action(Stage(self.glimmet))

    def wait_to_be_told(self, words):
        """Among whatever else is said, as of a window that has the keyboard again."""
        ways = [without_pauses(way) for way in (in_older_words(words), in_newer_words(words, self.group))]
        try:
            wait_for(lambda: any(way in without_pauses(self.said()) for way in ways), 10, "words")
        except DesktopError:
            self.fail(f"“{self.said()}” is said, and nowhere “{words}”")

    def meet_dialog(self, *actions):
        """Does what brings the keyring's dialog, and lets Orca take note of it."""
        self.do(*actions, dialog)
        self.wait_to_be_told("Unlock Login Keyring dialog")
        self.wait_to_be_told("password text")

    def tab_to_the_eye(self):
        """Beside the field, in which Orca says nothing where a dialog has been over it."""
        self.do(press("Tab"))
        self.wait_to_be_told(f"Show key push button {KEY_FIELD}")

    def wait_for_deadlines(self, *titles):
        def are_stored():
            return (self.preferences.exists() and "me.kerno.glimmet.deadlines" in self.stored()
                    and [deadline["title"] for deadline in self.stored_deadlines()] == list(titles))

        wait_for(are_stored, 10, "the deadlines in the file")

    def test_a_key_behind_a_locked_keyring_leads_to_the_figure(self):
        self.keyring.lock()
        self.open()
        self.walk("""
            Tab: Settings push button.
            Tab: Display mode panel. Clock. selected radio button
            Right: Quote. not selected radio button
            Down: Revenue. not selected radio button
        """)
        self.meet_dialog(press("space"))
        self.do(dismiss)
        self.wait_for_text("add api key")
        # What is said until the next key is different with each release, and from run to run.
        self.screen.wait_until_typed_into("glimmet")
        self.do(press("shift+Tab"))
        self.wait_to_be_told("add api key push button. Opens the API keys")
        self.do(press("space"))
        # Before that, as a part of the dialog, also what is below the field where that is known by then.
        self.wait_to_be_told(f"{KEY_FIELD} password text. Polar → Settings → API. The keyring is locked")

        self.meet_dialog(paste_key)
        self.do(dismiss)
        self.tab_to_the_eye()
        self.walk("""
            Tab: Unlock push button. Keyring locked: kept until glimmet quits.
        """)

        self.meet_dialog(press("space"))
        self.do(type_password, words(SAVED))
        self.tab_to_the_eye()
        self.do(press("shift+Tab"))
        self.wait_to_be_told(SAVED)
        self.do(press("Escape"))
        self.wait_to_be_told(FIGURE)
        self.walk("""
            Tab: Display mode panel. Revenue. selected radio button
        """)

    def test_a_slip_in_a_symbol_is_told_where_the_symbol_is_removed(self):
        for symbol, price in PRICES:
            self.server.set_price(symbol, price, price)
        self.open("Crypto")
        self.walk("""
            Tab: Settings push button.
            Tab: Display mode panel. Crypto. selected radio button
            Tab: Remove BTC-USD push button.
            Tab: Remove ETH-USD push button.
            Tab: New symbol text. BTC, ETH-USD, AAPL…
        """)

        self.do(type_line(SLIP), told_why)

        self.walk("""
            shift+Tab: Remove APPL push button. Not found.
            shift+Tab: Remove ETH-USD push button.
        """)

    def test_removed_deadlines_come_back(self):
        self.open("Deadline")
        self.walk("""
            Tab: Settings push button.
            Tab: Display mode panel. Deadline. selected radio button
            Tab: Deadline name text. Name (e.g. Math Exam)
        """)
        self.do(*map(type_line, DEADLINES))
        self.wait_for_deadlines(*DEADLINES)
        wait_for(lambda: self.said().split().count("return") == len(DEADLINES), 10, "the last key to be said")

        self.walk("""
            shift+Tab: Trip. <details>
            Delete: Exam. <details>
            Delete: Rent. <details>
            Delete: Undo Remove Rent push button.
        """)
        self.wait_for_deadlines()
        self.walk("""
            ctrl+z: [undo] Rent. <details>
        """)
        self.do(press("ctrl+z", "ctrl+z"))
        self.wait_for_deadlines(*DEADLINES)

        self.walk("""
            Tab: Exam. <details>
            Tab: Trip. <details>
        """)

    def test_a_date_is_told_as_it_was_written(self):
        self.environment = ENVIRONMENT
        self.open("Deadline")
        self.walk("""
            Tab: Settings push button.
            Tab: Display mode panel. Deadline. selected radio button
            Tab: Deadline name text. Name (e.g. Math Exam)
            type tax, Tab: Due date, day # spin button.
        """)

        self.do(type_text("1.2.2027 9:15"))
        wait_for(lambda: self.orca.lines[-1] == "5", 10, "the last of what is typed to be said")

        # Orca 48 is still telling where it went meanwhile.
        self.do(press("Tab"))
        self.wait_to_be_told("Due date push button")
        self.walk("""
            shift+Tab: Due date, minute 15 spin button.
            shift+Tab: Due date, hour 09 spin button.
            shift+Tab: Due date, year 2027 spin button.
            shift+Tab: Due date, month 02 spin button.
            shift+Tab: Due date, day 01 spin button.
        """)
        self.screen.key("Tab", "Tab", "Tab", "Tab", "Tab", "Tab", "space")
        self.wait_for_deadlines("tax")
        berlin = datetime.timezone(datetime.timedelta(hours=1))
        reference = datetime.datetime(2001, 1, 1, tzinfo=datetime.timezone.utc)
        written = datetime.datetime(2027, 2, 1, 9, 15, tzinfo=berlin) - reference
        self.assertEqual(self.stored_deadlines()[0]["date"], written.total_seconds())


if __name__ == "__main__":
    unittest.main()
