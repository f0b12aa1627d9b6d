"""Several lanes side by side: a process each, which gets its next case once it has the result of the last one."""

import json
import os
import queue
import subprocess
import sys
import threading
from pathlib import Path

from desktop.own_network import LOOPBACK
from hostile.results import Result

TESTS = Path(__file__).resolve().parent.parent


class LaneProcess:
    def __init__(self, binary, addresses, options):
        self._process = subprocess.Popen(
            [sys.executable, "-B", "-m", "hostile.lane", str(binary), *options], stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, text=True, env=os.environ | {"PYTHONPATH": str(TESTS)})
        self._tell(json.dumps(addresses))

    def _tell(self, line):
        self._process.stdin.write(f"{line}\n")
        self._process.stdin.flush()

    def play(self, case):
        self._tell(case.name)
        line = self._process.stdout.readline()
        if not line:
            raise RuntimeError(f"the desktop of “{case.name}” ended")
        return Result(**json.loads(line))

    def end(self):
        self._process.stdin.close()
        self._process.wait(60)

    def interrupt(self):
        self._process.terminate()


def in_good_order(cases):
    """The slow ones first, and no two desktops wait for the last one of them."""
    return sorted(cases, key=lambda case: -case.most_seconds)


def play(cases, binary, lanes=4, each_alone=False, told=lambda result: None):
    """Plays all cases and returns their results by name. `told` hears of each as it comes, on another thread.

    Cases whose names have two addresses share a lane of their own."""
    shared, own = [], []
    for case in in_good_order(cases):
        (shared if case.addresses == LOOPBACK else own).append(case)
    running, results, errors = [], {}, []

    def run(waiting, addresses):
        lane = LaneProcess(binary, addresses, ["--each-alone"] if each_alone else [])
        running.append(lane)
        try:
            while (case := waiting.get_nowait()):
                results[case.name] = lane.play(case)
                told(results[case.name])
        except queue.Empty:
            pass
        except Exception as error:
            errors.append(error)
        finally:
            lane.end()

    threads = []
    for group, count in ((own, 1), (shared, lanes)):
        waiting = queue.SimpleQueue()
        for case in group:
            waiting.put(case)
        for _ in range(min(count, len(group))):
            threads.append(threading.Thread(target=run, args=(waiting, group[0].addresses)))
    try:
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
    except BaseException:
        for lane in running:
            lane.interrupt()
        raise
    if errors:
        raise errors[0]
    return results
