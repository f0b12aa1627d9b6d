"""Servers whose names have two addresses: a good IPv4 one, and one of IPv6 that comes first and is good or not."""

import time
import unittest

from desktop import own_namespaces
from desktop.https_server import Ending
from desktop.own_network import TWO_ADDRESSES
from desktop.processes import watch_for
from desktop.revenue_server import POLAR
from desktop.world_server import WorldServer
from revenue_case import FIGURE, RevenueCase

reason_to_skip = own_namespaces.reason_to_skip_ipv6
PORT, IPV6 = 443, TWO_ADDRESSES[0]
BTC = "BTC $97,012 (↑1.3%)"
LOST = "⚠ the connection was lost"
# Seconds, what a request has.
TIME_OUT = 15


class TwoAddresses(RevenueCase):
    server_class = WorldServer
    addresses = TWO_ADDRESSES

    def setUp(self):
        super().setUp()
        self.server.set_price("BTC-USD", 97012, 95767.0)
        self.seed({"glimmet.cryptoSymbols": ["BTC-USD"]})
        self.keyring.put({POLAR.account: POLAR.key})

    def serve_ipv6(self, listening=None):
        """A good server at the other address too."""
        server = WorldServer(listening or self.network.listen(PORT, IPV6), self.certificates / "good.pem")
        self.addCleanup(server.close)
        server.set_price("BTC-USD", 97012, 95767.0)
        return server

    def swallow_ipv6(self):
        """Returns the socket that can take connections all the same, later."""
        full, only = self.network.swallow(PORT, IPV6)
        self.addCleanup(full.close)
        self.addCleanup(only.close)
        return full

    def begin_showing_figure(self):
        self.launch()
        self.show_revenue()
        self.wait_for_text(FIGURE)

    def assert_shows_price_and_figure(self, seconds):
        """From a start within that time."""
        start = time.monotonic()
        self.launch().ask_for_panel()
        self.assert_shows_both_until(start + seconds)

    def assert_shows_both_until(self, end):
        for mode, text in (("Crypto", BTC), ("Revenue", FIGURE)):
            self.glimmet.choose_mode(mode)
            self.wait_for_text(text, end - time.monotonic())

    def test_price_and_figure_come_from_ipv4_where_ipv6_is_refused(self):
        self.assert_shows_price_and_figure(TIME_OUT - 3)

        self.assertTrue(self.server.asked(POLAR))

    def test_price_and_figure_come_from_ipv6_where_both_are_good(self):
        ipv6 = self.serve_ipv6()

        self.assert_shows_price_and_figure(TIME_OUT - 3)

        self.assertTrue(ipv6.asked(POLAR))
        self.assertEqual(self.server.requests, [])

    def test_price_and_figure_come_in_time_where_ipv6_takes_the_connection_and_is_slow_to_go_on(self):
        self.serve_ipv6().greeting_delay = 4

        self.assert_shows_price_and_figure(TIME_OUT)

    def test_price_and_figure_come_in_time_where_ipv6_is_slow_to_take_the_connection(self):
        full = self.swallow_ipv6()
        start = time.monotonic()
        self.launch().ask_for_panel()
        watch_for(2)

        self.serve_ipv6(full)

        self.assert_shows_both_until(start + TIME_OUT)

    def test_a_refusal_in_words_comes_at_once_where_ipv6_is_refused(self):
        self.begin_showing_figure()
        self.server.status = 500

        self.press("Revenue")

        self.wait_for_text("⚠ http 500")

    def test_price_and_figure_come_from_ipv4_where_ipv6_swallows_everything(self):
        self.swallow_ipv6()

        self.assert_shows_price_and_figure(TIME_OUT)

        self.assertTrue(self.server.asked(POLAR))

    def test_the_figure_comes_from_ipv4_where_ipv6_answered_once_and_is_refused_now(self):
        ipv6 = self.serve_ipv6()
        self.begin_showing_figure()
        ipv6.close()
        self.server.ending = Ending.CUT_IN_BODY

        self.press("Revenue")

        self.wait_for_text(LOST)
        self.server.ending = Ending.COMPLETE
        self.press("Revenue")
        self.wait_for_text(FIGURE)

    def test_a_connection_that_breaks_in_the_middle_is_told_at_once_where_ipv6_is_refused(self):
        self.begin_showing_figure()

        self.assert_tells_of_the_break_of(self.server)

    def test_a_connection_that_breaks_in_the_middle_is_told_at_once_where_ipv6_is_good(self):
        ipv6 = self.serve_ipv6()
        self.begin_showing_figure()

        self.assert_tells_of_the_break_of(ipv6)

    def assert_tells_of_the_break_of(self, server):
        server.ending = Ending.CUT_IN_BODY
        start = time.monotonic()

        self.press("Revenue")

        self.wait_for_text(LOST, TIME_OUT - 3)
        self.assertLess(time.monotonic() - start, TIME_OUT - 3)


if __name__ == "__main__":
    unittest.main()
