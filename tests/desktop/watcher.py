"""Starts and kills the stand-in host of a test's desktop and reads what registered with it."""

import sys
from pathlib import Path

from desktop.processes import wait_for

PROGRAM = Path(__file__).with_name("status_notifier_watcher.py")
NAME = "org.kde.StatusNotifierWatcher"


class Watcher:
    def __init__(self, desktop):
        self._desktop = desktop
        self._process = None

    def start(self):
        self._process = self._desktop.start("watcher", [sys.executable, "-B", str(PROGRAM)])
        wait_for(lambda: self._desktop.bus.owner(NAME), 10, "the host")
        return self

    def kill(self):
        """Ends the host without a farewell."""
        self._process.kill()
        self._process.wait()
        wait_for(lambda: not self._desktop.bus.owner(NAME), 15, "the host to be gone")

    def items(self):
        """What registered since the start, each as [bus name, path]."""
        return [line.split() for line in self._desktop.log("watcher").splitlines()]

    def wait_for_item(self, seconds=15):
        return wait_for(self.items, seconds, "an item to register")[0]
