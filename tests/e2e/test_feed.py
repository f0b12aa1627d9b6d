"""The feed, read as bars read it."""

import json
import os
import socket
import subprocess
import unittest

from desktop.glimmet import ITEM, ITEM_INTERFACE, NAME, PANEL, STRIP
from desktop.processes import wait_for, watch_for
from desktop.watcher import Watcher
from desktop_case import BINARY, DesktopCase
from running_feed import FEED, NAME as FEED_NAME, Feed

# A program that prints a status line, and then keeps what it is told of clicks.
STATUS = r"""
printf '{"version":1,"click_events":true}\n[\n[{"name":"load","full_text":"0.5"}]\n'
while read -r line; do printf '%s\n' "$line" >>"$1"; done
exec sleep 60
"""
BLOCK = {"name": "load", "full_text": "0.5"}


def is_text(line):
    return line != ""


def is_empty(line):
    return line == ""


class FeedCase(DesktopCase):
    def feed(self, *arguments, **options):
        feed = Feed(self.desktop, *arguments, **options)
        self.addCleanup(feed.stop)
        return feed

    def lose_the_session_bus(self):
        self.desktop.stop_session_bus()
        self.addCleanup(lambda: self.desktop.has_session_bus() or self.desktop.start_session_bus())

    def once(self, *arguments):
        return subprocess.run([FEED, *arguments], env=self.desktop.environment, capture_output=True, text=True,
                              timeout=20)


class Following(FeedCase):
    def test_prints_the_text_at_once_and_then_a_line_for_each_change(self):
        self.launch()

        feed = self.feed()

        lines = feed.wait_for_lines(4)
        wait_for(lambda: set(lines[1:]) <= {label for _, label in self.glimmet.labels}, 5, "the same labels")
        self.assertEqual(len(set(lines)), len(lines))

    def test_takes_the_place_of_the_strip(self):
        self.launch().wait_for_strip()

        feed = self.feed()
        self.screen.wait_until_gone(STRIP)
        feed.stop()

        self.glimmet.wait_for_strip()

    def test_prints_nothing_before_glimmet_is_there(self):
        feed = self.feed()
        wait_for(lambda: self.desktop.bus.owner(FEED_NAME), 10, "the feed on the bus")
        watch_for(1)
        self.assertEqual(feed.lines, [])

        self.launch()

        feed.wait_for_lines(2)

    def test_empties_the_line_when_glimmet_has_gone_and_fills_it_again(self):
        self.launch()
        feed = self.feed()
        feed.wait_for_line(is_text)

        self.glimmet.stop()
        feed.wait_for_line(is_empty)
        before = len(feed.lines)
        self.launch()

        self.assertTrue(all(feed.wait_for_lines(before + 2)[before:]))

    def test_follows_a_glimmet_that_takes_the_place_of_a_crashed_one(self):
        self.launch()
        feed = self.feed()
        feed.wait_for_line(is_text)
        for _ in range(3):
            self.glimmet.process.kill()
            self.glimmet.stop()
            self.launch()
            before = len(feed.lines)
            feed.wait_for_lines(before + 2)

        self.assertIsNone(feed.process.poll())

    def test_survives_the_loss_of_the_session_bus(self):
        self.launch()
        feed = self.feed()
        feed.wait_for_line(is_text)

        self.lose_the_session_bus()
        feed.wait_for_line(is_empty)
        self.assertIsNone(feed.process.poll())
        before = len(feed.lines)
        self.desktop.start_session_bus()

        self.assertTrue(all(feed.wait_for_lines(before + 2, 30)[before:]))

    def test_waits_for_a_session_bus(self):
        self.lose_the_session_bus()
        feed = self.feed()
        watch_for(1)
        self.assertIsNone(feed.process.poll())

        self.desktop.start_session_bus()
        self.launch()

        feed.wait_for_line(is_text)

    def test_tells_waybar_of_a_text_and_of_none(self):
        self.launch()
        feed = self.feed("--waybar")

        self.assertEqual(json.loads(feed.wait_for_line(is_text))["class"], "running")
        self.glimmet.stop()

        gone = json.loads(feed.wait_for_line(lambda line: '"absent"' in line))
        self.assertEqual(gone, {"text": "", "tooltip": "", "class": "absent"})


