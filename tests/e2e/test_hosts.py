"""Hosts and buses that come and go under the running program."""

import unittest

from desktop.glimmet import ITEM, NAME, STRIP
from desktop.processes import wait_for, watch_for
from desktop.watcher import Watcher
from desktop_case import DesktopCase


class Hosts(DesktopCase):
    def setUp(self):
        super().setUp()
        self.watcher = Watcher(self.desktop)

    def start_watcher(self):
        self.watcher.start()
        self.addCleanup(self.watcher.kill)

    def assert_registered(self):
        name, path = self.watcher.wait_for_item(15)
        self.assertEqual(path, ITEM)
        self.assertEqual(self.desktop.bus.process_of(name), self.glimmet.process.pid)

    def test_registers_with_a_host_that_is_there(self):
        self.start_watcher()

        self.launch()

        self.assert_registered()

    def test_keeps_its_name_where_a_host_forgets_the_item(self):
        self.start_watcher()
        self.begin()

        # This host never reads what registered, as one that has lost it on the way.
        wait_for(lambda: len(self.watcher.items()) > 3, 20, "three more registrations")

        self.glimmet.wait_until_running(5)
        self.assertEqual(self.desktop.bus.process_of(NAME), self.glimmet.process.pid)
        self.assertNotIn("session bus: lost", self.glimmet.output())

    def test_shows_a_strip_until_a_host_looks_that_starts_late(self):
        self.start_watcher()
        self.begin()

        self.glimmet.wait_for_strip(12)

        self.glimmet.wait_until_running(5)
        self.screen.wait_until_gone(STRIP)

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

    def lose_the_session_bus(self):
        self.desktop.stop_session_bus()
        self.addCleanup(self.restore_the_session_bus)

    def restore_the_session_bus(self):
        if not self.desktop.has_session_bus():
            self.desktop.start_session_bus()

    def test_survives_the_loss_of_the_session_bus_with_a_strip(self):
        self.launch()

        self.lose_the_session_bus()

        strip = self.glimmet.wait_for_strip()
        pictures = set()
        wait_for(lambda: pictures.add(self.screen.pixels(strip)) or len(pictures) > 2, 15, "a text that goes on")
        self.assertIsNone(self.glimmet.process.poll())

    def test_survives_a_session_bus_that_is_lost_in_the_midst_of_its_start(self):
        for _ in range(20):
            self.launch()
            self.lose_the_session_bus()
            # Long enough for calls under way to be answered by the loss.
            watch_for(0.5)
            self.assertIsNone(self.glimmet.process.poll())
            self.glimmet.stop()
            self.restore_the_session_bus()

    def test_registers_again_when_the_session_bus_is_back(self):
        self.launch()
        self.lose_the_session_bus()
        self.glimmet.wait_for_strip()
        self.restore_the_session_bus()

        self.start_watcher()

        self.assert_registered()


if __name__ == "__main__":
    unittest.main()
