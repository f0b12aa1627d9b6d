"""The machine sleeps, or its clock is set, under the running program: what it shows is fetched anew."""

import datetime
import time
import unittest

from desktop import own_namespaces
from desktop.price_server import HOST as PRICES
from desktop.processes import wait_for, watch_for
from desktop.revenue_server import POLAR, Sale
from desktop.world_server import WorldServer
from moved_clocks import MovedClocks
from revenue_case import RevenueCase

reason_to_skip = own_namespaces.reason_to_skip
NEW_FIGURE = "💰 $5.00"
NO_NETWORK = "⚠ the server cannot be found"
# A tick notices it and a request follows; by itself the program would ask minutes later.
SOON = 8
NIGHT = 8 * 3600


class TimeJump(RevenueCase):
    server_class = WorldServer

    def setUp(self):
        super().setUp()
        self.clocks = MovedClocks(self.desktop.folder / "moved-clocks")

    def begin(self, environment=None, **options):
        return super().begin({**self.clocks.environment, **(environment or {})}, **options)

    def begin_showing(self):
        """Returns once the figure is on show, with the panel closed and what there is to fetch another one."""
        self.addCleanup(self.network.plug_in)
        self.begin_showing_polar()
        self.glimmet.close_panel()
        self.server.pages[POLAR] = [[Sale(500)]]
        self.glimmet.labels.clear()

    def asked_for(self, host):
        return len([request for request in self.server.requests if request.headers["Host"] == host])

    def texts(self):
        return [label for _, label in self.glimmet.labels]

    def test_a_sleep_brings_the_new_figure_and_asks_for_the_prices(self):
        self.begin_showing()
        prices = self.asked_for(PRICES)

        self.clocks.sleep(NIGHT)

        self.wait_for_text(NEW_FIGURE, SOON)
        wait_for(lambda: self.asked_for(PRICES) == prices + 2, SOON, "the requests for both prices")

    def test_a_set_clock_does_the_same_but_not_one_that_is_put_right_by_some_seconds(self):
        self.begin_showing()
        asked = len(self.server.requests)

        self.clocks.set_time_of_day(20)
        watch_for(3)
        self.assertEqual(len(self.server.requests), asked)

        self.clocks.set_time_of_day(-3600)
        self.wait_for_text(NEW_FIGURE, SOON)

    def test_the_old_figure_stays_until_there_is_a_network(self):
        self.begin_showing()
        asked = len(self.server.requests)
        self.network.unplug()

        self.clocks.sleep(NIGHT)
        watch_for(8)
        away = self.texts()
        self.network.plug_in()

        self.wait_for_text(NEW_FIGURE, 15)
        self.assertEqual(away, [])
        wait_for(lambda: len(self.server.requests) == asked + 3, SOON, "the figure and both prices")

    def test_a_network_that_stays_away_is_told_in_the_end(self):
        self.begin_showing()
        self.network.unplug()
        start = time.monotonic()

        self.clocks.sleep(NIGHT)

        self.wait_for_text(NO_NETWORK, 60)
        self.assertGreater(time.monotonic() - start, 40)
        self.assertEqual(self.texts(), [NO_NETWORK])

    def test_an_error_of_another_kind_shows_at_once(self):
        self.begin_showing()
        self.server.keys[POLAR] = "another"

        self.clocks.sleep(NIGHT)

        self.wait_for_text("⚠ invalid key", SOON)

    def test_the_clock_shows_each_second_once_also_where_it_is_set(self):
        self.launch()
        for move in (0, 0.4, -3600.7, 7200.9):
            self.clocks.set_time_of_day(move)
            watch_for(2)  # The new time may come late once.
            self.glimmet.labels.clear()

            watch_for(7)

            times = [datetime.datetime.strptime(text, "%H:%M:%S") for text in self.texts()]
            steps = [(after - before).seconds for before, after in zip(times, times[1:])]
            with self.subTest(move=move):
                self.assertGreaterEqual(len(steps), 3)
                self.assertNotIn(0, steps, self.texts())
                # A machine that is held up may skip one.
                self.assertLessEqual(sum(step > 1 for step in steps), 1, self.texts())


if __name__ == "__main__":
    unittest.main()
