"""Standard outputs that take nothing, and one that is read line by line."""

import os
import select
import unittest

from desktop.processes import wait_for
from desktop_case import DesktopCase

CLOSED = ["sh", "-c", 'exec "$@" >&-', "sh"]


def full_pipe():
    """Both ends of a pipe without room for another byte; a write to it blocks."""
    read, write = os.pipe()
    os.set_blocking(write, False)
    try:
        while True:
            os.write(write, b"x" * 4096)
    except BlockingIOError:
        pass
    try:
        while True:
            os.write(write, b"x")
    except BlockingIOError:
        os.set_blocking(write, True)
    return read, write


class Output(DesktopCase):
    def assert_goes_on(self):
        already = len(self.glimmet.labels)
        wait_for(lambda: len(self.glimmet.labels) >= already + 2, 15, "two more labels")
        self.glimmet.ask_for_panel()
        self.glimmet.close_panel()
        self.assertIsNone(self.glimmet.process.poll())

    def test_goes_on_with_its_output_closed(self):
        self.launch(wrapper=CLOSED)

        self.assert_goes_on()

    def test_goes_on_with_its_output_full(self):
        with open("/dev/full", "wb") as full:
            self.launch(stdout=full)

        self.assert_goes_on()

    def test_goes_on_with_a_pipe_that_nobody_empties(self):
        read, write = full_pipe()
        self.addCleanup(os.close, read)
        self.launch(stdout=write)
        os.close(write)

        self.assert_goes_on()

    def test_goes_on_with_a_pipe_whose_reader_left(self):
        read, write = os.pipe()
        self.launch(stdout=write)
        os.close(write)
        os.close(read)

        self.assert_goes_on()

    def test_tells_what_it_does_line_by_line_into_a_pipe(self):
        read, write = os.pipe()
        self.launch(stdout=write)
        os.close(write)

        with os.fdopen(read) as lines:
            ready, _, _ = select.select([lines], [], [], 10)
            self.assertTrue(ready, "nothing came while the program runs")
            self.assertRegex(lines.readline(), r"^\[glimmet\] menu bar: .+\n$")
        self.assertIsNone(self.glimmet.process.poll())


if __name__ == "__main__":
    unittest.main()
