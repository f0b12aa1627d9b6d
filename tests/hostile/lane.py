"""A desktop whose program asks one hostile server after the other.

Started as a program of its own, `python3 -m hostile.lane BINARY [--each-alone]`, it reads the addresses of the servers'
names and then the names of cases from its standard input, and writes what came of each as a line of JSON, until its
input ends."""

import contextlib
import json
import signal
import sys
import time
from pathlib import Path

from gi.repository import GLib

from desktop.own_network import TWO_ADDRESSES
from desktop.processes import DesktopError, wait_for
from hostile import answers, handshakes
from hostile.cases import CASES, ENDLESS
from hostile.measuring import Meter, private_kilobytes
from hostile.results import Result
from hostile.revenue_desktop import PORT, RevenueDesktop
from hostile.wire import Listener

# Ports of this machine at which nobody is to be asked.
ELSEWHERE = (80, 8443)
# Kilobytes of a program that asked for a few true answers; one with more is replaced before a case.
MOST_MEMORY_BEFORE = 32 << 10
# Seconds until a slow server begins to shake hands.
SLOW_GREETING = 3
OF_THE_MENU_BAR, MOST_LINES = "[glimmet] menu bar:", 50
# Anything that the program may do is an error of the bus, of the wait for it, or of the lookup of a control.
TROUBLE = (DesktopError, GLib.Error)


class Lane(RevenueDesktop):
    """Every case begins with a program that has just got a true answer."""

    def __enter__(self):
        super().__enter__()
        self._answered = 0
        self._slow = None
        # With two addresses each, IPv4 is where this server is.
        self._listener = self._listen(PORT)
        self._elsewhere = [self._listen(port) for port in ELSEWHERE]
        return self

    def __exit__(self, *error):
        for listener in (self._listener, *self._elsewhere):
            listener.close()
        super().__exit__(*error)

    def _listen(self, port, address=""):
        return Listener(self.network.listen(port, address), self._good_context(), answers.good())

    def _good_context(self):
        return handshakes.usual_context(self.certificates / "good.pem")

    def _context_of(self, case):
        return (case.context or handshakes.usual_context)(self.certificates / f"{case.certificate}.pem")

    def _be_good(self, cents=answers.CENTS):
        self._serve(answers.good(cents), self._good_context())

    def play(self, case, quits):
        """Has the program ask that server. `quits`: it is also asked to quit in the midst of it, and started again for
        the next case."""
        if not case.ipv6:
            return self._play(case, quits)
        # Whom a running program once reached, it may not look for again.
        self._give_up()
        with contextlib.ExitStack() as stack:
            if case.ipv6 == "dead":
                for each in self.network.swallow(PORT, TWO_ADDRESSES[0]):
                    stack.enter_context(each)
            elif case.ipv6 == "slow":
                self._slow = self._listen(PORT, TWO_ADDRESSES[0])
                stack.callback(self._end_slow)
            return self._play(case, quits)

    def _end_slow(self):
        self._slow.close()
        self._slow = None

    def _serve(self, behaviour, context):
        """What all names lead to from now on."""
        self._listener.become(behaviour, context)
        if self._slow:
            self._slow.become(greeting_late(behaviour), context)

    def _play(self, case, quits):
        try:
            self._prepare(case)
        except TROUBLE as error:
            self._give_up()
            return Result(case.name, "", 0.0, 0, 0, 0.0, 0.0, trouble=f"before the case: {error}")
        result = self._attack(case)
        if result.trouble:
            self._give_up()
            return result
        return self._aftermath(case, result, quits)

    def _prepare(self, case):
        """What is shown at first is what no case comes to: the text of the last one must not pass for this one's. Nor
        must the memory that one took."""
        self._be_good()
        if self.glimmet and private_kilobytes(self.glimmet.process.pid) > MOST_MEMORY_BEFORE:
            self._give_up()
        if self.glimmet is None:
            self.launch()
        self.choose(case.platform)
        before = self._get_true_answer()
        if self.shows(before) != before:
            raise DesktopError(f"“{self.glimmet.label}” is shown for “{before}”")

    def _get_true_answer(self):
        """Has a good server asked, and returns what is to be shown then: another figure each time."""
        self._answered += 1
        cents = 10_000 + self._answered
        self._be_good(cents)
        self.refresh()
        # What was asked for before, and is slow to come, may end first.
        wait_for(lambda: f'"revenue": {cents},' in self.glimmet.output(), 25, "the next true answer")
        self.wait_for_result(25)
        return f"💰 ${cents / 100:.2f}"

    def _give_up(self):
        if self.glimmet:
            self.quit()

    def _begin(self, case):
        self._serve(case.serve, self._context_of(case))
        for listener in self._elsewhere:
            listener.become(answers.good(), self._good_context())
        self.refresh()

    def _attack(self, case):
        told = len(self.glimmet.output())
        self.slowest_reply, trouble, text = 0.0, "", ""
        meter, start = Meter(self.glimmet.process.pid), time.monotonic()
        try:
            self._begin(case)
            self.wait_for_result(case.most_seconds + 5)
        except TROUBLE as error:
            trouble = str(error)
        seconds, cost = time.monotonic() - start, meter.stop()
        if not trouble:
            text = self.shows(*case.texts)
        if self.glimmet.process.poll() is not None:
            trouble = f"it ended by itself with {self.glimmet.process.returncode}"
        lines = [line for line in self.glimmet.output()[told:].splitlines() if OF_THE_MENU_BAR not in line]
        return Result(case.name, text, seconds, *cost, slowest_reply=self.slowest_reply,
                      requests=len(self._listener.requests),
                      elsewhere=sum(listener.connections for listener in self._elsewhere),
                      log=lines[:MOST_LINES], trouble=trouble)

    def _aftermath(self, case, result, quits):
        """Whether the program still gets a true answer, and how soon it quits while it is attacked once more."""
        try:
            self._get_true_answer()
            if not quits:
                return result
            self._begin(case)
            wait_for(lambda: self._listener.connections or not self.is_fetching(), 10, "the next connection")
            return result._replace(quit_seconds=self.quit(), has_quit=True)
        except TROUBLE as error:
            self._give_up()
            return result._replace(trouble=f"afterwards: {error}")


def greeting_late(behaviour):
    def serve(wire):
        wire.pause(SLOW_GREETING)
        behaviour(wire)

    return serve


def main(binary, *options):
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    addresses = tuple(json.loads(sys.stdin.readline()))
    with Lane(Path(binary), addresses) as lane:
        for name in map(str.strip, sys.stdin):
            result = lane.play(CASES[name], "--each-alone" in options or name in ENDLESS)
            print(json.dumps(result._asdict()), flush=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
