"""Runs one file of tests: `run_test.py test_prices`.

Where a file needs what not every user may do, its `reason_to_skip()` says why that cannot be here, or None. The file is
then left out as a whole, with that one line, and the status by which ctest counts it as skipped."""

import importlib
import sys
import unittest

SKIPPED = 77


def main(name, *arguments):
    module = importlib.import_module(name)
    reason = getattr(module, "reason_to_skip", lambda: None)()
    if reason:
        print(f"{name} is skipped: {reason}")
        sys.exit(SKIPPED)
    unittest.main(module, argv=[name, *arguments], verbosity=2)


if __name__ == "__main__":
    main(*sys.argv[1:])
