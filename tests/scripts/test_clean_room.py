"""Where a clean system comes from, and what its command line refuses."""

import subprocess
import sys
import unittest
from pathlib import Path
from unittest import mock

SCRIPTS = Path(__file__).resolve().parents[2] / "scripts"
sys.path.insert(0, str(SCRIPTS))

import clean_room  # noqa: E402

LISTS = """http://mirror.invalid/debian bookworm-updates main
http://mirror.invalid/debian bookworm main
http://mirror.invalid/debian bookworm contrib
http://mirror.invalid/debian-security bookworm-security main
http://vendor.invalid/apt bookworm-tools main
http://vendor.invalid/apt stable main
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
                result = subprocess.run([SCRIPTS / "clean-room", *words], capture_output=True, text=True, timeout=30)

                self.assertEqual(result.returncode, 2)
                self.assertIn("Usage: scripts/clean-room", result.stderr)
