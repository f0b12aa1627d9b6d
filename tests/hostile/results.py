"""What came of one case, and what is wrong about that."""

from typing import NamedTuple

# Whatever a server does: kilobytes of private memory besides the body, and seconds to quit.
MOST_MEMORY, MOST_SECONDS_TO_QUIT = 100 << 10, 1.0


class Result(NamedTuple):
    name: str
    # What the item showed, empty where no result came; and the seconds until then.
    text: str
    seconds: float
    before_kilobytes: int
    peak_kilobytes: int
    cpu_seconds: float
    main_thread_seconds: float
    # Seconds that the program took at most to answer on the accessibility bus meanwhile.
    slowest_reply: float = 0.0
    requests: int = 0
    # Connections to where nobody should be sent.
    elsewhere: int = 0
    log: list = ()
    trouble: str = ""
    # Whether it was asked to quit in the midst of the attack, and the seconds that took; None: it had to be killed.
    has_quit: bool = False
    quit_seconds: float | None = None


def faults(case, result, most_memory=MOST_MEMORY):
    """What the program must not do, and did."""
    if result.trouble:
        yield result.trouble
    elif result.text not in case.texts:
        yield f"it shows “{result.text}”, not {' or '.join(f'“{text}”' for text in sorted(case.texts))}"
    if not case.least_seconds <= result.seconds <= case.most_seconds:
        yield f"the result took {result.seconds:.1f} s, not {case.least_seconds} to {case.most_seconds} s"
    if result.peak_kilobytes > most_memory:
        yield f"it took {result.peak_kilobytes >> 10} MB of private memory, {result.before_kilobytes >> 10} MB before"
    if result.requests > case.most_requests:
        yield f"it asked {result.requests} times, not at most {case.most_requests} times"
    if result.elsewhere:
        yield "it went where another server sent it"
    if result.has_quit and (result.quit_seconds is None or result.quit_seconds > MOST_SECONDS_TO_QUIT):
        yield f"it took {result.quit_seconds} s to quit" if result.quit_seconds else "it had to be killed"
