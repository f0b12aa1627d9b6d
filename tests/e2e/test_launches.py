"""What one launch leaves to the next, and what a second launch does beside the first."""

import base64
import json
import unittest

from desktop.network import without_network
from desktop.processes import wait_for
from desktop.program import PANEL
from desktop_case import BINARY, DesktopCase

QUOTES = ["less is more", "deep work > busy work", "ünïcödé 🛠"]
SYMBOLS = ["AAPL"]
# Beyond any clock that this runs under, with a fraction that needs all bits of the number.
DEADLINE = '[{"date":2934567890.1234565,"title":"launch","id":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F"}]'


class Launches(DesktopCase):
    def second_launch(self):
        second = self.desktop.start("second", [*without_network(), str(BINARY)])
        return wait_for(lambda: second.poll() is not None, 5, "the second launch to end") and second.returncode

    def seed_lists(self):
        self.seed({
            "me.kerno.glimmet.quotes": QUOTES,
            "me.kerno.glimmet.deadlines": {"data": base64.b64encode(DEADLINE.encode()).decode()},
            "glimmet.cryptoSymbols": SYMBOLS,
        })

    def stored_deadlines(self):
        return json.loads(base64.b64decode(self.stored()["me.kerno.glimmet.deadlines"]["data"]))

    def test_a_second_launch_opens_the_panel_of_the_first_and_ends(self):
        self.launch()

        self.assertEqual(self.second_launch(), 0)

        self.screen.wait_for_window(PANEL)
        self.assertIsNone(self.glimmet.process.poll())

    def test_brings_back_quotes_deadlines_and_symbols(self):
        self.seed_lists()

        self.launch().ask_for_panel()

        self.glimmet.choose_mode("Quote")
        self.glimmet.wait_for_label(lambda label: label == QUOTES[0])
        for quote in QUOTES:
            self.glimmet.control(f"Remove {quote}")
        self.glimmet.choose_mode("Deadline")
        self.glimmet.wait_for_label(lambda label: label.startswith("launch: "))
        self.assertEqual(self.stored()["glimmet.cryptoSymbols"], SYMBOLS)
        self.assertEqual(self.stored_deadlines(), json.loads(DEADLINE))

    def test_brings_back_nothing_else(self):
        self.launch().ask_for_panel()
        self.glimmet.control("Show seconds", "check box").press()
        self.glimmet.wait_for_label(lambda label: label.count(":") == 1)
        self.glimmet.choose_mode("Quote")
        self.glimmet.wait_for_label(lambda label: not label[0].isdigit())
        self.assertEqual(self.glimmet.stop(), 0)

        self.launch()

        self.assertRegex(self.glimmet.label, r"^\d\d:\d\d:\d\d$")

    def test_a_first_launch_stores_the_default_symbols_only(self):
        self.launch()

        self.assertEqual(self.stored(), {"glimmet.cryptoSymbols": ["BTC-USD", "ETH-USD"]})

    def test_ends_well_when_the_session_asks(self):
        self.launch()

        self.assertEqual(self.glimmet.stop(), 0)

    def test_sets_an_unreadable_file_aside(self):
        self.preferences.parent.mkdir(parents=True)
        self.preferences.write_text('{"me.kerno.glimmet.quotes": ["half a fi')

        self.launch()

        others = [path for path in self.preferences.parent.iterdir() if path != self.preferences]
        self.assertIn('{"me.kerno.glimmet.quotes": ["half a fi', [path.read_text() for path in others])
        self.assertEqual(self.stored()["glimmet.cryptoSymbols"], ["BTC-USD", "ETH-USD"])


if __name__ == "__main__":
    unittest.main()
