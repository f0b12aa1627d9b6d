"""A walk through the whole panel in GNOME Shell, through the accessibility tree alone."""

import unittest

from gi.repository import GLib

from desktop.processes import wait_for
from desktop.revenue_server import DODO, KEYS, PLATFORMS, POLAR, REVENUECAT, STRIPE
from desktop.world_server import WorldServer
from revenue_case import RevenueCase

BUTTON, CHIP = "push button", "radio button"
FIELD = ("text", "entry", "password text")
TITLES = {"Polar": "POLAR", "RevenueCat": "REVENUECAT", "Dodo": "DODO PAYMENTS", "Stripe": "STRIPE",
          "Lemon Squeezy": "LEMON SQUEEZY"}
KEY_FIELDS = {
    "polar_api_key": "POLAR PERSONAL ACCESS TOKEN",
    "revenuecat_api_key": "REVENUECAT SECRET API KEY",
    "revenuecat_project_id": "REVENUECAT PROJECT ID",
    "dodo_api_key": "DODO PAYMENTS API KEY",
    "stripe_api_key": "STRIPE RESTRICTED KEY",
    "lemonsqueezy_api_key": "LEMON SQUEEZY API KEY",
}


class PanelWalk(RevenueCase):
    kind = "gnome"
    server_class = WorldServer

    def setUp(self):
        super().setUp()
        for symbol, price, before in (("BTC-USD", 97012, 95767.0), ("ETH-USD", 3400, 3500.0), ("AAPL", 230.5, 228.0)):
            self.server.set_price(symbol, price, before, [before, before * 1.01, price])
        self.begin_walk()

    def begin_walk(self):
        self.launch()
        self.glimmet.ask_for_panel()
        self.panel = self.desktop.tree.program("glimmet")

    def begin_again_with_keys(self):
        self.keyring.put(KEYS)
        self.glimmet.stop()
        self.begin_walk()
        self.glimmet.choose_mode("Revenue")

    def shown(self):
        """All that the panel tells of, as (role, name)."""
        found = []
        for node in self.panel.walk():
            try:
                found.append((node.role, node.name))
            except GLib.Error:
                pass  # It went while it was looked at.
        return found

    def names(self):
        return [name for _role, name in self.shown()]

    def tap(self, name, *roles):
        self.glimmet.control(name, *(roles or (BUTTON,))).press()

    def choose(self, name):
        chip = self.glimmet.control(name, CHIP)
        chip.press()
        wait_for(lambda: self.glimmet.control(name, CHIP).checked, 15, f"“{name}” to be chosen")

    def write(self, name, text):
        self.glimmet.control(name, *FIELD).write(text)

    def wait_for_name(self, name):
        wait_for(lambda: name in self.names(), 15, f"“{name}” in the panel")

    def wait_until_gone(self, name):
        wait_for(lambda: name not in self.names(), 15, f"“{name}” to go")

    def kept(self, key):
        return self.stored().get(f"me.kerno.glimmet.{key}")

    def test_quotes_are_added_and_removed(self):
        self.glimmet.choose_mode("Quote")
        self.write("New quote", "measure twice")
        self.tap("Add")
        self.wait_for_name("Remove measure twice")
        self.glimmet.wait_for_label(lambda label: label == "measure twice")

        self.tap("Remove measure twice")

        self.wait_until_gone("Remove measure twice")
        wait_for(lambda: self.kept("quotes") == [], 15, "the empty list in the file")

    def test_symbols_are_added_and_removed(self):
        self.glimmet.choose_mode("Crypto")
        self.wait_for_name("Remove BTC-USD")
        self.write("New symbol", " aapl, eth-usd")
        self.tap("Add")
        self.wait_for_name("Remove AAPL")

        for symbol in ("BTC-USD", "ETH-USD"):
            self.tap(f"Remove {symbol}")
            self.wait_until_gone(f"Remove {symbol}")

        self.glimmet.wait_for_label(lambda label: label.startswith("AAPL $230"))
        self.assertEqual(self.stored()["glimmet.cryptoSymbols"], ["AAPL"])

    def test_every_interval_can_be_chosen(self):
        self.glimmet.choose_mode("Crypto")

        for interval in ("5s", "30s", "60s", "10s"):
            self.choose(interval)
            seconds = interval.rstrip("s")
            self.wait_for_name("Works for crypto (BTC, ETH) and stocks (AAPL, TSLA). "
                               f"Price refreshes every {seconds}s.")

    def test_prices_can_be_refreshed(self):
        self.glimmet.choose_mode("Crypto")
        self.glimmet.wait_for_label(lambda label: label.startswith("BTC $97,012"))
        self.server.set_price("BTC-USD", 101000, 95767.0, [95767.0, 101000.0])

        self.tap("Refresh")

        self.glimmet.wait_for_label(lambda label: label.startswith("BTC $101,000"))

    def test_deadlines_are_added_and_removed(self):
        self.glimmet.choose_mode("Deadline")
        self.assertFalse(self.glimmet.control("Add Deadline", BUTTON).enabled)
        for title in ("Math Exam", "Rent"):
            self.write("Deadline name", title)
            wait_for(lambda: self.glimmet.control("Add Deadline", BUTTON).enabled, 15, "“Add Deadline” to be in use")
            self.tap("Add Deadline")
            self.wait_for_name(f"Remove {title}")
        # A day ahead, and a moment of it has passed.
        self.glimmet.wait_for_label(lambda label: label in ("Math Exam: 23h 59m", "Math Exam: 1d 0h"))

        self.tap("Remove Math Exam")
        self.wait_until_gone("Remove Math Exam")
        self.glimmet.wait_for_label(lambda label: label.startswith("Rent: "))
        self.tap("Clear all")

        self.wait_for_name("No deadlines. Add one below.")
        self.glimmet.wait_for_label(lambda label: label == "no deadlines")

    def test_every_platform_metric_period_and_currency_can_be_chosen(self):
        self.begin_again_with_keys()
        for platform in PLATFORMS:
            self.choose(platform.name)
            for metric in ("Orders", "Avg", "Top", "METRIC Revenue"):
                self.choose(metric)
            for period in ("Today", "Week", "Month", "All Time"):
                self.choose(period)
        for platform in (DODO, STRIPE):
            self.choose(platform.name)
            for code in ("EUR", "GBP", "CAD", "AUD", "USD"):
                self.choose(code)

        self.choose(REVENUECAT.name)

        self.wait_for_name("RC: fixed 28d")
        self.assertNotIn("EUR", self.names())
        self.tap("Refresh")
        self.glimmet.wait_for_label(lambda label: label == "💰 $17.00")

    def test_any_currency_can_be_applied(self):
        self.begin_again_with_keys()
        self.choose(DODO.name)
        self.server.currency = "sek"
        self.write("Currency code", "sek")

        self.tap("Apply")

        self.glimmet.wait_for_label(lambda label: label == "💰 SEK 17.00" or label.startswith("💰 SEK"))

    def test_each_key_is_entered_revealed_and_cleared(self):
        self.glimmet.choose_mode("Revenue")
        self.tap("API Keys")
        for account, field in KEY_FIELDS.items():
            self.write(field, KEYS[account])
        wait_for(lambda: dict(self.keyring.texts()).items() >= KEYS.items(), 15, "the keys in the keyring")

        self.assertNotIn(KEYS["stripe_api_key"], self.told_texts())
        for hidden in [node for node in self.panel.walk() if node.is_called("Show key", (BUTTON,))]:
            hidden.press()
        wait_for(lambda: set(KEYS.values()) <= set(self.told_texts()), 15, "the revealed keys")
        for field in KEY_FIELDS.values():
            self.write(field, "")

        wait_for(lambda: self.names().count("No key saved") == 5, 15, "five badges without a key")
        wait_for(lambda: {text for account, text in self.keyring.texts() if account in KEYS} == {""}, 15,
                 "no keys in the keyring")

    def told_texts(self):
        """The contents of all fields as an assistive program reads them."""
        texts = []
        for node in self.panel.walk():
            try:
                if node.role in FIELD:
                    texts.append(node.text)
            except GLib.Error:
                pass  # It went while it was looked at.
        return texts

    def test_a_key_that_is_entered_brings_the_figure(self):
        self.glimmet.choose_mode("Revenue")
        self.glimmet.wait_for_label(lambda label: label == "add api key")
        self.tap("API Keys")
        self.write(KEY_FIELDS[POLAR.account], POLAR.key)

        self.glimmet.wait_for_label(lambda label: label == "💰 $17.00")

    def test_a_sheet_hides_the_panel_until_it_is_closed(self):
        self.glimmet.choose_mode("Revenue")
        self.tap("API Keys")
        self.wait_for_name("REVENUECAT PROJECT ID")
        wait_for(lambda: "Quit" not in self.names(), 15, "the panel behind the sheet not to be told of")

        self.tap("Close")

        self.wait_until_gone("REVENUECAT PROJECT ID")
        self.wait_for_name("Quit")

    def test_escape_closes_the_sheet_before_the_panel(self):
        self.glimmet.choose_mode("Revenue")
        self.tap("API Keys")
        self.wait_for_name("REVENUECAT PROJECT ID")

        self.screen.key("Escape")
        self.wait_until_gone("REVENUECAT PROJECT ID")
        self.assertTrue(self.glimmet.is_panel_open())
        self.screen.key("Escape")

        self.screen.wait_until_gone("glimmet")

    def test_a_closed_panel_forgets_its_sheet_and_what_was_typed(self):
        self.glimmet.choose_mode("Deadline")
        self.write("Deadline name", "half a na")
        self.glimmet.choose_mode("Revenue")
        self.tap("API Keys")
        self.tap("Show key")
        self.wait_for_name("Hide key")
        self.screen.key("Escape", "Escape")
        self.screen.wait_until_gone("glimmet")

        self.glimmet.ask_for_panel()

        self.panel = self.desktop.tree.program("glimmet")
        self.assertNotIn("REVENUECAT PROJECT ID", self.names())
        self.tap("API Keys")
        self.wait_for_name("Show key")
        self.assertNotIn("Hide key", self.names())

    def test_every_control_has_a_name(self):
        for mode in ("Clock", "Quote", "Custom", "Revenue", "Crypto", "Deadline"):
            self.glimmet.choose_mode(mode)
            nameless = [role for role, name in self.shown() if not name and role not in ("filler", "panel", "frame")]
            self.assertEqual(nameless, [], mode)

    def test_quit_ends_the_program(self):
        self.tap("Quit")

        self.assertEqual(self.glimmet.process.wait(5), 0)


if __name__ == "__main__":
    unittest.main()
