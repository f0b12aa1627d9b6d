"""Keys in the services that other desktops and other users have: KWallet and KeePassXC, each with its own dialogs."""

import unittest

from desktop import own_namespaces
from desktop.glimmet import PANEL
from desktop.keepassxc import KeePassXC
from desktop.kwallet import KWallet
from desktop.processes import wait_for, watch_for
from desktop.revenue_server import KEYS, POLAR
from revenue_case import FIGURE, RevenueCase

reason_to_skip = own_namespaces.reason_to_skip
MISSING = "add api key"
KEY_FIELD = "POLAR PERSONAL ACCESS TOKEN"
FIELD = ("text", "entry", "password text")
# Where one of them is missing, a start that may write adds it.
ALL = KEYS | {"stripe_currency": "USD"}
POLAR_KEY = {POLAR.account: POLAR.key}


class KeyServiceCase(RevenueCase):
    has_keyring = False

    def lock_with_all_keys(self):
        self.keyring.put(KEYS)
        self.keyring.lock()

    def type_key(self, key):
        """Enters a key in the sheet, which stays open."""
        self.glimmet.control("API Keys", "push button").press()
        self.glimmet.control(KEY_FIELD, *FIELD).write(key)

    def wait_for_stored(self, texts):
        wait_for(lambda: dict(self.keyring.texts()).items() >= texts.items(), 30, "the stored keys")

    def watch_without_dialog(self, seconds=2):
        watch_for(seconds, lambda: self.assertFalse(self.keyring.has_dialog(), "a dialog that nobody asked for"))

    def end_and_look(self):
        """What is stored once the program has ended, by who knows the password."""
        self.assertEqual(self.glimmet.stop(), 0)
        if self.keyring.is_locked():
            self.keyring.unlock()
        return self.keyring.texts()

    def store_a_typed_key(self):
        self.launch()
        self.show_revenue()
        self.wait_for_text(MISSING, 30)
        self.type_key(POLAR.key)
        self.wait_for_text(FIGURE, 30)


class Dialogs:
    """What every service has to go through whose dialogs come from locks alone."""

    def test_shows_the_figure_of_a_key_that_is_there_and_asks_nothing(self):
        self.keyring.put(POLAR_KEY)
        self.launch()

        self.show_revenue()

        self.wait_for_text(FIGURE, 30)
        self.watch_without_dialog()

    def test_finds_a_typed_key_in_the_next_start(self):
        self.store_a_typed_key()
        self.wait_for_stored(POLAR_KEY)
        self.assertEqual(self.glimmet.stop(), 0)

        self.launch()
        self.show_revenue()

        self.wait_for_text(FIGURE, 30)
        self.watch_without_dialog()

    def test_asks_for_nothing_at_a_start_behind_a_lock(self):
        self.lock_with_all_keys()

        self.launch()

        wait_for(lambda: len(self.glimmet.labels) >= 3, 30, "a clock that goes on")
        self.watch_without_dialog()
        self.assertTrue(self.keyring.is_locked())
        self.assertEqual(self.end_and_look(), sorted(KEYS.items()))

    def test_revenue_behind_a_lock_brings_the_dialog_and_its_answer_the_figure(self):
        self.lock_with_all_keys()
        self.launch()

        self.show_revenue()
        self.keyring.answer()

        self.wait_for_text(FIGURE, 30)
        self.wait_for_stored(KEYS)

    def test_a_dismissed_dialog_leaves_all_as_it_was(self):
        self.lock_with_all_keys()
        self.launch()

        self.show_revenue()
        self.keyring.dismiss()

        self.wait_for_text(MISSING, 30)
        self.watch_without_dialog()
        self.assertEqual(self.server.asked(POLAR), [])
        self.assertTrue(self.keyring.is_locked())
        self.assertEqual(self.end_and_look(), sorted(KEYS.items()))

    def test_a_typed_key_has_the_service_make_what_it_is_kept_in(self):
        self.keyring.start_without_collection()
        self.launch()
        self.show_revenue()
        self.wait_for_text(MISSING, 30)
        self.watch_without_dialog()

        self.type_key(POLAR.key)
        self.keyring.answer_creation()

        wait_for(self.keyring.has_collection, 30, "the collection")
        self.wait_for_stored(POLAR_KEY)


class WithKWallet(Dialogs, KeyServiceCase):
    @classmethod
    def make_keyring(cls):
        return KWallet(cls.desktop)

    def test_the_dialog_belongs_to_the_panel_which_stays_open(self):
        self.lock_with_all_keys()
        self.launch()
        self.show_revenue()
        panel, = self.screen.windows(PANEL)

        dialog = wait_for(self.keyring.dialogs, 30, "the dialog")[0]

        wait_for(lambda: self.screen.transient_for(dialog) == int(panel), 15, "the dialog to belong to the panel")
        self.keyring.dismiss()
        watch_for(1, lambda: self.assertTrue(self.glimmet.is_panel_open()))


class WithKeePassXC(Dialogs, KeyServiceCase):
    @classmethod
    def make_keyring(cls):
        return KeePassXC(cls.desktop, asks=False)


class WithKeePassXCThatAsks(KeyServiceCase):
    """As it is unless told otherwise: unlocked, it still has the user agree to each entry that a program reads."""

    @classmethod
    def make_keyring(cls):
        return KeePassXC(cls.desktop, asks=True)

    def test_asks_for_nothing_at_the_start(self):
        self.keyring.put(ALL)

        self.launch()

        wait_for(lambda: len(self.glimmet.labels) >= 3, 30, "a clock that goes on")
        self.watch_without_dialog()
        self.assertEqual(self.end_and_look(), sorted(ALL.items()))

    def test_revenue_brings_one_dialog_for_all_keys_and_its_answer_the_figure(self):
        self.keyring.put(ALL)
        self.launch()

        self.show_revenue()
        self.keyring.answer()

        self.wait_for_text(FIGURE, 30)
        self.watch_without_dialog()
        self.wait_for_stored(ALL)

    def test_a_refused_access_leaves_all_as_it_was(self):
        self.keyring.put(ALL)
        self.launch()

        self.show_revenue()
        self.keyring.dismiss()

        self.wait_for_text(MISSING, 30)
        self.watch_without_dialog()
        self.assertEqual(self.end_and_look(), sorted(ALL.items()))

    def test_stores_a_typed_key_where_there_was_none(self):
        self.store_a_typed_key()

        self.wait_for_stored(POLAR_KEY)


if __name__ == "__main__":
    unittest.main()
