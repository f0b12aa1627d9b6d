"""What the tests of revenue have in common: the five platforms in a network of the program's own, and its keyring."""

import subprocess
from pathlib import Path

from desktop.keyring import Keyring
from desktop.own_network import LOOPBACK, OwnNetwork
from desktop.price_server import HOST as PRICES
from desktop.processes import wait_for
from desktop.revenue_server import PLATFORMS, POLAR, RevenueServer
from desktop.watcher import Watcher
from desktop_case import DesktopCase

MAKE_CERTIFICATES = Path(__file__).parent.with_name("support") / "make_certificates"
# What the server's first sales come to.
FIGURE = "💰 $17.00"


class RevenueCase(DesktopCase):
    server_class = RevenueServer
    addresses = LOOPBACK

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        if cls.kind == "strip":
            Watcher(cls.desktop).start()
        cls.keyring = cls.make_keyring()
        cls.certificates = cls.desktop.folder / "certificates"
        hosts = [PRICES, *(platform.host for platform in PLATFORMS)]
        subprocess.run([MAKE_CERTIFICATES, cls.certificates, *hosts], check=True)
        cls.network = OwnNetwork(cls.desktop, hosts, cls.certificates / "authority.pem", cls.addresses)

    @classmethod
    def make_keyring(cls):
        return Keyring(cls.desktop)

    def run(self, result=None):
        """gnome-keyring 42 ends itself once in a while, frozen or with a dialog up. What comes of a test then says
        nothing about the program: the test is run once more, with another keyring."""
        errors, failures = len(result.errors), len(result.failures)
        super().run(result)
        if len(result.errors) + len(result.failures) == errors + failures or not self.desktop.has_keyring_failed():
            return
        print(f"{self.id()}: the keyring ended itself; once more")
        del result.errors[errors:], result.failures[failures:]
        self.desktop.start_keyring()
        type(self).keyring = Keyring(self.desktop)
        super().run(result)

    def setUp(self):
        super().setUp()
        self.keyring.clear()
        self.serve("good")

    def serve(self, certificate):
        self.server = self.server_class(self.network.listen(443), self.certificates / f"{certificate}.pem")
        self.addCleanup(self.server.close)

    def begin(self, environment=None, **options):
        return super().begin(environment, network=self.network.wrapper, **options)

    def show_revenue(self):
        """Chooses revenue in the panel, which stays open."""
        self.glimmet.ask_for_panel()
        self.glimmet.choose_mode("Revenue")

    def begin_showing_polar(self):
        """Returns once the figure is on show; it was asked for twice, at the start and by the choice."""
        self.keyring.put({POLAR.account: POLAR.key})
        self.launch()
        self.show_revenue()
        wait_for(lambda: len(self.server.asked(POLAR)) >= 2, 15, "the requests of the beginning")
        self.wait_for_text(FIGURE)

    def press(self, name):
        self.glimmet.control(name, "radio button").press()

    def wait_for_words(self, words):
        """Returns once the panel says them, in a text of their own."""
        self.glimmet.control(words, "label", "static", "paragraph")

    def wait_for_text(self, text, seconds=10):
        self.glimmet.wait_for_label(lambda label: label == text, seconds)
