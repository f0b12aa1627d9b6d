"""The clocks of a program, moved by a test as the user sets them, and as sleep does."""

import mmap
import os
import struct
from pathlib import Path

LIBRARY = Path(os.environ["GLIMMET_MOVED_CLOCKS"]).resolve(strict=True)
SECOND = 1_000_000_000
# See moved_clocks.cpp: the time of day, and the time since the machine's start.
MOVES = struct.Struct("=qq")


class MovedClocks:
    """What they say is right until they are moved. `environment` is the program's."""

    def __init__(self, path):
        path.write_bytes(MOVES.pack(0, 0))
        with path.open("r+b") as file:
            self._memory = mmap.mmap(file.fileno(), MOVES.size)
        # The program's libraries need not be the first where it is built with sanitizers.
        sanitizer = os.pathsep.join(filter(None, [os.environ.get("ASAN_OPTIONS"), "verify_asan_link_order=0"]))
        self.environment = {"LD_PRELOAD": str(LIBRARY), "MOVED_CLOCKS": str(path), "ASAN_OPTIONS": sanitizer}

    def set_time_of_day(self, seconds):
        """Puts the time of day forward by so much, or back by less than none."""
        self._move(seconds, 0)

    def sleep(self, seconds):
        """The machine has slept: the time of day went on, and so did what counts sleep; nothing else did."""
        self._move(seconds, seconds)

    def _move(self, *seconds):
        before = MOVES.unpack_from(self._memory)
        MOVES.pack_into(self._memory, 0, *(old + int(by * SECOND) for old, by in zip(before, seconds, strict=True)))
