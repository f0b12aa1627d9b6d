"""The shipped program asks each hostile server of the table, and stays whole, honest and quick."""

import os
import unittest
from pathlib import Path

from desktop import own_namespaces
from hostile import lanes
from hostile.cases import GROUPS
from hostile.results import MOST_MEMORY, faults

reason_to_skip = own_namespaces.reason_to_skip_ipv6
BINARY = Path(os.environ["GLIMMET_BINARY"]).resolve(strict=True)
# Most of a case is waiting: for the next second, or for the end of a silence.
SIDE_BY_SIDE = 6
# A program that AddressSanitizer watches has a hundred megabytes for that, and keeps what it frees.
MEMORY = float("inf") if "ASAN_OPTIONS" in os.environ else MOST_MEMORY


class HostileServers(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cases = [case for group in GROUPS.values() for case in group if not case.is_for_soak]
        cls.results = lanes.play(cases, BINARY, SIDE_BY_SIDE)

    def assert_unhurt_by(self, group):
        for case in GROUPS[group]:
            if not case.is_for_soak:
                with self.subTest(case.name):
                    if found := "; ".join(faults(case, self.results[case.name], MEMORY)):
                        self.fail(found)

    def test_is_not_hurt_before_there_is_a_request(self):
        self.assert_unhurt_by("Handshake")

    def test_tells_nothing_to_a_server_that_cannot_prove_who_it_is(self):
        self.assert_unhurt_by("Certificates")

    def test_is_not_hurt_by_the_head_of_an_answer(self):
        self.assert_unhurt_by("Head")

    def test_says_each_status_as_it_is(self):
        self.assert_unhurt_by("Statuses")

    def test_goes_nowhere_else(self):
        self.assert_unhurt_by("Redirects")

    def test_answers_no_challenge(self):
        self.assert_unhurt_by("Challenges")

    def test_takes_no_part_of_a_body_for_the_whole(self):
        self.assert_unhurt_by("Body")

    def test_takes_no_part_of_a_chunked_body_for_the_whole(self):
        self.assert_unhurt_by("Chunks")

    def test_takes_no_part_of_a_packed_body_for_the_whole(self):
        self.assert_unhurt_by("Packed bodies")

    def test_loses_no_history_where_a_connection_ends_between_pages(self):
        self.assert_unhurt_by("Pages")

    def test_finds_the_server_at_the_second_of_two_addresses(self):
        self.assert_unhurt_by("Addresses")


if __name__ == "__main__":
    unittest.main()
