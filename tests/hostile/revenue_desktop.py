"""A desktop with the program in a network of its own, which shows revenue and asks for it at one press."""

import subprocess
import time
from pathlib import Path

from gi.repository import GLib

from desktop.glimmet import Glimmet
from desktop.keyring import Keyring
from desktop.own_network import LOOPBACK, OwnNetwork
from desktop.processes import DesktopError, wait_for
from desktop.revenue_server import PLATFORMS, POLAR, STRIPE
from desktop.virtual_desktop import VirtualDesktop
from desktop.watcher import Watcher
from hostile.answers import PRICES
from hostile.measuring import timed

MAKE_CERTIFICATES = Path(__file__).parent.with_name("support") / "make_certificates"
PORT = 443
KEYS = {platform.account: platform.key for platform in (POLAR, STRIPE)}
CHOSEN_AT_START = POLAR.name
# Seconds: a text waits for the next second to be shown.
UNTIL_SHOWN = 3


class RevenueDesktop:
    """To be used in a `with` block; whoever serves the program there must do so before its launch."""

    def __init__(self, binary, addresses=LOOPBACK):
        self.glimmet = None
        self.slowest_reply = 0.0
        self._binary = binary
        self._addresses = addresses
        self.desktop = VirtualDesktop()

    def __enter__(self):
        self.desktop.__enter__()
        try:
            self._prepare_world()
        except BaseException as error:
            self.desktop.__exit__(type(error), error, error.__traceback__)
            raise
        return self

    def _prepare_world(self):
        Watcher(self.desktop).start()
        Keyring(self.desktop).put(KEYS)
        self.certificates = self.desktop.folder / "certificates"
        hosts = [PRICES, *(platform.host for platform in PLATFORMS)]
        subprocess.run([MAKE_CERTIFICATES, self.certificates, *hosts], check=True)
        self.network = OwnNetwork(self.desktop, hosts, self.certificates / "authority.pem", self._addresses)

    def __exit__(self, *error):
        self.desktop.__exit__(*error)

    def launch(self):
        """Starts the program and has it show revenue; its panel stays open."""
        self.glimmet = Glimmet(self.desktop, self._binary, network=self.network.wrapper).wait_until_running(30)
        self.glimmet.ask_for_panel()
        self.glimmet.choose_mode("Revenue")
        self._refresh = self.glimmet.control("Refresh", "push button", "button")
        self._platform = CHOSEN_AT_START
        self.wait_for_result(30)

    def quit(self):
        """Ends the program in whatever it is doing; seconds until it was gone, None where it had to be killed."""
        glimmet, self.glimmet = self.glimmet, None
        status, seconds = timed(glimmet.stop)
        return seconds if status == 0 else None

    def choose(self, platform):
        """Has that platform asked, if it was not the last one, and waits for the result."""
        if platform != self._platform:
            self.begin(platform)
            self.wait_for_result(30)

    def begin(self, platform):
        self.glimmet.control(platform, "radio button").press()
        self._platform = platform

    def refresh(self):
        self._refresh.press()

    def is_fetching(self):
        """Whether a request is out. The program must answer this at once, whatever its servers do."""
        asked = time.monotonic()
        try:
            return not self._refresh.enabled
        except GLib.Error:
            if self.glimmet.process.poll() is not None:
                raise DesktopError("it ended by itself") from None
            return True
        finally:
            self.slowest_reply = max(self.slowest_reply, time.monotonic() - asked)

    def wait_for_result(self, seconds):
        wait_for(lambda: not self.is_fetching(), seconds, "the result of the request")

    def shows(self, *texts):
        """The first of these texts that the item shows within the time, and else what it shows then."""
        try:
            return self.glimmet.wait_for_label(lambda label: label in texts, UNTIL_SHOWN)
        except DesktopError:
            return self.glimmet.label
