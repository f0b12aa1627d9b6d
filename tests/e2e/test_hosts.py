"""Hosts and buses that come and go under the running program."""

import unittest

from desktop.processes import wait_for, watch_for
from desktop.program import ITEM, NAME, STRIP
from desktop_case import DesktopCase
from watcher import Watcher


class Hosts(DesktopCase):
    def setUp(self):
        super().setUp()
        self.watcher = Watcher(self.desktop)

    def start_watcher(self):
        self.watcher.start()
        self.addCleanup(self.watcher.kill)

    def assert_registered(self):
        name, path = self.watcher.wait_for_item()
        self.assertEqual(path, ITEM)
        self.assertEqual(self.desktop.bus.process_of(name), self.glimmet.process.pid)

    def test_registers_with_a_host_that_is_there(self):
        self.start_watcher()

        self.launch()

        self.assert_registered()

    def test_shows_no_strip_beside_a_host(self):
        self.start_watcher()
        self.launch()
        self.watcher.wait_for_item()

        seen = set()
        watch_for(7, lambda: seen.update(self.screen.windows(STRIP)))

        self.assertEqual(seen, set())

    def test_registers_again_when_the_host_is_killed_and_restarted(self):
        self.start_watcher()
        self.launch()
        self.watcher.wait_for_item()

        for _ in range(5):
            self.watcher.kill()
            self.watcher.start()
            self.assert_registered()

    def test_a_host_that_restarts_at_once_brings_up_no_strip(self):
        self.start_watcher()
        self.launch()
        self.watcher.wait_for_item()

        self.watcher.kill()
        self.watcher.start()

        seen = set()
        watch_for(7, lambda: seen.update(self.screen.windows(STRIP)))
        self.assertEqual(seen, set())

    def test_moves_from_the_strip_to_a_host_and_back(self):
        self.launch().wait_for_strip()

        self.watcher.start()
        self.screen.wait_until_gone(STRIP)
        self.assert_registered()
        self.watcher.kill()

        self.glimmet.wait_for_strip()

    def test_survives_the_loss_of_the_session_bus_with_a_strip(self):
        self.start_watcher()
        self.launch()
        self.watcher.wait_for_item()

        self.desktop.stop_session_bus()
        # The lost bus takes its host down as well.
        self.addCleanup(self.desktop.start_session_bus)

        strip = self.glimmet.wait_for_strip()
        pictures = set()
        wait_for(lambda: pictures.add(self.screen.pixels(strip)) or len(pictures) > 2, 5, "a text that goes on")
        self.assertIsNone(self.glimmet.process.poll())


if __name__ == "__main__":
    unittest.main()
