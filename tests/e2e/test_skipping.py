"""Tests that cannot run for this user are skipped, say why in one line, and only where it is true."""

import subprocess
import sys
import unittest
from pathlib import Path

from desktop import own_namespaces

RUNNER = Path(__file__).with_name("run_test.py")
SKIPPED = 77
OWNER = RUNNER.stat()
# Root is whoever the files belong to, since in a user namespace it could not read what others keep to themselves.
AS_OWNER = (["setpriv", f"--reuid={OWNER.st_uid}", f"--regid={OWNER.st_gid}", "--clear-groups", "--"]
            if own_namespaces.IS_ROOT and OWNER.st_uid != 0 else [])
# Enters a user namespace as an ordinary user, with the rights that the first step there needs.
AS_A_USER = [*AS_OWNER, "unshare", "--user", "--map-user=1000", "--map-group=1000", "--keep-caps", "--"]
# No process from there on may make a namespace of its own.
WITHOUT_NAMESPACES = ["sh", "-c", 'echo 0 > /proc/sys/user/max_user_namespaces && exec "$@"', "sh"]
NEEDS_NAMESPACES = ("prices", "revenue", "keys", "key_services", "dumps", "two_addresses", "time_jump",
                    "time_zone", "full_disk")
NEEDS_ROOT = {"updates": "a package manager", "update_restart": "a package manager",
              "journal": "a service manager and a journal"}


def reason_to_skip():
    """Root too is an ordinary user here."""
    return own_namespaces.reason_of_failure([*AS_A_USER, *WITHOUT_NAMESPACES, "true"])


class Skipping(unittest.TestCase):
    def skip(self, name, *where):
        """The line by which a file of tests is skipped there."""
        result = subprocess.run([*where, sys.executable, "-B", str(RUNNER), f"test_{name}"], capture_output=True,
                                text=True, timeout=30)
        self.assertEqual((result.returncode, result.stderr), (SKIPPED, ""))
        line, rest = result.stdout.split("\n", 1)
        self.assertEqual(rest, "")
        return line

    def test_says_that_a_network_or_mounts_of_its_own_take_root_or_namespaces(self):
        for name in NEEDS_NAMESPACES:
            self.assertRegex(self.skip(name, *AS_A_USER, *WITHOUT_NAMESPACES),
                             rf"^test_{name} is skipped: it takes root, or a system that lets every user make "
                             r"namespaces \(unshare: .+\)$")

    def test_says_what_takes_root(self):
        for name, what in NEEDS_ROOT.items():
            self.assertRegex(self.skip(name, *AS_A_USER), rf"^test_{name} is skipped: {what} of its own takes? root$")

    def test_skips_nothing_that_can_run(self):
        question = ("import importlib, sys\n"
                    "for name in sys.argv[1:]: print(importlib.import_module(f'test_{name}').reason_to_skip())")
        for names, where in ((NEEDS_NAMESPACES, AS_A_USER),
                             ((*NEEDS_NAMESPACES, *NEEDS_ROOT), []) if own_namespaces.IS_ROOT else ((), [])):
            result = subprocess.run([*where, sys.executable, "-B", "-c", question, *names], capture_output=True,
                                    text=True, cwd=RUNNER.parent, timeout=30)
            self.assertEqual((result.stdout, result.stderr), ("None\n" * len(names), ""))


if __name__ == "__main__":
    unittest.main()
