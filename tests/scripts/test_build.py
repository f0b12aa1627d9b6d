"""What scripts/build tells while a cmake builds that only plays its part."""

import os
import pty
import subprocess
import tempfile
import unittest
from pathlib import Path

BUILD = Path(__file__).resolve().parents[2] / "scripts" / "build"
STEPS = 40
CMAKE = f"""#!/bin/sh
case "$1" in
  --build) ;;
  *) echo "-- Configuring done"; exit "${{CONFIGURED:-0}}" ;;
esac
for step in $(seq {STEPS}); do echo "[$step/{STEPS}] Building CXX object $step.o"; done
echo "ninja: what went wrong"
exit "${{BUILT:-0}}"
"""


class Build(unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        tool = self.folder / "cmake"
        tool.write_text(CMAKE)
        tool.chmod(0o755)

    def environment(self, **outcome):
        return os.environ | {"PATH": f"{self.folder}:{os.environ['PATH']}", "TMPDIR": str(self.folder)} | outcome

    def build(self, **outcome):
        result = subprocess.run([BUILD, "release"], env=self.environment(**outcome), capture_output=True, text=True,
                                timeout=60)
        self.assertEqual(list(self.folder.iterdir()), [self.folder / "cmake"])
        return result

    def test_tellsEveryTenthOfTheWayWhereThereIsNoTerminal(self):
        result = self.build()

        self.assertEqual((result.returncode, result.stdout), (0, ""))
        lines = result.stderr.splitlines()
        self.assertEqual(lines[0], "Configuring glimmet")
        self.assertEqual(lines[1:], [f"Building glimmet: {step} of {STEPS} steps" for step in (1, *range(4, 41, 4))])

    def test_movesOneLineOnATerminal(self):
        ours, theirs = pty.openpty()
        self.addCleanup(os.close, ours)
        result = subprocess.run([BUILD, "release"], env=self.environment(), stderr=theirs, timeout=60)
        os.close(theirs)
        shown = os.read(ours, 100_000).decode()

        self.assertEqual(result.returncode, 0)
        self.assertNotIn("\n", shown)
        moves = shown.split("\r\x1b[K")
        self.assertEqual(moves[-2:], [f"Building glimmet: {STEPS} of {STEPS} steps", ""])
        self.assertEqual(len(moves), STEPS + 3)

    def test_showsWhatWentWrongAndFails(self):
        for outcome, words in (({"BUILT": "2"}, "ninja: what went wrong"), ({"CONFIGURED": "1"}, "Configuring done")):
            with self.subTest(outcome):
                result = self.build(**outcome)

                self.assertEqual(result.returncode, 1)
                self.assertIn("Building glimmet failed:", result.stderr)
                self.assertIn(words, result.stderr)


if __name__ == "__main__":
    unittest.main()
