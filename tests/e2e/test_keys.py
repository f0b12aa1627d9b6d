"""The keys in the keyring: what a start makes of them, also where the keyring is locked or does not answer."""

import signal
import time
import unittest

from desktop import own_namespaces
from desktop.keyring import Keyring
from desktop.processes import wait_for, watch_for
from desktop.revenue_server import KEYS, POLAR
from revenue_case import FIGURE, RevenueCase

reason_to_skip = own_namespaces.reason_to_skip
EMPTY = {account: "" for account in KEYS} | {"stripe_currency": "USD"}
MISSING = "add api key"
DIALOG = "Unlock Login Keyring"
PROMPTER = "gcr-prompter"
SAVED = "Key saved in Keychain"
FIELD = "POLAR PERSONAL ACCESS TOKEN"


class Keys(RevenueCase):
    def stored(self, texts):
        return sorted(texts.items())

    def lock_with_all_keys(self):
        self.keyring.put(KEYS)
        self.keyring.lock()
        # The dialog outlives the program for whose sake it asks, and what it asks for.
        self.addCleanup(self.dismiss_dialog)
        self.addCleanup(self.keyring.unlock)

    def begin_locked(self):
        """Returns while the dialog asks for the password, which it does for the user's own choice alone."""
        self.lock_with_all_keys()
        self.launch()
        wait_for(lambda: len(self.glimmet.labels) >= 3, 15, "a clock that goes on")
        self.assertEqual(self.screen.windows(DIALOG), [])
        self.show_revenue()
        self.wait_for_text(MISSING)
        self.screen.wait_for_window(DIALOG)

    def show_keys(self):
        self.glimmet.ask_for_panel()
        self.glimmet.choose_mode("Revenue")
        self.glimmet.control("API Keys", "push button").press()

    def dismiss_dialog(self):
        if self.screen.windows(DIALOG):
            self.screen.key("Escape")
        self.screen.wait_until_gone(DIALOG)

    def wait_for_stored(self, texts):
        wait_for(lambda: self.keyring.texts() == self.stored(texts), 15, "the items in the keyring")

    def test_a_first_start_stores_seven_items(self):
        self.launch()

        self.wait_for_stored(EMPTY)

    def test_later_starts_keep_what_is_stored(self):
        texts = KEYS | {"stripe_currency": "GBP"}
        self.keyring.put(texts)

        for _ in range(3):
            self.launch()
            wait_for(lambda: self.server.asked(POLAR), 15, "the request of the start")
            self.assertEqual(self.glimmet.stop(), 0)
            self.assertEqual(self.keyring.texts(), self.stored(texts))

    def test_asks_for_the_key_while_the_keyring_is_locked_and_overwrites_nothing(self):
        self.begin_locked()

        self.assertEqual(self.glimmet.stop(), 0)

        self.assertEqual(self.server.asked(POLAR), [])
        self.assertTrue(self.keyring.is_locked())
        self.keyring.unlock()
        self.assertEqual(self.keyring.texts(), self.stored(KEYS))

    def test_shows_the_figure_once_the_password_is_typed(self):
        self.begin_locked()

        self.screen.type("password")
        self.screen.key("Return")

        self.wait_for_text(FIGURE)
        self.wait_for_stored(EMPTY | KEYS)

    def test_shows_the_figure_once_another_program_unlocks_the_keyring(self):
        self.begin_locked()

        self.keyring.unlock()

        self.wait_for_text(FIGURE)
        self.wait_for_stored(EMPTY | KEYS)

    def test_the_panel_stays_open_while_the_dialog_is_up_and_after_it(self):
        self.begin_locked()

        watch_for(1, lambda: self.assertTrue(self.glimmet.is_panel_open()))
        self.dismiss_dialog()

        watch_for(1, lambda: self.assertTrue(self.glimmet.is_panel_open()))
        self.screen.key("Escape")
        wait_for(lambda: not self.glimmet.is_panel_open(), 15, "the panel to be closed by its own key")

    def test_a_dismissed_dialog_stays_away_and_the_key_is_taken_later_all_the_same(self):
        self.begin_locked()

        self.dismiss_dialog()
        self.glimmet.choose_mode("Clock")
        self.show_revenue()
        watch_for(2, lambda: self.assertEqual(self.screen.windows(DIALOG), []))
        self.assertEqual(self.glimmet.label, MISSING)
        self.keyring.unlock()

        self.wait_for_text(FIGURE)
        self.wait_for_stored(EMPTY | KEYS)

    def test_a_dismissed_dialog_comes_back_for_who_asks_to_unlock(self):
        self.begin_locked()
        self.dismiss_dialog()
        self.show_keys()
        self.glimmet.control("Unlock", "push button").press()
        self.screen.wait_for_window(DIALOG)

        self.screen.type("password")
        self.screen.key("Return")

        self.wait_for_words(SAVED)
        self.wait_for_stored(EMPTY | KEYS)

    def test_a_key_typed_while_the_keyring_is_locked_is_not_called_saved_until_it_is(self):
        self.begin_locked()
        self.dismiss_dialog()
        self.show_keys()

        self.glimmet.control(FIELD, "text", "password text").write("polar_oat_new")

        self.wait_for_words("Keyring locked: kept until glimmet quits")
        self.keyring.unlock()
        self.wait_for_words(SAVED)
        self.wait_for_stored(EMPTY | KEYS | {"polar_api_key": "polar_oat_new"})

    def test_a_key_typed_while_the_keyring_is_locked_is_tried_once_more_at_the_end(self):
        self.begin_locked()
        self.dismiss_dialog()
        self.show_keys()
        self.glimmet.control(FIELD, "text", "password text").write("polar_oat_new")
        self.glimmet.process.send_signal(signal.SIGSTOP)
        self.keyring.unlock()
        self.glimmet.process.send_signal(signal.SIGTERM)
        self.glimmet.process.send_signal(signal.SIGCONT)

        self.assertEqual(self.glimmet.stop(), 0)
        self.wait_for_stored(KEYS | {"polar_api_key": "polar_oat_new"})

    def test_a_keyring_that_does_not_answer_delays_the_start_a_little_only(self):
        self.keyring.put(KEYS)
        self.keyring.freeze()
        self.addCleanup(self.keyring.thaw)
        start = time.monotonic()

        self.launch()

        self.assertLess(time.monotonic() - start, 4)
        wait_for(lambda: len(self.glimmet.labels) >= 3, 15, "a clock that goes on")
        self.show_revenue()
        self.wait_for_text(MISSING)
        self.keyring.thaw()
        self.wait_for_text(FIGURE, 10)
        self.wait_for_stored(EMPTY | KEYS)


class KeysWithoutKeyring(RevenueCase):
    """There is a keyring service, in which the user has no keyring yet."""

    def setUp(self):
        super().setUp()
        self.keyring.delete()
        self.launch()
        self.show_revenue()

    def type_key(self):
        self.glimmet.control("API Keys", "push button").press()
        self.glimmet.control(FIELD, "text", "password text").write(POLAR.key)

    def test_the_keyring_is_made_by_its_own_dialog_for_who_types_a_key(self):
        watch_for(1, lambda: self.assertEqual(self.screen.windows_of(PROMPTER), []))
        self.type_key()
        dialog, = wait_for(lambda: self.screen.windows_of(PROMPTER), 15, "the dialog for a new keyring")
        wait_for(lambda: self.screen.keyboard_owner() == dialog, 15, "the dialog to have the keyboard")
        self.wait_for_words("No keyring yet: kept until glimmet quits")

        self.screen.type("password\tpassword")
        self.screen.key("Return")

        self.wait_for_words(SAVED)
        self.wait_for_text(FIGURE)
        keyring = Keyring(self.desktop)
        wait_for(lambda: dict(keyring.texts()).get(POLAR.account) == POLAR.key, 15, "the key in the new keyring")


if __name__ == "__main__":
    unittest.main()
