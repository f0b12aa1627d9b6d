"""The processes of a virtual desktop, whatever happens while they start."""

import os
import signal
import tempfile
import time
import unittest
from pathlib import Path
from unittest import mock

from desktop import processes


def children():
    return Path(f"/proc/self/task/{os.getpid()}/children").read_text().split()


class ProcessesOfADesktop(unittest.TestCase):
    def setUp(self):
        folder = self.enterContext(tempfile.TemporaryDirectory())
        self.processes = processes.Processes(folder, folder)
        before = signal.signal(signal.SIGINT, signal.default_int_handler)
        self.addCleanup(signal.signal, signal.SIGINT, before)

    def start_sleeper(self):
        return self.processes.start("sleeper", ["sleep", "60"], {"PATH": os.environ["PATH"]})

    def test_endWithTheDesktop(self):
        sleeper = self.start_sleeper()

        self.processes.stop_all()

        self.assertEqual(sleeper.poll(), -signal.SIGTERM)

    def test_canBeAskedToEndThemselves(self):
        sleeper = self.start_sleeper()

        os.kill(sleeper.pid, signal.SIGINT)

        self.assertEqual(sleeper.wait(10), -signal.SIGINT)

    def test_endWithTheDesktopAlsoWhereTheirStartWasInterrupted(self):
        def interrupt_parent():
            os.kill(os.getppid(), signal.SIGINT)
            time.sleep(0.5)  # A slow start: the program, and the mark with it, come long after the interrupt.

        with mock.patch.object(processes, "_die_with_parent", interrupt_parent):
            self.assertRaises(KeyboardInterrupt, self.start_sleeper)
        self.processes.stop_all()

        self.assertEqual(children(), [])


if __name__ == "__main__":
    unittest.main()
