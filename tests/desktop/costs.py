"""What processes cost: time of a processor, wake-ups, memory. From Linux's /proc, so of this machine's own alone."""

from pathlib import Path

from desktop.processes import cpu_times, watch_for


def busy_milliseconds(seconds, *groups):
    """Of a processor's time, that the processes of each group take a second; threads that end meanwhile are left
    out."""
    before = list(map(cpu_times, groups))
    passed = watch_for(seconds)
    after = map(cpu_times, groups)
    return [sum(end - old.get(thread, 0) for thread, end in new.items()) * 1000 / passed
            for old, new in zip(before, after)]


def memory_kilobytes(pid):
    """The sums over a process's memory by their names, such as Pss and Private_Dirty."""
    lines = Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()[1:]
    return {name.rstrip(":"): int(size) for name, size, _unit in (line.split() for line in lines)}
