"""What a crash of the program leaves behind: no key, also where dumps of memory are asked for."""

import mmap
import os
import resource
import signal
import tempfile
import unittest
from pathlib import Path

from desktop import own_namespaces
from desktop.processes import wait_for
from desktop.revenue_server import POLAR
from revenue_case import RevenueCase

reason_to_skip = own_namespaces.reason_to_skip
PATTERN = Path("/proc/sys/kernel/core_pattern")
# Without it a dump has what dumps usually have: all memory that is the process's own.
USUAL = "0x33"


def are_dumps_files():
    """Whether this system writes them into the folder that the program was started in. AddressSanitizer has crashes end
    otherwise."""
    return PATTERN.read_text()[0] not in "|/" and "ASAN_OPTIONS" not in os.environ


def holds(path, text):
    """Whether the file has the text in it, as UTF-8 or as Qt has texts in memory."""
    with open(path, "rb") as file, mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ) as content:
        return content.find(text.encode()) >= 0 or content.find(text.encode("utf-16-le")) >= 0


class Dumps(RevenueCase):
    def begin_with_dumps_of_any_size(self):
        """Returns once the program has read the key and used it."""
        self.folder = Path(tempfile.mkdtemp(dir=self.desktop.folder))
        self.keyring.put({POLAR.account: POLAR.key})
        self.launch(wrapper=["env", f"--chdir={self.folder}"])
        wait_for(lambda: self.server.asked(POLAR), 15, "the request of the start")
        hard = resource.prlimit(self.glimmet.process.pid, resource.RLIMIT_CORE)[1]
        resource.prlimit(self.glimmet.process.pid, resource.RLIMIT_CORE, (hard, hard))

    def filter(self):
        return Path(f"/proc/{self.glimmet.process.pid}/coredump_filter")

    def crash(self, number):
        """Returns the dump, or None where there is none."""
        self.glimmet.process.send_signal(number)
        self.assertEqual(wait_for(lambda: self.glimmet.process.poll(), 60, "the crash"), -number)
        return next(self.folder.glob("core*"), None)

    def test_leaves_all_memory_out(self):
        self.begin_with_dumps_of_any_size()

        self.assertEqual(int(self.filter().read_text(), 16), 0)

    @unittest.skipUnless(are_dumps_files(), "dumps do not become files of the test's here")
    def test_has_no_key_in_the_dump_of_a_crash(self):
        for number in (signal.SIGABRT, signal.SIGSEGV):
            with self.subTest(number.name):
                self.begin_with_dumps_of_any_size()

                dump = self.crash(number)

                self.assertFalse(dump and holds(dump, POLAR.key), dump)

    @unittest.skipUnless(are_dumps_files(), "dumps do not become files of the test's here")
    def test_would_have_it_there_with_all_its_memory(self):
        self.begin_with_dumps_of_any_size()
        self.filter().write_text(USUAL)

        self.assertTrue(holds(self.crash(signal.SIGABRT), POLAR.key))


if __name__ == "__main__":
    unittest.main()
