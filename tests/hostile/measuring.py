"""What one process costs from one moment to another: its peak of private memory, and its processor time."""

import os
import threading
import time
from pathlib import Path
from typing import NamedTuple

TICK = os.sysconf("SC_CLK_TCK")


class Cost(NamedTuple):
    before_kilobytes: int
    peak_kilobytes: int
    cpu_seconds: float
    main_thread_seconds: float


def private_kilobytes(pid):
    """Memory that is nobody else's and of no file; 0 where the process is gone."""
    try:
        status = Path(f"/proc/{pid}/status").read_text()
    except OSError:
        return 0
    return next((int(line.split()[1]) for line in status.splitlines() if line.startswith("RssAnon:")), 0)


def cpu_seconds(folder):
    try:
        fields = Path(folder, "stat").read_text().rpartition(")")[2].split()
    except OSError:
        return 0.0
    return (int(fields[11]) + int(fields[12])) / TICK


class Meter:
    """Measures a process on a thread of its own until stop()."""

    def __init__(self, pid):
        self._pid = pid
        self._before = self._peak = private_kilobytes(pid)
        self._cpu = self._processor_times()
        self._stopping = threading.Event()
        self._thread = threading.Thread(target=self._watch, daemon=True)
        self._thread.start()

    def _processor_times(self):
        return cpu_seconds(f"/proc/{self._pid}"), cpu_seconds(f"/proc/{self._pid}/task/{self._pid}")

    def _watch(self):
        while not self._stopping.wait(0.005):
            self._peak = max(self._peak, private_kilobytes(self._pid))

    def stop(self):
        self._stopping.set()
        self._thread.join()
        peak = max(self._peak, private_kilobytes(self._pid))
        all_threads, main_thread = (after - before for before, after in zip(self._cpu, self._processor_times()))
        return Cost(self._before, peak, all_threads, main_thread)


def timed(action):
    """What `action` returns, and the seconds that it took."""
    start = time.monotonic()
    value = action()
    return value, time.monotonic() - start
