"""What one launch leaves to the next, what a second launch does beside the first, and what a launch without a desktop
tells its user."""

import base64
import json
import os
import socket
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from desktop.glimmet import PANEL
from desktop.processes import wait_for
from desktop.without_network import without_network
from desktop_case import BINARY, DesktopCase

# The port of the display 0; those of others follow.
FIRST_DISPLAY = 6000
QUOTES = ["less is more", "deep work > busy work", "ünïcödé 🛠"]
SYMBOLS = ["AAPL"]
# Beyond any clock that this runs under, with a fraction that needs all bits of the number.
DEADLINE = '[{"date":2934567890.1234565,"title":"launch","id":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F"}]'


class Launches(DesktopCase):
    def second_launch(self):
        second = self.desktop.start("second", [*without_network(), str(BINARY)])
        return wait_for(lambda: second.poll() is not None, 15, "the second launch to end") and second.returncode

    def seed_lists(self):
        self.seed({
            "me.kerno.glimmet.quotes": QUOTES,
            "me.kerno.glimmet.deadlines": {"data": base64.b64encode(DEADLINE.encode()).decode()},
            "glimmet.cryptoSymbols": SYMBOLS,
        })

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

    def test_runs_on_x11_whatever_platform_the_session_wishes_for(self):
        for wish in ("wayland", "wayland;xcb", "offscreen", "xcb:no_xi2_mouse"):
            with self.subTest(wish):
                self.launch({"QT_QPA_PLATFORM": wish}).ask_for_panel()

                self.assertEqual(self.glimmet.stop(), 0)

    def test_runs_as_the_only_client_of_a_server_that_ends_with_its_last_one(self):
        display = self.desktop.start_screen("ending-screen", "-terminate")

        self.launch({"DISPLAY": display})

        self.assertEqual(self.glimmet.stop(), 0)

    def test_runs_again_as_a_session_manager_starts_it(self):
        self.launch(arguments=["-session", "10d7-1700000000-42"]).ask_for_panel()


class WithoutADesktop(unittest.TestCase):
    """Neither a display nor a bus, but for what the test puts in their places."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="glimmet-launch-")
        self.folder = Path(self.enterContext(folder))
        self.bus = self.enterContext(socket.socket(socket.AF_UNIX))
        self.bus.bind(str(self.folder / "bus"))
        self.bus.listen()
        self.bus.setblocking(False)

    def launch(self, *arguments, seconds=10, network=None, **environment):
        """Runs the program to its end."""
        own = {"PATH": os.environ["PATH"], "HOME": str(self.folder), "LANG": "C.UTF-8",
               "DBUS_SESSION_BUS_ADDRESS": f"unix:path={self.folder / 'bus'}"}
        inside = without_network() if network is None else network
        return subprocess.run([*inside, str(BINARY), *arguments], env=own | environment, timeout=seconds,
                              capture_output=True, text=True)

    def assert_touched_nothing(self):
        self.assertEqual([path.name for path in self.folder.iterdir()], ["bus"])
        with self.assertRaises(BlockingIOError):
            self.bus.accept()

    def assert_needs_a_display(self, launch, reason):
        self.assertEqual((launch.returncode, launch.stdout), (1, ""))
        self.assertEqual(launch.stderr, f"glimmet needs an X display ({reason})\n")

    def test_tells_its_version(self):
        for argument in ("--version", "-v"):
            launch = self.launch(argument)

            self.assertEqual((launch.returncode, launch.stderr), (0, ""))
            self.assertRegex(launch.stdout, r"^glimmet \d+\.\d+\.\d+\n$")
        self.assert_touched_nothing()

    def test_tells_its_options(self):
        for argument in ("--help", "-h"):
            launch = self.launch(argument)

            self.assertEqual((launch.returncode, launch.stderr), (0, ""))
            self.assertTrue(launch.stdout.startswith("Usage: glimmet "))
            for option in ("-h, --help", "-v, --version"):
                self.assertIn(option, launch.stdout)
        self.assert_touched_nothing()

    def test_refuses_an_argument_that_it_does_not_know(self):
        for argument in ("--verbose", "panel", "-platform"):
            launch = self.launch(argument)

            self.assertEqual((launch.returncode, launch.stdout), (2, ""))
            self.assertEqual(launch.stderr, f"glimmet: unknown argument '{argument}'\n"
                                            "Usage: glimmet [--help | --version]\n")
        self.assert_touched_nothing()

    def test_fails_where_standard_output_takes_no_version(self):
        with open("/dev/full", "wb") as full:
            self.assertEqual(subprocess.run([str(BINARY), "--version"], stdout=full).returncode, 1)

    def test_says_that_no_display_is_set(self):
        for environment in ({}, {"DISPLAY": ""}, {"QT_QPA_PLATFORM": "wayland", "WAYLAND_DISPLAY": "wayland-7"}):
            self.assert_needs_a_display(self.launch(**environment), "DISPLAY is not set")
        self.assert_touched_nothing()

    def test_says_that_the_display_cannot_be_reached(self):
        for name in (":59000", "127.0.0.1:59000", "nonsense"):
            self.assert_needs_a_display(self.launch(DISPLAY=name), f"cannot connect to {name}")
        self.assert_touched_nothing()

    def test_says_that_the_display_does_not_answer_and_waits_half_a_minute_for_it_at_most(self):
        display = self.enterContext(socket.create_server(("127.0.0.1", 0)))
        name = f"127.0.0.1:{display.getsockname()[1] - FIRST_DISPLAY}"
        start = time.monotonic()

        launch = self.launch(DISPLAY=name, seconds=60, network=())

        self.assert_needs_a_display(launch, f"{name} does not answer")
        self.assertAlmostEqual(time.monotonic() - start, 30, delta=5)


if __name__ == "__main__":
    unittest.main()
