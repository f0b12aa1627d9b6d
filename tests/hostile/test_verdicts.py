"""What is wrong about a result is found, and nothing else is."""

import unittest

from hostile.cases import CASES, LOST
from hostile.results import Result, faults

CASE = CASES["closed in the body"]
GOOD = Result(CASE.name, LOST, 0.1, 17_000, 18_000, 0.01, 0.0, requests=1)


class Verdicts(unittest.TestCase):
    def faults(self, case=CASE, **changes):
        return "; ".join(faults(case, GOOD._replace(**changes)))

    def test_finds_nothing_wrong_about_a_good_result(self):
        self.assertEqual(self.faults(), "")
        self.assertEqual(self.faults(has_quit=True, quit_seconds=0.2), "")

    def test_finds_a_false_zero(self):
        self.assertIn("it shows “💰 $0.00”, not “⚠ the connection was lost”", self.faults(text="💰 $0.00"))

    def test_finds_a_result_that_comes_late_or_early(self):
        self.assertIn("the result took 11.0 s", self.faults(seconds=11.0))
        self.assertIn("the result took 3.0 s", self.faults(CASES["silence in the body"], seconds=3.0))

    def test_finds_too_much_memory(self):
        self.assertIn("it took 101 MB of private memory, 16 MB before", self.faults(peak_kilobytes=101 << 10))

    def test_finds_requests_beyond_those_allowed(self):
        self.assertIn("it asked 3 times", self.faults(requests=3))
        self.assertIn("went where", self.faults(elsewhere=1))

    def test_finds_a_program_that_ended_or_goes_on_to_hang(self):
        self.assertEqual(self.faults(text="", trouble="it ended by itself with -11"), "it ended by itself with -11")
        self.assertIn("1.5 s to quit", self.faults(has_quit=True, quit_seconds=1.5))
        self.assertIn("killed", self.faults(has_quit=True, quit_seconds=None))


if __name__ == "__main__":
    unittest.main()
