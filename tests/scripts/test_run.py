"""scripts/run as a new user meets it on a machine without a screen: it sets up, builds, shows glimmet and ends."""

import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
KIND = os.environ.get("GLIMMET_DESKTOP", "strip")
# On two busy cores the packages and the build may take that long.
WHOLE_SETUP = 1500  # seconds
CLOCK = re.compile(r"^\d\d:\d\d:\d\d$")
PICTURE = re.compile(r"^Screenshot: (\S+)$")


def processes_of(folder):
    """Who runs with this folder in its environment, as everything of a virtual desktop does that was made in it."""
    found = {}
    for entry in Path("/proc").glob("[0-9]*"):
        try:
            if os.fsencode(folder) in (entry / "environ").read_bytes():
                found[int(entry.name)] = (entry / "cmdline").read_bytes().replace(b"\0", b" ").decode(errors="replace")
        except OSError:
            pass  # It ended meanwhile.
    return found


class Run:
    """One start of scripts/run in a process group of its own, as a terminal gives it one. `session` is the
    environment of a desktop that it is started in, if there is one; `reader` a pipe for what it prints."""

    def __init__(self, folder, *arguments, session=(), reader=None):
        environment = {name: value for name, value in os.environ.items()
                       if name not in ("DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS")}
        environment |= dict(session)
        environment["TMPDIR"] = str(folder)
        self._said = tempfile.NamedTemporaryFile("w+", errors="replace")
        self._process = subprocess.Popen([ROOT / "scripts" / "run", *arguments], env=environment, cwd="/",
                                         stdin=subprocess.DEVNULL, stdout=self._said if reader is None else reader,
                                         stderr=self._said,
                                         start_new_session=True)

    def said(self):
        return Path(self._said.name).read_text(errors="replace").splitlines()

    def find(self, pattern):
        return [match for match in map(pattern.match, self.said()) if match]

    def wait_for(self, condition, what, seconds=WHOLE_SETUP):
        end = time.monotonic() + seconds
        while not condition():
            if self._process.poll() is not None or time.monotonic() > end:
                raise AssertionError("\n".join([f"no {what}; scripts/run said:", *self.said()[-40:]]))
            time.sleep(0.05)

    def end(self, seconds):
        """Waits until it ends by itself and returns the exit status."""
        return self._process.wait(seconds)

    def interrupt(self):
        """Presses Ctrl-C and returns the exit status."""
        os.killpg(self._process.pid, signal.SIGINT)
        return self._process.wait(30)

    def close(self):
        if self._process.poll() is None:
            os.killpg(self._process.pid, signal.SIGKILL)
            self._process.wait()
        self._said.close()


class RunOnAVirtualScreen(unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def clear_pictures(self):
        """Those of the last test that makes any stay, for people to look at."""
        shutil.rmtree(ROOT / "out" / "screenshots", ignore_errors=True)

    def start(self, **options):
        chosen = [] if KIND == "strip" else ["--desktop", KIND]
        run = Run(self.folder, *chosen, **options)
        self.addCleanup(run.close)
        return run

    def assert_nothing_is_left(self):
        self.assertEqual(processes_of(self.folder), {})
        self.assertEqual(list(self.folder.iterdir()), [])

    def test_showsPicturesAndTheTextEachSecondUntilItIsInterrupted(self):
        self.clear_pictures()
        run = self.start()

        run.wait_for(lambda: len(run.find(PICTURE)) == 2, "two pictures")
        run.wait_for(lambda: len(run.find(CLOCK)) >= 3, "three lines of text", 30)
        status = run.interrupt()

        self.assertEqual(status, 0, run.said())
        for match in run.find(PICTURE):
            self.assert_shows_something(ROOT / match[1])
        texts = [match[0] for match in run.find(CLOCK)]
        self.assertEqual(len(texts), len(set(texts)), "each text once")
        self.assertNotIn("Traceback", "\n".join(run.said()))
        self.assert_nothing_is_left()

    def assert_shows_something(self, picture):
        """More colours than a bar without text or a panel that was never painted."""
        colours = subprocess.run(["identify", "-format", "%k", picture], check=True, capture_output=True, text=True)
        self.assertGreater(int(colours.stdout), 20, picture)

    def test_endsQuietlyWhereItIsInterruptedWhileTheDesktopStarts(self):
        run = self.start()
        run.wait_for(lambda: any(line.startswith("Starting glimmet") for line in run.said()), "start")

        status = run.interrupt()

        self.assertEqual(status, 0, run.said())
        self.assertNotIn("Traceback", "\n".join(run.said()))
        self.assert_nothing_is_left()

    def test_endsQuietlyOnceItsReaderHasSeenEnough(self):
        read, write = os.pipe()
        run = self.start(reader=write)
        os.close(write)
        with open(read, "rb") as printed:
            # The lines of the build, if there was anything to build, come before the pictures.
            self.assertTrue(any(line.startswith(b"Screenshot: ") for line in printed))

        self.assertEqual(run.end(60), 0, run.said())
        self.assertNotIn("BrokenPipe", "\n".join(run.said()))
        self.assert_nothing_is_left()

    def test_saysInOneLineThatItCannotKeepItsPictures(self):
        self.clear_pictures()
        # A file where the folder should be. `out` itself may hold what others made.
        (ROOT / "out").mkdir(exist_ok=True)
        (ROOT / "out" / "screenshots").touch()
        self.addCleanup((ROOT / "out" / "screenshots").unlink)
        run = self.start()

        status = run.end(WHOLE_SETUP)

        self.assertEqual(status, 1, run.said())
        self.assertIn("out/screenshots", run.said()[-1])
        self.assertTrue(run.said()[-1].startswith("scripts/run: "), run.said())
        self.assertNotIn("Traceback", "\n".join(run.said()))
        self.assert_nothing_is_left()

    def test_showsTheProgramOnTheScreenThatThereIs(self):
        subprocess.run([ROOT / "scripts" / "setup", "screen"], check=True)
        from desktop.virtual_desktop import VirtualDesktop  # Needs what was just set up.

        with VirtualDesktop("strip") as desktop:
            run = Run(self.folder, session=desktop.environment)
            self.addCleanup(run.close)

            run.wait_for(lambda: desktop.screen.windows("glimmet strip"), "text on the screen")
            status = run.interrupt()

        self.assertEqual(status, 0, run.said())
        self.assertEqual(run.find(PICTURE), [])

    def test_refusesADesktopThatItDoesNotKnow(self):
        result = subprocess.run([ROOT / "scripts" / "run", "--desktop", "nonsense"], capture_output=True, text=True)

        self.assertEqual(result.returncode, 2)
        self.assertIn("Usage: scripts/run", result.stderr)
