"""Revenue: the program asks the chosen platform with its key, and tells the key nobody else."""

import re
import signal
import time
import unittest
from pathlib import Path

from desktop import own_namespaces
from desktop.https_server import Ending
from desktop.price_server import HOST as PRICES
from desktop.processes import wait_for, watch_for
from desktop.revenue_server import DODO, KEYS, LEMON_SQUEEZY, PLATFORMS, POLAR, REVENUECAT, STRIPE, Sale
from revenue_case import FIGURE, RevenueCase

reason_to_skip = own_namespaces.reason_to_skip
TARGETS = {
    POLAR: r"/v1/metrics/\?start_date=2020-01-01&end_date=20\d\d-\d\d-\d\d&interval=year",
    REVENUECAT: r"/v2/projects/proj1ab2c3d4/metrics/overview",
    DODO: r"/payments\?page_size=100",
    STRIPE: r"/v1/charges\?limit=100",
    LEMON_SQUEEZY: r"/v1/orders\?page(%5B|\[)size(%5D|\])=100&page(%5B|\[)number(%5D|\])=1",
}
PAGED = [DODO, STRIPE, LEMON_SQUEEZY]
CLOCK = r"^\d\d:\d\d:\d\d$"
# A program that is aborted on purpose leaves no file of its memory behind.
WITHOUT_CORE = ["prlimit", "--core=0", "--"]


