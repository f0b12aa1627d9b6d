"""The table of what each hostile server came to, as it stands in docs/reliability.md."""

import datetime
import platform
from pathlib import Path

from hostile.cases import GROUPS
from hostile.results import faults

# Everything from this line on is written anew.
FIGURES = "## The figures"
HEADINGS = (
    "Server", "Shown", "Last log line", "Time", "Memory before, peak", "CPU, main thread", "Slowest reply", "Quit")
LONGEST_LINE = 60


def row(*cells):
    return f"| {' | '.join(cell.replace('|', '&#124;') for cell in cells)} |"


def seconds(value):
    return f"{value * 1000:.0f} ms" if value < 10 else f"{value:.0f} s"


def megabytes(kilobytes):
    return f"{kilobytes / 1024:.1f}"


def last_line(result):
    lines = [line for line in result.log if line.startswith("[glimmet] ") and " URL: " not in line]
    return f"`{lines[-1].removeprefix('[glimmet] ')[:LONGEST_LINE]}`" if lines else "none"


def quitting(result):
    if not result.has_quit:
        return "not tried"
    return "killed" if result.quit_seconds is None else seconds(result.quit_seconds)


def case_row(case, result):
    name = f"**{case.name}**" if any(faults(case, result)) else case.name
    return row(name, result.text or "nothing", last_line(result), seconds(result.seconds),
               f"{megabytes(result.before_kilobytes)}, {megabytes(result.peak_kilobytes)} MB",
               f"{seconds(result.cpu_seconds)}, {seconds(result.main_thread_seconds)}",
               seconds(result.slowest_reply), quitting(result))


def tables(results):
    for title, group in GROUPS.items():
        played = [(case, results[case.name]) for case in group if case.name in results]
        if played:
            yield f"### {title}\n\n" + "\n".join([
                row(*HEADINGS), row(*("---" for _ in HEADINGS)), *(case_row(*each) for each in played)])


def wrong(results):
    found = [f"- {case.name}: {'; '.join(said)}" for group in GROUPS.values() for case in group
             if case.name in results and (said := list(faults(case, results[case.name])))]
    return "Rows in bold are not as promised:\n\n" + "\n".join(found) if found else "Every row is as promised."


def history_row(name, each):
    return row(name, f"{each.whole} of {each.chains} histories of {each.pages:,} pages", each.text,
               f"{each.seconds / max(each.chains * each.pages, 1) * 1000:.2f} ms a page",
               f"{megabytes(each.peak_kilobytes)} MB",
               f"{each.cpu_seconds / max(each.chains * each.pages, 1) * 1000:.2f} ms a page", str(each.reloads))


def history_table(histories):
    headings = ("Server", "Whole", "Shown", "Time", "Peak memory", "CPU", "Reloads")
    return "### A real nginx\n\n" + "\n".join([
        row(*headings), row(*("---" for _ in headings)), *(history_row(*each) for each in histories.items())])


def figures(results, histories):
    day = datetime.date.today()
    system = platform.freedesktop_os_release()["PRETTY_NAME"]
    return "\n\n".join([FIGURES, f"Measured on {day} on {system}, {len(results)} servers.", wrong(results),
                        *tables(results), history_table(histories)]) + "\n"


def write(path, results, histories):
    """Puts the figures in the place of those that the document had."""
    path = Path(path)
    before = path.read_text().partition(FIGURES)[0] if path.exists() else ""
    path.write_text(before + figures(results, histories))
