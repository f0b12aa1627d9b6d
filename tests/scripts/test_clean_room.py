"""Where a clean system comes from, and what its command line refuses."""

import os
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

from rooms import clean_room

ROOT = Path(__file__).resolve().parents[2]
CLEAN_ROOM = ROOT / "scripts" / "clean-room"
IN_NAMESPACES = ROOT / "tests" / "rooms" / "in_namespaces.py"

LISTS = """http://mirror.invalid/debian bookworm-updates main
http://mirror.invalid/debian bookworm main
http://mirror.invalid/debian bookworm contrib
http://mirror.invalid/debian-security bookworm-security main
http://vendor.invalid/apt bookworm-tools main
http://vendor.invalid/apt stable main
"""

# Says that it is there, and then which signal it got.
TELLING = """
import signal
signals = {signal.SIGHUP, signal.SIGINT, signal.SIGTERM}
signal.pthread_sigmask(signal.SIG_BLOCK, signals)
print("ready", flush=True)
print(int(signal.sigwait(signals)), flush=True)
raise SystemExit(7)
"""


class CleanRoom(unittest.TestCase):
    def sources(self, release, listed=LISTS):
        with mock.patch.object(clean_room, "output_of", return_value=listed):
            return clean_room.sources(release)

    def test_takesThePackageSourcesOfThisMachineForAnotherRelease(self):
        self.assertEqual(self.sources("trixie"), [
            "http://mirror.invalid/debian trixie main",
            "http://mirror.invalid/debian trixie-updates main",
            "http://mirror.invalid/debian-security trixie-security main"])

    def test_refusesAMachineWithoutASourceOfDebian(self):
        with self.assertRaises(RuntimeError):
            self.sources("trixie", "http://archive.invalid/ubuntu noble main\n")

    def test_refusesAReleaseThatItDoesNotKnowAndAMissingCommand(self):
        for words in (["11", "true"], ["13"], [], ["--nonsense", "true"]):
            with self.subTest(words=words):
                result = subprocess.run([CLEAN_ROOM, *words], capture_output=True, text=True, timeout=30)

                self.assertEqual(result.returncode, 2)
                self.assertIn("Usage: scripts/clean-room", result.stderr)

    def test_handsOnWhatAsksItToEnd(self):
        if os.geteuid() != 0:
            print("the end of a clean room is skipped: namespaces take root")
            self.skipTest("takes root")
        script = self.enterContext(tempfile.NamedTemporaryFile("w"))
        script.write(TELLING)
        script.flush()
        for number in (signal.SIGHUP, signal.SIGINT, signal.SIGTERM):
            with self.subTest(number=number):
                process = subprocess.Popen([IN_NAMESPACES, sys.executable, "-B", script.name],
                                           stdout=subprocess.PIPE, text=True)
                self.assertEqual(process.stdout.readline(), "ready\n")

                process.send_signal(number)

                self.assertEqual(process.communicate(timeout=30)[0], f"{int(number)}\n")
                self.assertEqual(process.returncode, 7)
