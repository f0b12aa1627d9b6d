"""How the presets compile: a user's build goes on at a warning, that of who works on glimmet does not."""

import json
import os
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
# What a user's environment says of compilers holds in a user's build, and is not what is looked at here.
ENVIRONMENT = {name: value for name, value in os.environ.items() if name not in ("CXXFLAGS", "CFLAGS", "CPPFLAGS")}


class Presets(unittest.TestCase):
    def commands_of(self, preset):
        """How this preset compiles each file of the project, and nothing that was generated."""
        folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        subprocess.run(["cmake", "--preset", preset, "-B", folder], cwd=ROOT, env=ENVIRONMENT, check=True,
                       capture_output=True, timeout=100)
        commands = json.loads((folder / "compile_commands.json").read_text())
        return [entry["command"] for entry in commands if not Path(entry["file"]).is_relative_to(folder)]

    def assert_warnings_end(self, preset, wanted):
        commands = self.commands_of(preset)

        self.assertGreater(len(commands), 100)
        self.assertTrue(all("-Wall" in command for command in commands))
        self.assertEqual({"-Werror" in command for command in commands}, {wanted})

    def test_noWarningEndsTheBuildOfAUser(self):
        self.assert_warnings_end("release", False)

    def test_noWarningEndsTheBuildOfAPackage(self):
        self.assert_warnings_end("package", False)

    def test_noWarningEndsTheBuildOfTheTestsAsUsersGetTheProgram(self):
        self.assert_warnings_end("check-release", False)

    def test_everyWarningEndsTheBuildOfAnybodyWhoChecks(self):
        for preset in ("check", "asan", "lint"):
            with self.subTest(preset=preset):
                self.assert_warnings_end(preset, True)
