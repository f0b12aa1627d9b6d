"""Live prices: the program asks the one server that it knows, which here is the test's."""

import itertools
import subprocess
import time
import unittest
from pathlib import Path

from desktop import own_namespaces
from desktop.https_server import Ending
from desktop.own_network import OwnNetwork
from desktop.price_server import HOST, PriceServer
from desktop.processes import wait_for, watch_for
from desktop.watcher import Watcher
from desktop_case import DesktopCase

MAKE_CERTIFICATES = Path(__file__).parent.with_name("support") / "make_certificates"
reason_to_skip = own_namespaces.reason_to_skip
# A turn of the rotation takes ten seconds, and the first one may have begun already.
TURN = 10
WITHIN_A_TURN = TURN + 3
BTC, BTC_RISEN = "BTC $97,012 (↑1.3%)", "BTC $101,000 (↑5.5%)"
DOGE, DOGE_FALLEN = "DOGE $0.1234 (↑2.8%)", "DOGE $0.0987 (↓17.8%)"
CLOCK = r"^\d\d:\d\d:\d\d$"


class Prices(DesktopCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        Watcher(cls.desktop).start()
        cls.certificates = cls.desktop.folder / "certificates"
        subprocess.run([MAKE_CERTIFICATES, cls.certificates, HOST], check=True)
        cls.network = OwnNetwork(cls.desktop, [HOST], cls.certificates / "authority.pem")

    def setUp(self):
        super().setUp()
        self.serve("good")

    def serve(self, certificate):
        self.server = PriceServer(self.network.listen(443), self.certificates / f"{certificate}.pem")
        self.addCleanup(self.server.close)
        self.server.set_price("BTC-USD", 97012, 95767.0)
        self.server.set_price("DOGE-USD", 0.1234, 0.12)

    def change_prices(self):
        self.server.set_price("BTC-USD", 101000, 95767.0)
        self.server.set_price("DOGE-USD", 0.0987, 0.12)

    def begin_with(self, *symbols):
        self.seed({"glimmet.cryptoSymbols": symbols})
        return self.launch(network=self.network.wrapper)

    def show_prices(self):
        """Chooses the prices in the panel, which stays open."""
        self.glimmet.ask_for_panel()
        self.glimmet.choose_mode("Crypto")

    def begin_showing(self, *symbols):
        """Returns once the first price is on show; all were asked for twice, at the start and by the choice."""
        self.begin_with(*symbols)
        self.show_prices()
        wait_for(lambda: len(self.server.requests) >= 2 * len(symbols), 15, "the requests of the beginning")
        self.wait_for_text(BTC)

    def ask_anew(self):
        """Chooses the prices once more, which asks for all of them, and returns once the server has heard it."""
        asked = len(self.server.requests)
        self.glimmet.control("Crypto", "radio button").press()
        wait_for(lambda: len(self.server.requests) > asked, 15, "another request")

    def wait_for_text(self, text, seconds=10):
        """Waits for the text, and until the change to it is among the labels, which lag behind the bus."""
        self.glimmet.wait_for_label(lambda label: label == text, seconds)
        wait_for(lambda: self.glimmet.labels and self.glimmet.labels[-1][1] == text, 15, f"the change to “{text}”")

    def wait_for_log(self, *lines):
        wait_for(lambda: set(lines) <= set(self.glimmet.output().splitlines()), 15, f"the lines {lines}")

    def texts(self):
        """The labels so far without repetition."""
        return [text for text, _ in itertools.groupby(label for _, label in self.glimmet.labels)]

    def test_shows_one_after_the_other_and_asks_for_each_when_its_turn_comes(self):
        self.begin_showing("BTC-USD", "DOGE-USD")
        self.glimmet.close_panel()
        self.glimmet.labels.clear()
        before = len(self.server.requests)
        self.change_prices()

        self.wait_for_text(DOGE_FALLEN, WITHIN_A_TURN)
        self.wait_for_text(BTC_RISEN, WITHIN_A_TURN)

        self.assertEqual(self.texts(), [DOGE, DOGE_FALLEN, BTC, BTC_RISEN])
        self.assertEqual(self.server.asked_symbols()[before:], ["DOGE-USD", "BTC-USD"])
        doge, btc = (request.at for request in self.server.requests[before:])
        self.assertAlmostEqual(btc - doge, TURN, delta=1)

    def test_asks_for_every_symbol_at_the_start_and_as_the_server_expects_it(self):
        self.begin_with("BTC", "^GSPC", "ETH-USD")

        wait_for(lambda: len(self.server.requests) >= 3, 15, "three requests")

        watch_for(1)
        self.assertEqual(sorted(request.target for request in self.server.requests), [
            "/v8/finance/chart/%5EGSPC?interval=1h&range=1d",
            "/v8/finance/chart/BTC-USD?interval=1h&range=1d",
            "/v8/finance/chart/ETH-USD?interval=1h&range=1d"])
        for request in self.server.requests:
            self.assertEqual(request.method, "GET")
            self.assertEqual(request.headers["Host"], HOST)
            self.assertEqual(request.headers["User-Agent"], "Mozilla/5.0")
            for private in ("Cookie", "Authorization", "Referer"):
                self.assertNotIn(private, request.headers)
        self.assertRegex(self.glimmet.label, CLOCK)

    def test_tells_each_price_on_standard_output(self):
        self.server.set_price("BTC-USD", 97000, 95755.2, [*range(20), None, *range(4)])
        self.server.set_price("^GSPC", 5881.63, 5906.94, [])

        self.begin_with("BTC", "^GSPC", "NONE-USD")

        self.wait_for_log("[glimmet] BTC: $97000.0 +1.3%  24pts", "[glimmet] ^GSPC: $5881.63 -0.4%  0pts")
        wait_for(lambda: "NONE-USD" in self.server.asked_symbols(), 15, "the request of an unknown symbol")
        self.assertNotIn("NONE", self.glimmet.output())

    def test_keeps_the_price_through_every_kind_of_failure(self):
        self.begin_showing("BTC-USD")
        self.change_prices()
        self.glimmet.labels.clear()
        failures = [(status, Ending.COMPLETE) for status in (404, 429, 500)] + [
            (200, ending) for ending in Ending if ending is not Ending.COMPLETE]

        for status, ending in failures:
            self.server.status, self.server.ending = status, ending
            self.ask_anew()
            watch_for(1.2)

            with self.subTest(status=status, ending=ending):
                self.assertEqual((self.texts(), self.glimmet.label), ([], BTC))

        self.server.status, self.server.ending = 200, Ending.COMPLETE
        self.ask_anew()
        self.wait_for_text(BTC_RISEN)

    def test_keeps_the_prices_while_the_network_is_away_and_shows_new_ones_when_it_is_back(self):
        self.addCleanup(self.network.plug_in)
        self.begin_showing("BTC-USD", "DOGE-USD")
        self.wait_for_log("[glimmet] DOGE-USD: $0.1234 +2.8%  2pts")
        self.glimmet.close_panel()
        self.change_prices()
        self.glimmet.labels.clear()

        # Long enough for a request to be given up.
        self.network.lose_everything_sent()
        self.wait_for_text(DOGE, WITHIN_A_TURN)
        self.wait_for_text(BTC, WITHIN_A_TURN)
        self.network.unplug()
        self.wait_for_text(DOGE, WITHIN_A_TURN)
        watch_for(2)
        away = self.texts()
        self.network.plug_in()
        self.wait_for_text(BTC_RISEN, WITHIN_A_TURN)

        self.assertEqual(away, [DOGE, BTC, DOGE])
        # A request that was on its way all the time may bring the other price before its turn.
        self.assertLessEqual(set(self.texts()), {DOGE, BTC, DOGE_FALLEN, BTC_RISEN})

    def test_starts_without_a_network_and_shows_prices_once_there_is_one(self):
        self.addCleanup(self.network.plug_in)
        self.network.unplug()
        self.begin_with("BTC-USD")
        self.glimmet.labels.clear()
        watch_for(3)
        clock = self.texts()
        self.show_prices()
        self.wait_for_text("loading BTC-USD…")

        self.network.plug_in()

        self.wait_for_text(BTC, WITHIN_A_TURN)
        self.assertIn(len(clock), (2, 3, 4))
        for text in clock:
            self.assertRegex(text, CLOCK)

    def test_tells_nothing_to_a_server_of_an_unknown_authority(self):
        self.assert_tells_nothing_to_a_server_with("unknown-authority")

    def test_tells_nothing_to_a_server_of_another_name(self):
        self.assert_tells_nothing_to_a_server_with("other-host")

    def test_tells_nothing_to_a_server_whose_certificate_has_expired(self):
        self.assert_tells_nothing_to_a_server_with("expired")

    def assert_tells_nothing_to_a_server_with(self, certificate):
        self.server.close()
        self.serve(certificate)
        self.begin_with("BTC-USD")
        self.assert_turned_away_since(0)
        before = self.server.ended_connections

        self.show_prices()

        self.assert_turned_away_since(before)
        watch_for(1.2)
        self.assertEqual(self.glimmet.label, "loading BTC-USD…")

    def assert_turned_away_since(self, before):
        """More connections than `before` ended, and none of them brought a request."""
        wait_for(lambda: self.server.requests or self.server.ended_connections > before, 15, "another connection")
        self.assertEqual(self.server.requests, [])

    def test_quits_at_once_while_an_answer_does_not_come(self):
        self.server.ending = Ending.SILENCE
        self.begin_with("BTC-USD", "DOGE-USD")
        wait_for(lambda: len(self.server.requests) == 2, 15, "both requests")
        start = time.monotonic()

        status = self.glimmet.stop()

        self.assertEqual(status, 0)
        self.assertLess(time.monotonic() - start, 2)

    def test_quits_at_once_while_the_name_of_the_server_is_looked_up(self):
        self.addCleanup(self.network.plug_in)
        self.network.lose_everything_sent()
        self.begin_with("BTC-USD")
        watch_for(1)
        start = time.monotonic()

        self.glimmet.process.terminate()

        self.assertEqual(self.glimmet.process.wait(15), 0)
        self.assertLess(time.monotonic() - start, 2)


if __name__ == "__main__":
    unittest.main()
