"""Starts a program as a login does: by an entry in the autostart folder, of which the user's service manager makes a
service. Run by root in place of the program's command, with mounts of its own; asked to end, it ends the session first.

What the program writes goes to a journal, whose files are in the folder of that name below the runtime folder."""

import ctypes
import os
import shutil
import signal
import subprocess
import sys
from pathlib import Path

from desktop.processes import wait_for

SYSTEMD = Path("/usr/lib/systemd")
# Of the machine's units only those that bring no program.
UNITS = ("basic.target", "exit.target", "paths.target", "shutdown.target", "sockets.target", "systemd-exit.service",
         "timers.target", "xdg-desktop-autostart.target")
SESSION = "[Unit]\nRequires=basic.target\nWants=xdg-desktop-autostart.target\n"
ENTRY = '[Desktop Entry]\nType=Application\nName=Program\nExec="{}"\n'
# Where the control groups are to be seen from outside.
OUTSIDE = Path("/mnt")
CLONE_NEWCGROUP = 0x02000000


def mount(*arguments):
    subprocess.run(["mount", *arguments], check=True)


def enter_own_control_group():
    """A service manager takes the group that it is started in for the root of its own; others are not to be in it."""
    mount("-t", "cgroup2", "none", str(OUTSIDE))
    lines = Path("/proc/self/cgroup").read_text().splitlines()
    above = next(line.removeprefix("0::/") for line in lines if line.startswith("0::"))
    own = OUTSIDE / above / f"glimmet-at-login-{os.getpid()}"
    own.mkdir()
    enter(own)
    if ctypes.CDLL(None).unshare(CLONE_NEWCGROUP) != 0:
        sys.exit("no control groups of its own")
    mount("-t", "cgroup2", "none", "/sys/fs/cgroup")
    return own


def enter(group):
    (group / "cgroup.procs").write_text(str(os.getpid()))


def remove(group):
    enter(group.parent)
    for folder, _, _ in os.walk(group, topdown=False):
        os.rmdir(folder)


def start_journal(runtime):
    """A journal of its own, which takes nothing of the machine's kernel."""
    mount("-t", "tmpfs", "-o", "mode=755", "none", "/run")
    mount("--bind", "/dev/null", "/dev/kmsg")
    for folder in (runtime / "journal", Path("/run/log/journal"), Path("/run/systemd/system")):
        folder.mkdir(parents=True)
    mount("--bind", str(runtime / "journal"), "/run/log/journal")
    journal = subprocess.Popen([SYSTEMD / "systemd-journald"])
    wait_for(Path("/run/systemd/journal/stdout").exists, 15, "the journal")
    return journal


def write_units(folder):
    folder.mkdir()
    for name in UNITS:
        shutil.copy(SYSTEMD / "user" / name, folder)
    (folder / "session.target").write_text(SESSION)


def write_entry(program):
    folder = Path(os.environ["XDG_CONFIG_HOME"], "autostart")
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "program.desktop").write_text(ENTRY.format(program))


def start_manager(runtime):
    """Its runtime folder is its own: it would take the desktop's bus for one that it is to listen at."""
    own = runtime / "manager"
    own.mkdir(mode=0o700)
    write_units(own / "units")
    environment = os.environ | {"XDG_RUNTIME_DIR": str(own),
                                "SYSTEMD_UNIT_PATH": f"{own}/units:{own}/systemd/generator.late"}
    return subprocess.Popen([SYSTEMD / "systemd", "--user", "--unit=session.target"], env=environment)


def main(program):
    runtime = Path(os.environ["XDG_RUNTIME_DIR"])
    group = enter_own_control_group()
    journal = start_journal(runtime)
    write_entry(program)
    manager = start_manager(runtime)
    # At that it ends its services, and then itself.
    signal.signal(signal.SIGTERM, lambda *_: manager.terminate())
    status = manager.wait()
    journal.terminate()
    journal.wait()
    remove(group)
    return status


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
