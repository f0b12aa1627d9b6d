"""The processes of one virtual desktop: started with a common mark, ended together."""

import ctypes
import os
import signal
import subprocess
import time
from contextlib import contextmanager
from pathlib import Path

from gi.repository import GLib

MARK = "GLIMMET_VIRTUAL_DESKTOP"
REQUESTS_TO_END = (signal.SIGINT, signal.SIGTERM, signal.SIGHUP)
PR_SET_PDEATHSIG = 1
_libc = ctypes.CDLL(None, use_errno=True)


class DesktopError(RuntimeError):
    """A part of the desktop did not come up, or a condition never came true."""


def dispatch_events():
    """Delivers what has arrived on the bus connections of this process."""
    context = GLib.MainContext.default()
    while context.iteration(False):
        pass


def wait_for(condition, seconds, what):
    """Returns the first true value of `condition()`; raises DesktopError after `seconds` without one."""
    end = time.monotonic() + seconds
    while True:
        dispatch_events()
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise DesktopError(f"waited {seconds} s in vain for {what}")
        time.sleep(0.01)


def watch_for(seconds, look=lambda: None):
    """Lets the desktop run for a span that is itself what is measured, and calls `look` all the while.

    Returns how many seconds that took, since the last look may have gone on beyond the end."""
    start = time.monotonic()
    while time.monotonic() < start + seconds:
        dispatch_events()
        look()
        time.sleep(0.01)
    dispatch_events()
    return time.monotonic() - start


def _die_with_parent():
    # A parent that is killed outright cannot clean up; its children then end by themselves.
    _libc.prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


@contextmanager
def _requests_to_end_held():
    """Lets what asks this process to end wait for the end of the block; gives the mask of signals of before."""
    before = signal.pthread_sigmask(signal.SIG_BLOCK, REQUESTS_TO_END)
    try:
        yield before
    finally:
        signal.pthread_sigmask(signal.SIG_SETMASK, before)


def _environment_of(pid):
    try:
        return Path(f"/proc/{pid}/environ").read_bytes().split(b"\0")
    except OSError:
        return []


def cpu_times(pids):
    """How many seconds each thread of these processes has run on a processor by now."""
    seconds = {}
    for pid in pids:
        for task in Path(f"/proc/{pid}/task").glob("*"):
            try:
                seconds[task.name] = int((task / "schedstat").read_text().split()[0]) / 1e9
            except OSError:
                pass  # It ended meanwhile.
    return seconds


class Processes:
    """Everything started here, and whatever that starts in turn, carries the mark in its environment. So also
    services that the bus activates, or that detach themselves, are found and ended."""

    def __init__(self, mark, log_folder):
        self._mark = f"{MARK}={mark}".encode()
        self._logs = Path(log_folder)
        self._started = []

    def start(self, name, command, environment, **options):
        """Starts `command`; its output goes to the log named `name` unless `options` say otherwise."""
        log = open(self.log(name), "wb")
        options.setdefault("stdin", subprocess.DEVNULL)
        options.setdefault("stdout", log)
        options.setdefault("stderr", log)
        marked = dict(environment, **dict([self._mark.decode().split("=", 1)]))
        # A process gets its mark only with its program: one that was abandoned before would not be found.
        with log, _requests_to_end_held() as mask:
            def prepare():
                signal.pthread_sigmask(signal.SIG_SETMASK, mask)
                _die_with_parent()

            process = subprocess.Popen(command, env=marked, start_new_session=True, preexec_fn=prepare, **options)
            self._started.append(process)
        return process

    def log(self, name):
        return self._logs / f"{name}.log"

    def running(self):
        """The ids of all processes that carry the mark and are alive."""
        ids = (int(entry) for entry in os.listdir("/proc") if entry.isdigit())
        return [pid for pid in ids if pid != os.getpid() and self._mark in _environment_of(pid)]

    def stop(self, process, seconds=5):
        """Ends one process, first politely, and returns its exit status."""
        if process.poll() is None:
            process.terminate()
        try:
            return process.wait(seconds)
        except subprocess.TimeoutExpired:
            process.kill()
            return process.wait()

    def stop_all(self, seconds=5):
        """Ends every process with the mark; returns when none is left."""
        self._signal_all(signal.SIGTERM)
        try:
            wait_for(self._all_gone, seconds, "the desktop's processes to end")
        except DesktopError:
            self._signal_all(signal.SIGKILL)
            wait_for(self._all_gone, seconds, "killed processes to be gone")

    def _signal_all(self, number):
        # One with privileges of its own shows its environment to nobody.
        started = {process.pid for process in self._started if process.poll() is None}
        for pid in started.union(self.running()):
            try:
                os.kill(pid, number)
            except ProcessLookupError:
                pass

    def _all_gone(self):
        # A process loses its environment a moment before it is gone; those started here are waited for to the end.
        return all(process.poll() is not None for process in self._started) and not self.running()
