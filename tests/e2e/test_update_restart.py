"""From a notification to the new version that runs: the built program, packaged, beside the real PackageKit."""

import os
import unittest
from pathlib import Path

from desktop.accessibility import find_when_there
from desktop.glimmet import NAME, Glimmet
from desktop.processes import wait_for
from desktop_case import BINARY, DesktopCase
from notifications import Notifications
from own_packages import PROGRAM, OwnPackages

reason_to_skip = OwnPackages.reason_to_skip
WINDOW = "glimmet – Software Update"


class UpdateAndRestart(DesktopCase):
    def setUp(self):
        super().setUp()
        self.packages = self.enterContext(OwnPackages(BINARY, BINARY.parent.parent / "lib/glimmet"))
        self.packages.publish("1.0")
        self.packages.install("1.0")
        self.notifications = Notifications(self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(self.notifications.close)

    def launch_packaged(self):
        self.glimmet = Glimmet(self.desktop, PROGRAM, wrapper=self.packages.wrapper)
        self.addCleanup(self._end)
        self.glimmet.wait_until_running()

    def program(self):
        """The file that the process runs from; one that was replaced is called deleted."""
        return os.readlink(f"/proc/{self.desktop.bus.process_of(NAME)}/exe")

    def test_installs_by_the_notification_and_runs_as_the_new_version(self):
        self.packages.publish("1.1")
        self.launch_packaged()
        process = self.desktop.bus.process_of(NAME)
        wait_for(lambda: self.notifications.shown, 80, "the notification after the quiet minute")
        self.assertEqual(self.notifications.shown, [
            ("Update available", "glimmet 1.1 can be installed. You have 1.0.",
             ["install", "Install", "later", "Later"])])

        self.notifications.choose(1, "install")
        self.screen.wait_for_window(WINDOW)
        restart = find_when_there(self.desktop.tree.program("glimmet"), "Restart", "push button", seconds=20)
        if folder := os.environ.get("GLIMMET_PICTURES"):
            self.screen.screenshot(str(Path(folder) / "update-done.png"))
        self.assertEqual(self.packages.installed(), "1.1")
        self.assertTrue(self.program().endswith("(deleted)"))
        before = self.desktop.bus.owner(NAME)
        restart.press()

        wait_for(lambda: self.desktop.bus.owner(NAME) not in (None, before), 10, "the next run")
        self.assertEqual(self.desktop.bus.process_of(NAME), process)
        self.assertEqual(self.program(), PROGRAM)
        self.screen.wait_until_gone(WINDOW)
        self.glimmet.wait_until_running()
        self.glimmet.ask_for_panel()


if __name__ == "__main__":
    unittest.main()
