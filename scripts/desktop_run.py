"""Runs glimmet in a virtual desktop of its own until it is interrupted; scripts/run starts this."""

import argparse
import signal
import sys
from pathlib import Path

from desktop import pictures
from desktop.processes import watch_for
from virtual_desktop import KINDS, VirtualDesktop

ROOT = Path(__file__).resolve().parent.parent
PICTURES = ROOT / "out" / "screenshots"


def interrupted(_number, _frame):
    raise KeyboardInterrupt


def take_pictures(glimmet):
    PICTURES.mkdir(parents=True, exist_ok=True)
    for path in pictures.take_mode(glimmet, "Clock", PICTURES, f"{glimmet.desktop.kind}-now"):
        print(f"Screenshot: {path.relative_to(ROOT)}", flush=True)


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


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--desktop", choices=KINDS, default="strip")
    parser.add_argument("--binary", type=Path, required=True)
    options = parser.parse_args()
    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, interrupted)
    try:
        with VirtualDesktop(options.desktop) as desktop:
            glimmet = pictures.start(desktop, options.binary.resolve())
            take_pictures(glimmet)
            return print_labels(glimmet)
    except KeyboardInterrupt:
        return 0


if __name__ == "__main__":
    sys.exit(main())