class Reader(FeedCase):
    """Whoever reads it, and goes."""

    def test_ends_when_its_reader_goes(self):
        self.launch()
        feed = self.feed()
        feed.wait_for_line(is_text)

        feed.leave()

        self.assertEqual(feed.wait(), 0)

    def test_ends_so_also_where_no_text_comes_any_more(self):
        feed = self.feed()
        wait_for(lambda: self.desktop.bus.owner(FEED_NAME), 10, "the feed on the bus")

        feed.leave()

        self.assertEqual(feed.wait(), 0)

    def test_ends_so_also_where_a_broken_pipe_is_ignored(self):
        self.launch()
        feed = self.feed(restore_signals=False)  # Python itself ignores it.
        feed.wait_for_line(is_text)

        feed.leave()

        self.assertEqual(feed.wait(), 0)

    def test_ends_when_the_other_end_of_a_socket_goes(self):
        ours, its = socket.socketpair()
        feed = self.feed(stdout=its)
        its.close()
        wait_for(lambda: self.desktop.bus.owner(FEED_NAME), 10, "the feed on the bus")

        ours.close()

        self.assertEqual(feed.wait(), 0)

    def test_ends_so_also_where_nobody_ever_read_it(self):
        read, write = os.pipe()
        os.close(read)

        # Connected to a bus, it would ignore a broken pipe anyhow.
        feed = self.feed("--i3bar", stdout=write, environment={"DBUS_SESSION_BUS_ADDRESS": "", "XDG_RUNTIME_DIR": ""})
        os.close(write)

        self.assertEqual(feed.wait(), 0)

    def test_tells_why_it_ends_where_nothing_can_be_written(self):
        self.launch()
        with open("/dev/full", "wb") as full:
            feed = self.feed(stdout=full)

        self.assertEqual(feed.wait(), 1)
        self.assertEqual(feed.errors(), "glimmet-feed: standard output: No space left on device\n")

    def test_keeps_nothing_old_for_a_reader_that_is_slow(self):
        self.launch()
        read, write = os.pipe()
        self.addCleanup(os.close, read)
        os.set_blocking(write, False)
        filled = 0
        while filled % 4096 == 0:
            try:
                filled += os.write(write, b"x" * 4096)
            except BlockingIOError:
                break
        os.set_blocking(write, True)
        self.feed(stdout=write)
        os.close(write)
        wait_for(lambda: self.desktop.bus.owner(FEED_NAME), 10, "the feed on the bus")
        start = len(self.glimmet.labels)
        wait_for(lambda: len(self.glimmet.labels) >= start + 4, 15, "four labels that nobody reads")

        got = b""
        while not got.endswith(b"\n"):
            got += os.read(read, 4096)

        lines = got[filled:].decode().splitlines()
        # The text may change once more while the last one is read.
        self.assertLessEqual(len(lines), 2)
        self.assertLessEqual(set(lines), {label for _, label in self.glimmet.labels[-3:]})


class I3bar(FeedCase):
    def last(self, feed):
        """The blocks of the last status line."""
        return json.loads(feed.lines[-1].lstrip(","))

    def wait_for_blocks(self, feed, wanted):
        feed.wait_for_line(lambda line: line.startswith(",") and wanted(json.loads(line[1:])))

    def test_prints_an_array_that_a_parser_can_read(self):
        self.launch()
        feed = self.feed("--i3bar")

        lines = feed.wait_for_lines(6)

        self.assertTrue(json.loads(lines[0])["click_events"])
        blocks = json.loads("".join(lines[1:]) + "]")
        self.assertEqual(blocks[0], [])
        self.assertEqual({(block["name"], bool(block["full_text"])) for line in blocks[1:] for block in line},
                         {("glimmet", True)})

    def test_opens_the_panel_by_a_click(self):
        self.launch()
        feed = self.feed("--i3bar")
        feed.wait_for_lines(4)

        feed.say('[\n{"name":"load","button":1}\n,{"name":"glimmet","button":4}\n')
        watch_for(1)
        self.assertFalse(self.glimmet.is_panel_open())
        feed.say(',{"name":"glimmet","button":1,"modifiers":[],"x":1200,"y":790}\n')

        self.screen.wait_for_window(PANEL)

    def test_puts_the_text_before_what_a_command_prints(self):
        feed = self.feed("--i3bar", "--", "sh", "-c", STATUS, "status", str(self.desktop.home / "clicks"))
        self.wait_for_blocks(feed, lambda blocks: blocks == [BLOCK])

        self.launch()
        self.wait_for_blocks(feed, lambda blocks: len(blocks) == 2 and blocks[1] == BLOCK)
        self.assertEqual(self.last(feed)[0]["name"], "glimmet")
        self.glimmet.stop()

        wait_for(lambda: self.last(feed) == [BLOCK], 10, "the command's blocks alone")

    def test_passes_clicks_on_other_blocks_on(self):
        clicks = self.desktop.home / "clicks"
        clicks.unlink(missing_ok=True)
        feed = self.feed("--i3bar", "--", "sh", "-c", STATUS, "status", str(clicks))
        self.wait_for_blocks(feed, lambda blocks: blocks == [BLOCK])

        feed.say('[\n{"name":"glimmet","button":1}\n,{"name":"load","button":3}\n,{"name":"load","button":1}\n')

        wait_for(lambda: clicks.exists() and len(clicks.read_text().splitlines()) == 3, 10, "two clicks")
        self.assertEqual(json.loads(clicks.read_text() + "]"),
                         [{"name": "load", "button": 3}, {"name": "load", "button": 1}])

    def test_ends_with_its_command_and_as_that_does(self):
        for command, status in (("exit 3", 3), ("kill -9 $$", 137)):
            feed = self.feed("--i3bar", "--", "sh", "-c", command)
            self.assertEqual(feed.wait(), status)

    def test_tells_of_a_command_that_is_none(self):
        feed = self.feed("--i3bar", "--", "no-such-status")

        self.assertEqual(feed.wait(), 127)
        self.assertIn("no-such-status", feed.errors())

    def test_takes_plain_lines_from_a_command_as_i3bar_does(self):
        feed = self.feed("--i3bar", "--", "sh", "-c", "echo 'up \"5\" days'; exec sleep 60")

        self.wait_for_blocks(feed, lambda blocks: blocks == [{"full_text": 'up "5" days'}])

    def test_tells_of_a_command_that_breaks_off_the_protocol(self):
        feed = self.feed("--i3bar", "--", "sh", "-c", "echo '{}[oops'; exec sleep 60")

        self.assertEqual(feed.wait(), 1)
        self.assertEqual(feed.errors(), "glimmet-feed: the command breaks i3bar's protocol\n")

    def test_ends_its_command_when_its_reader_goes(self):
        feed = self.feed("--i3bar", "--", "sh", "-c", "printf '{}[[]'; echo $$ >&2; exec sleep 60")
        command = int(wait_for(feed.errors, 10, "the command"))

        feed.leave()

        self.assertEqual(feed.wait(), 0)
        wait_for(lambda: not os.path.exists(f"/proc/{command}"), 10, "the command to end")

    def test_gives_a_command_the_signals_as_they_are_by_default(self):
        script = "printf '{}[[]'; grep SigIgn /proc/self/status >&2; exec sleep 60"
        feed = self.feed("--i3bar", "--", "sh", "-c", script)

        ignored = wait_for(lambda: feed.errors().strip(), 10, "the ignored signals")

        self.assertEqual(int(ignored.split()[1], 16), 0)


