"""The folder of the settings lies on a disk that is full, and what is chosen meanwhile is not lost."""

import errno
import json
import os
import unittest

from desktop import own_namespaces
from desktop.processes import wait_for
from desktop_case import DesktopCase

reason_to_skip = own_namespaces.reason_to_skip
# Mounts a small disk that only the program sees, and starts the program there.
MOUNT = 'mount -t tmpfs -o size=256k none "$1" && '
FILL = '{ head -c 1M /dev/zero >"$1/fill" 2>"$1/../full"; test -s "$1/../full"; } && '
START = 'shift && exec "$@"'
QUOTES = "me.kerno.glimmet.quotes"
FILE = "me.kerno.glimmet/preferences.json"
BEGUN = "[glimmet] settings: not saved yet, trying again"
OVER = "[glimmet] settings: nothing left to save"
LOST = "[glimmet] settings: could not be saved"


class FullDisk(DesktopCase):
    def launch_on_disk(self, *preparation):
        folder = self.desktop.folder / "disk"
        folder.mkdir(exist_ok=True)
        own_disk = [*own_namespaces.inside_own(own_namespaces.NETWORK_AND_MOUNTS), "sh", "-c",
                    "".join((MOUNT, *preparation, START)), "sh", str(folder)]
        self.launch({"XDG_CONFIG_HOME": str(folder)}, network=own_disk).ask_for_panel()
        # The program's disk is gone with the program, unless something still has a hold of it.
        self.disk = os.open(f"/proc/{self.glimmet.process.pid}/root{folder}", os.O_RDONLY | os.O_DIRECTORY)
        self.addCleanup(os.close, self.disk)

    def open_on_disk(self, path, flags):
        return os.open(path, flags, 0o600, dir_fd=self.disk)

    def fill_disk(self):
        with open("fill", "wb", buffering=0, opener=self.open_on_disk) as fill, self.assertRaises(OSError) as full:
            while True:
                fill.write(b"x" * 4096)
        self.assertEqual(full.exception.errno, errno.ENOSPC)

    def make_room(self):
        os.unlink("fill", dir_fd=self.disk)

    def stored(self):
        with open(FILE, encoding="utf-8", opener=self.open_on_disk) as file:
            return json.load(file)

    def add_quote(self, quote):
        self.glimmet.choose_mode("Quote")
        self.glimmet.control("New quote", "text", "entry").write(quote)
        self.glimmet.control("Add", "push button").press()
        self.glimmet.control(f"Remove {quote}")

    def said(self):
        return [line for line in self.glimmet.output().splitlines() if "settings: " in line]

    def wait_until_said(self, *lines):
        wait_for(lambda: self.said() == [*lines], 30, f"{lines} on standard output")

    def add_quote_without_room(self):
        self.launch_on_disk()
        self.fill_disk()
        self.add_quote("measure twice")
        self.wait_until_said(BEGUN)
        self.assertNotIn(QUOTES, self.stored())

    def end(self):
        self.assertEqual(self.glimmet.stop(), 0)

    def test_a_quote_is_saved_once_there_is_room_again(self):
        self.add_quote_without_room()

        self.make_room()

        self.wait_until_said(BEGUN, OVER)
        self.assertEqual(self.stored()[QUOTES], ["measure twice"])
        self.end()
        self.assertEqual(self.said(), [BEGUN, OVER])
        self.assertEqual(self.stored()[QUOTES], ["measure twice"])

    def test_a_quote_is_saved_at_the_end_where_there_was_no_room_before(self):
        self.add_quote_without_room()

        self.make_room()
        self.end()

        self.assertEqual(self.said(), [BEGUN, OVER])
        self.assertEqual(self.stored()[QUOTES], ["measure twice"])

    def test_all_quotes_are_saved_with_one_for_which_there_is_room(self):
        self.add_quote_without_room()
        self.make_room()

        self.add_quote("cut once")

        self.wait_until_said(BEGUN, OVER)
        self.assertEqual(self.stored()[QUOTES], ["measure twice", "cut once"])

    def test_a_quote_for_which_there_never_is_room_is_told_of_at_the_end(self):
        self.add_quote_without_room()
        before = self.stored()

        self.end()

        self.assertEqual(self.said(), [BEGUN, LOST])
        self.assertEqual(self.stored(), before)

    def test_a_first_start_without_room_saves_all_once_there_is_some(self):
        self.launch_on_disk(FILL)
        self.wait_until_said(BEGUN)
        self.add_quote("measure twice")
        self.assertEqual(self.said(), [BEGUN])

        self.make_room()

        self.wait_until_said(BEGUN, OVER)
        self.assertEqual(self.stored(), {QUOTES: ["measure twice"], "glimmet.cryptoSymbols": ["BTC-USD", "ETH-USD"]})


if __name__ == "__main__":
    unittest.main()
