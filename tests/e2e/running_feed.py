"""One run of the feed in a virtual desktop, and what it prints."""

import os
import subprocess

from desktop.processes import wait_for
from desktop_case import BINARY

FEED = str(BINARY.with_name("glimmet-feed"))
# The name that glimmet watches for.
NAME = "me.kerno.glimmet.Feed"


class Feed:
    def __init__(self, desktop, *arguments, **options):
        """`options` are those of a process; its standard input is a pipe unless they say otherwise."""
        options = {"stdin": subprocess.PIPE, "stdout": subprocess.PIPE} | options
        self._desktop = desktop
        self._read = b""
        self.process = desktop.start("feed", [FEED, *arguments], **options)
        if self.process.stdout:
            os.set_blocking(self.process.stdout.fileno(), False)

    @property
    def lines(self):
        """All lines that it has printed by now."""
        self._read += self.process.stdout.read() or b""
        return self._read.decode().split("\n")[:-1]

    def wait_for_lines(self, count, seconds=15):
        wait_for(lambda: len(self.lines) >= count, seconds, f"{count} lines")
        return self.lines

    def wait_for_line(self, wanted, seconds=15):
        """Returns the first line for which `wanted(line)` holds."""
        wait_for(lambda: any(map(wanted, self.lines)), seconds, "the awaited line")
        return next(filter(wanted, self.lines))

    def say(self, text):
        self.process.stdin.write(text.encode())
        self.process.stdin.flush()

    def leave(self):
        """Closes the end that reads it, as a bar that ends does."""
        self.process.stdout.close()

    def wait(self, seconds=10):
        """The exit status once it has ended."""
        return self.process.wait(seconds)

    def errors(self):
        return self._desktop.log("feed")

    def stop(self):
        self._desktop.stop(self.process)
        for end in (self.process.stdin, self.process.stdout):
            if end:
                end.close()