class Revenue(RevenueCase):
    def begin_with_all_keys(self, **options):
        self.keyring.put(KEYS)
        self.launch(**options)
        self.show_revenue()

    def show_each(self, texts):
        """Chooses one platform after the other and waits for its text."""
        for platform, text in texts.items():
            with self.subTest(platform.name):
                self.press(platform.name)
                self.wait_for_text(text)

    def show_figures(self):
        """Each platform's own, so that none is taken for another's."""
        figures = {platform: 100 * (number + 1) for number, platform in enumerate(PLATFORMS)}
        for platform, cents in figures.items():
            self.server.pages[platform] = [[Sale(cents), Sale(cents)]]
        self.show_each({platform: f"💰 ${2 * cents / 100:.2f}" for platform, cents in figures.items()})

    def ask_anew(self):
        """Has the figure asked for once more and returns once the platform has heard it."""
        def asked():
            return sum(len(self.server.asked(platform)) for platform in PLATFORMS)

        before = asked()
        self.press("Revenue")
        wait_for(lambda: asked() > before, 15, "another request")

    def assert_tells_no_key(self, text):
        for key in KEYS.values():
            self.assertNotIn(key, text)

    def test_asks_for_the_figure_at_the_start_while_the_clock_is_shown(self):
        self.keyring.put({POLAR.account: POLAR.key})
        self.launch()

        wait_for(lambda: self.server.asked(POLAR), 15, "the request of the start")

        self.server.ending = Ending.SILENCE
        self.assertRegex(self.glimmet.label, CLOCK)
        self.show_revenue()
        self.wait_for_text(FIGURE)

    def test_shows_the_figure_of_each_platform_and_tells_its_key_nobody_else(self):
        self.begin_with_all_keys()

        self.show_figures()

        for platform in PLATFORMS:
            asked = self.server.asked(platform)
            self.assertTrue(asked, platform.name)
            for request in asked:
                self.assertRegex(request.target, f"^{TARGETS[platform]}$")
                self.assertEqual(request.method, "GET")
                self.assertEqual(request.headers.get_all("Authorization"), [f"Bearer {platform.key}"])
                self.assertEqual(request.headers.get_all("Accept"), [platform.accept])
                self.assertNotIn("Cookie", request.headers)
        self.assertIn(PRICES, [request.headers["Host"] for request in self.server.requests])
        for request in self.server.requests:
            told = f"{request.target}\n{request.headers}"
            for platform in PLATFORMS:
                if platform.host != request.headers["Host"]:
                    self.assertNotIn(platform.key, told)

    def test_sums_up_all_pages(self):
        self.begin_with_all_keys()
        figures = {DODO: "💰 $31.00", STRIPE: "💰 $32.00", LEMON_SQUEEZY: "💰 $33.00"}
        for more, platform in enumerate(figures):
            self.server.pages[platform] = [[Sale(100), Sale(200)], [Sale(400)], [Sale(800), Sale(1600 + more * 100)]]

        self.show_each(figures)

        for platform in (DODO, STRIPE):
            first, *later = self.server.targets(platform)
            self.assertEqual(later, [f"{first}&starting_after=after_{number}" for number in (0, 1)])
        numbers = [re.search(r"number(?:%5D|\])=(\d+)$", target)[1]
                   for target in self.server.targets(LEMON_SQUEEZY)]
        self.assertEqual(numbers, ["1", "2", "3"])

    def test_counts_what_falls_in_the_chosen_period(self):
        self.begin_with_all_keys()
        self.server.pages |= dict.fromkeys(PAGED, [[Sale(100, 0), Sale(200, 6)], [Sale(400, 40)]])

        for platform in PAGED:
            self.show_each({platform: "💰 $7.00"})
            for period, text in (("Today", "💰 $1.00"), ("Week", "💰 $3.00"), ("All Time", "💰 $7.00")):
                self.press(period)
                self.wait_for_text(text)

        self.press("Today")
        self.press(POLAR.name)
        wait_for(lambda: self.server.targets(POLAR)[-1].endswith("interval=day"), 15, "the question for one day")
        self.assertRegex(self.server.targets(POLAR)[-1], r"\?start_date=(20[\d-]+)&end_date=\1&interval=day$")

    def test_counts_in_the_stripe_currency_of_the_keyring(self):
        self.keyring.put({"stripe_currency": "EUR"})
        self.server.currency = "eur"
        self.begin_with_all_keys()

        self.show_each({STRIPE: "💰 €17.00", DODO: "💰 $0.00"})

    def test_counts_in_the_chosen_currency(self):
        self.server.currency = "gbp"
        self.begin_with_all_keys()
        self.show_each({POLAR: FIGURE})

        for platform in (DODO, STRIPE):
            self.show_each({platform: "💰 $0.00"})
            self.press("GBP")
            self.wait_for_text("💰 £17.00")

        self.assertIn(("stripe_currency", "GBP"), self.keyring.texts())

    def test_says_that_a_key_is_good_no_more(self):
        self.begin_with_all_keys()

        for platform in PLATFORMS:
            self.server.keys[platform] = "another key"
            self.show_each({platform: "⚠ invalid key"})
            self.server.keys[platform] = platform.key
            self.show_each({platform: FIGURE})

    def test_asks_for_what_is_missing(self):
        self.keyring.put({REVENUECAT.account: REVENUECAT.key})
        self.launch()
        self.show_revenue()

        for platform in (POLAR, *PAGED):
            self.show_each({platform: "add api key", REVENUECAT: "add project id"})

        watch_for(0.5)
        for platform in PLATFORMS:
            self.assertEqual(self.server.asked(platform), [])

    def test_says_what_is_wrong_and_shows_the_figure_once_it_is_not(self):
        self.begin_showing_polar()
        failures = [(403, Ending.COMPLETE, "⚠ forbidden"), (500, Ending.COMPLETE, "⚠ http 500"),
                    (200, Ending.CUT_BEFORE_ANSWER, "⚠ the connection was lost"),
                    (200, Ending.CUT_IN_BODY, "⚠ the connection was lost")]

        for status, ending, text in failures:
            self.server.status, self.server.ending = status, ending
            self.ask_anew()
            with self.subTest(text):
                self.wait_for_text(text)
            self.server.status, self.server.ending = 200, Ending.COMPLETE
            self.ask_anew()
            self.wait_for_text(FIGURE)

    def test_says_that_there_is_no_network_and_shows_the_figure_once_there_is(self):
        self.addCleanup(self.network.plug_in)
        self.network.unplug()
        self.keyring.put({POLAR.account: POLAR.key})
        self.launch()
        self.show_revenue()
        self.wait_for_text("⚠ the server cannot be found")

        self.network.plug_in()
        self.ask_anew()

        self.wait_for_text(FIGURE)

    def test_tells_no_key_to_a_server_that_cannot_prove_who_it_is(self):
        for certificate in ("unknown-authority", "other-host", "expired"):
            with self.subTest(certificate):
                self.server.close()
                self.serve(certificate)
                self.keyring.put({POLAR.account: POLAR.key})
                self.launch()
                self.show_revenue()

                self.wait_for_text("⚠ the server's identity cannot be verified")

                self.assertEqual(self.server.requests, [])
                self.glimmet.stop()

    def test_keeps_the_figure_and_the_clock_going_while_an_answer_is_slow(self):
        self.begin_showing_polar()
        self.server.delay = 5
        self.server.pages[POLAR] = [[Sale(999)]]
        start = time.monotonic()

        self.ask_anew()
        self.glimmet.labels.clear()
        self.glimmet.choose_mode("Clock")
        wait_for(lambda: len(self.glimmet.labels) >= 2, 15, "two seconds of the clock")
        clock = [label for _, label in self.glimmet.labels]
        self.glimmet.choose_mode("Revenue")
        self.wait_for_text(FIGURE, 2)
        self.wait_for_text("💰 $9.99")
        took = time.monotonic() - start

        for text in clock:
            self.assertRegex(text, CLOCK)
        # The figure waits for the next second to be shown.
        self.assertTrue(5 <= took < 6.5, f"{took} s")

    def test_quits_at_once_in_the_midst_of_a_long_history(self):
        self.begin_with_all_keys()
        self.server.pages[STRIPE] = [[Sale(100)] * 100] * 1_000_000
        self.press(STRIPE.name)
        wait_for(lambda: len(self.server.asked(STRIPE)) > 20, 10, "twenty pages")
        start = time.monotonic()

        status = self.glimmet.stop()

        self.assertEqual(status, 0)
        self.assertLess(time.monotonic() - start, 1)

    def test_quits_at_once_while_an_answer_does_not_come(self):
        self.server.ending = Ending.SILENCE
        self.keyring.put({POLAR.account: POLAR.key})
        self.launch()
        wait_for(lambda: self.server.asked(POLAR), 15, "the request of the start")
        start = time.monotonic()

        status = self.glimmet.stop()

        self.assertEqual(status, 0)
        self.assertLess(time.monotonic() - start, 1)

    def test_tells_no_key_on_standard_output_although_the_servers_repeat_it(self):
        self.begin_with_all_keys()

        self.show_figures()

        for title in ("Polar response", "RevenueCat response", "Dodo page", "Stripe page", "LemonSqueezy page"):
            self.assertIn(f'[glimmet] {title}:\n{{"came": "Bearer •••"', self.glimmet.output())
        self.assert_tells_no_key(self.glimmet.output())

    def test_tells_no_key_in_what_others_see_of_the_process(self):
        self.begin_with_all_keys()
        self.show_figures()
        process = Path(f"/proc/{self.glimmet.process.pid}")

        command, environment = ((process / name).read_text() for name in ("cmdline", "environ"))

        self.assertIn("glimmet", command)
        self.assert_tells_no_key(command + environment)

    def test_tells_no_key_when_it_is_aborted(self):
        self.begin_with_all_keys(wrapper=WITHOUT_CORE)
        self.show_figures()
        self.server.ending = Ending.SILENCE
        self.ask_anew()

        self.glimmet.process.send_signal(signal.SIGABRT)

        self.assertEqual(self.glimmet.process.wait(5), -signal.SIGABRT)
        self.assert_tells_no_key(self.glimmet.output())

    def test_tells_no_key_when_it_ends_over_a_sum_that_is_too_large(self):
        self.begin_with_all_keys(wrapper=WITHOUT_CORE)
        self.server.pages[POLAR] = [[Sale(2**63 - 1), Sale(1)]]
        # Not before the press is answered: that answer is the program's too.
        self.server.delay = 0.5

        self.press(POLAR.name)

        self.assertEqual(self.glimmet.process.wait(5), -signal.SIGABRT)
        self.assertIn("[glimmet] fatal: integer overflow", self.glimmet.output())
        self.assert_tells_no_key(self.glimmet.output())


if __name__ == "__main__":
    unittest.main()
