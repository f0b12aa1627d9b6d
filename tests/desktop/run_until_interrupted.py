"""Runs glimmet in a virtual desktop of its own until it is interrupted; scripts/run starts this."""

import argparse
import os
import signal
import sys
from pathlib import Path

from desktop import pictures
from desktop.processes import DesktopError, watch_for
from desktop.virtual_desktop import KINDS, VirtualDesktop

ROOT = Path(__file__).resolve().parents[2]
PICTURES = ROOT / "out" / "screenshots"


def interrupted(_number, _frame):
    raise KeyboardInterrupt


def take_pictures(glimmet):
    """The text in the menu bar, and the panel under it."""
    kind = glimmet.desktop.kind

    def told(take, name):
        path = PICTURES / f"{kind}-now-{name}.png"
        taken = take(glimmet, path)
        for written in taken.paths:
            print(f"Screenshot: {written.relative_to(ROOT)}", flush=True)
        if taken.fault:
            print(f"{name}: {taken.fault}", file=sys.stderr, flush=True)

    told(pictures.take_menu_bar, "menubar")
    first = pictures.GROUPS[0][:1]
    for _, error in pictures.play(lambda: glimmet, [first], lambda *_: told(pictures.take_panel, "panel")):
        raise error


def print_labels(glimmet):
    """Prints each new text until glimmet ends; returns its exit status."""
    seen = len(glimmet.labels)
    shown = glimmet.label
    print(shown, flush=True)
    while glimmet.process.poll() is None:
        watch_for(0.05)
        for _, label in glimmet.labels[seen:]:
            # A signal that was under way while the first text was read tells that same text again.
            if label != shown:
                print(label, flush=True)
            shown = label
        seen = len(glimmet.labels)
    print(glimmet.output(), end="", file=sys.stderr)
    return glimmet.process.returncode


def show(glimmet):
    """Shows glimmet until it ends, or until whoever reads what is printed has seen enough; returns the exit status."""
    try:
        take_pictures(glimmet)
        return print_labels(glimmet)
    except BrokenPipeError:
        # Python would complain once more when it flushes what is left at its end.
        os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())
        return 0


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--desktop", choices=KINDS, default="strip")
    parser.add_argument("--binary", type=Path, required=True)
    options = parser.parse_args()
    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, interrupted)
    try:
        PICTURES.mkdir(parents=True, exist_ok=True)
        print(f"Starting glimmet on a virtual screen ({options.desktop}) …", file=sys.stderr, flush=True)
        with VirtualDesktop(options.desktop) as desktop:
            return show(pictures.start(desktop, options.binary.resolve()))
    except KeyboardInterrupt:
        return 0
    except (DesktopError, OSError) as error:
        print(f"scripts/run: {error}", file=sys.stderr)
        return 1


if __name__ == "__main__":
    sys.exit(main())
