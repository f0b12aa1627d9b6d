"""One command in a clean system; scripts/clean-room starts this."""

import argparse
import os
import shutil
import signal
import subprocess
import sys
from pathlib import Path

from rooms.clean_room import HOME, PERSON, USER, Room, chosen_release, run_quietly


def tell(line):
    print(line, file=sys.stderr, flush=True)


def passed_on(process):
    """Hands what asks this process to end to all that the command has started."""
    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, lambda got, _frame: os.killpg(process.pid, got))


def clone(room, source, place, owner):
    run_quietly("git", "clone", "--quiet", str(source), str(room.path(place)))
    source.unlink()
    room.run("chown", "-R", owner, place)


def keep_output(room, place, folder, owner):
    """Copies what the command left in out/ to this machine."""
    left = room.path(f"{place}/out")
    shutil.rmtree(folder, ignore_errors=True)
    if left.is_dir():
        shutil.copytree(left, folder, symlinks=True)
        run_quietly("chown", "-R", owner, str(folder.parent))
        tell(f"What it left in out/ is in {folder}")


def run_in(room, options, place):
    user = USER if options.who == "user" else None
    terminal = {"TERM": os.environ["TERM"]} if "TERM" in os.environ else {}
    names = {"USER": PERSON if user else "root", "LANG": "C.UTF-8"}
    line, variables = room.command(*options.command, user=user, environment=names | terminal, folder=place)
    # As at a login: what is to be asked is asked by the tools themselves, which find nobody.
    for name in ("LC_ALL", "DEBIAN_FRONTEND"):
        del variables[name]
    process = subprocess.Popen(line, env=variables, stdin=subprocess.DEVNULL, start_new_session=True)
    passed_on(process)
    status = process.wait()
    return status if status >= 0 else 128 - status


def ask_to_end(*_):
    sys.exit(143)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--release", required=True, help="empty for this machine's own")
    parser.add_argument("--who", choices=("root", "user"), required=True)
    for name in ("source", "cache", "pictures"):
        parser.add_argument(f"--{name}", type=Path, required=True)
    parser.add_argument("--owner", required=True, help="whose the pictures are: user and group")
    parser.add_argument("command", nargs="+")
    options = parser.parse_args()
    os.umask(0o022)
    for number in (signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, ask_to_end)
    # A shell starts what runs in the background with interrupts ignored, and so would the command.
    signal.signal(signal.SIGINT, signal.default_int_handler)
    release = options.release or chosen_release()
    name = f"{release}-{options.who}"
    home = HOME if options.who == "user" else "/root"
    place = f"{home}/glimmet"
    try:
        with Room(name, options.cache.resolve(), release) as room:
            clone(room, options.source, place, USER if options.who == "user" else "0:0")
            tell(f"In a clean Debian {release} as {options.who}: {' '.join(options.command)}")
            status = run_in(room, options, place)
            keep_output(room, place, options.pictures / name, options.owner)
    except KeyboardInterrupt:
        return 130
    except (OSError, RuntimeError, subprocess.SubprocessError) as error:
        tell(f"clean-room: {error}")
        return 1
    finally:
        options.source.unlink(missing_ok=True)
    tell(f"In a clean Debian {release} as {options.who}: ended with {status}")
    return status


if __name__ == "__main__":
    sys.exit(main())
