#!/usr/bin/python3
"""Runs a command as root with its own mounts, processes and host name, all of which end with it.

What asks this process to end is handed to the first process in there: unshare itself takes no such signal."""

import signal
import subprocess
import sys
from pathlib import Path


def main(*command):
    unshare = subprocess.Popen(
        ["setpriv", "--pdeathsig", "KILL",
         "unshare", "--mount", "--pid", "--uts", "--ipc", "--fork", "--kill-child=TERM", "--mount-proc",
         "tini", "--", *command],
        # Away from a terminal's own signals, which would come twice.
        start_new_session=True)
    first_process = Path(f"/proc/{unshare.pid}/task/{unshare.pid}/children")

    def hand_on(number, _frame):
        try:
            inside = first_process.read_text().split()
        except OSError:
            return  # All have ended by themselves.
        if inside:
            subprocess.run(["kill", f"-{number}", *inside], check=False)
        else:
            unshare.kill()

    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, hand_on)
    status = unshare.wait()
    return status if status >= 0 else 128 - status


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