class OneAnswer(FeedCase):
    def test_prints_the_text_once(self):
        self.launch()

        result = self.once("--once")

        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertIn(result.stdout.strip(), [self.glimmet.label, *(label for _, label in self.glimmet.labels)])

    def test_opens_the_panel_at_the_pointer_and_closes_it(self):
        self.launch()
        self.feed()
        wait_for(lambda: "shown as a feed" in self.glimmet.output(), 15, "the feed to be the place of the text")
        self.screen.move(700, 4)

        self.assertEqual(self.once("--activate").returncode, 0)
        panel = self.glimmet.wait_for_panel()
        self.assertLess(abs(panel.middle[0] - 700), 4, panel)
        self.assertEqual(self.once("--activate").returncode, 0)

        self.screen.wait_until_gone(PANEL)

    def test_tells_where_glimmet_does_not_run(self):
        for argument in ("--once", "--activate"):
            result = self.once(argument)
            self.assertEqual((result.returncode, result.stdout, result.stderr),
                             (1, "", "glimmet-feed: glimmet does not run\n"), argument)

    def test_leaves_the_generic_monitor_empty_where_glimmet_does_not_run(self):
        result = self.once("--genmon")

        # It would show what is said on standard error.
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertTrue(result.stdout.startswith("<txt></txt>"))

    def test_tells_what_it_does_not_know(self):
        result = self.once("--sideways")

        self.assertEqual((result.returncode, result.stdout), (2, ""))
        self.assertTrue(result.stderr.startswith("glimmet-feed: unknown argument '--sideways'\nUsage: "))

    def test_tells_how_it_is_used_and_which_version_it_is(self):
        self.assertTrue(self.once("--help").stdout.startswith("Usage: glimmet-feed "))
        version = subprocess.run([BINARY, "--version"], capture_output=True, text=True, timeout=20).stdout.split()[1]
        self.assertEqual(self.once("--version").stdout, f"glimmet-feed {version}\n")

    def test_is_no_feed_on_the_bus(self):
        self.launch()
        owners = []
        self.addCleanup(self.desktop.bus.follow("org.freedesktop.DBus", "org.freedesktop.DBus", "NameOwnerChanged",
                                                lambda name, *_: owners.append(name)))

        self.once("--once")
        self.feed()
        wait_for(lambda: FEED_NAME in owners, 10, "a feed on the bus")

        self.assertEqual(owners.count(FEED_NAME), 1)


class Item(FeedCase):
    """glimmet's item in a bar that would show its text painted."""

    def pictures(self):
        return len(self.desktop.bus.get(NAME, ITEM, ITEM_INTERFACE, "IconPixmap"))

    def test_shows_no_text_while_a_feed_is_read(self):
        watcher = Watcher(self.desktop).start()
        self.addCleanup(watcher.kill)
        self.launch({"XDG_CURRENT_DESKTOP": "X-Cinnamon"})
        wait_for(lambda: self.pictures() == 4, 10, "the text painted")

        first, second = self.feed(), self.feed()
        wait_for(lambda: self.pictures() == 3, 10, "the icon alone")
        second.wait_for_line(is_text)
        first.leave()
        first.wait()
        watch_for(1)
        self.assertEqual(self.pictures(), 3)
        second.leave()

        wait_for(lambda: self.pictures() == 4, 10, "the text painted again")


del FeedCase

if __name__ == "__main__":
    unittest.main()
