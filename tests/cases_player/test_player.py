"""The player of answer cases: a wrong expectation fails, and so does what is no case."""

import json
import os
import subprocess
import tempfile
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
RIGHT = HERE.parent / "cases" / "yahoo" / "only_a_price.json"


def play(*folders):
    return subprocess.run(
        [os.environ["GLIMMET_CASES"], *map(str, folders)], capture_output=True, text=True, timeout=240)


def right_case():
    return json.loads(RIGHT.read_text(encoding="utf-8"))


def with_member(*path_and_value):
    """A right case with a member somewhere in it replaced, as the text of its file."""
    *path, last, value = path_and_value
    case = right_case()
    target = case
    for name in path:
        target = target[name]
    target[last] = value
    return json.dumps(case)


def with_members(**members):
    return json.dumps(right_case() | members)


def without(name):
    return json.dumps({other: value for other, value in right_case().items() if other != name})


NO_CASES = {
    "": "is no JSON: ",
    '{"source": "yahoo"': "is no JSON: ",
    "[]": "the file is no object",
    without("source"): "source is no text",
    with_member("source", "elsewhere"): "source is unknown",
    without("name"): "name is no text",
    without("settings"): "settings is no object",
    with_member("settings", {}): "settings.symbol is no text",
    with_member("clock", "now", "yesterday"): "clock.now is no moment",
    with_member("clock", "zone", "Atlantis/Capital"): "clock.zone is no time zone",
    with_member("pages", {}): "pages is no list",
    with_member("pages", [{"body": ""}]): "pages[0].status is missing",
    with_member("pages", [{"status": "200"}]): "pages[0].status is no integer",
    with_member("pages", [{"status": 200}, 5]): "pages[1] is no object",
    with_member("pages", [{"status": 200, "body_base64": "?"}]): "pages[0].body_base64 is no base64",
    with_member("pages", [{"fail": "sometimes"}]): "pages[0].fail is neither cut nor refuse nor timeout",
    without("requests"): "requests is missing",
    with_member("requests", 0, "query", [["interval"]]): "requests[0].query holds something else than pairs",
    with_member("requests", 0, "method", None): "requests[0].method is no text",
    with_member("request", {"by_mode": {"Year": {}}}): "request.by_mode.Year is no period",
    without("expect"): "expect is no object",
    with_member("expect", {}): "expect.record is missing",
    with_member("expect", "record", "price", "5"): "expect.record.price is no number",
    with_member("expect", "record", "history", [None]): "expect.record.history holds something else than numbers",
    with_member("source", "stripe"): "expect.record is no period",
    with_members(source="stripe", expect={}): "expect names no figure",
    with_members(source="polar", expect={"*": {"sum": ""}}): "expect.*.sum is no figure",
    with_member("totals", {"Today": {"total": 0.5}}): "totals.Today.total is no integer",
    with_member("log", [5]): "log holds something else than texts",
    with_member("fatal", "yes"): "fatal is neither true nor false",
}


class Player(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def write(self, name, text):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        return path

    def test_fails_every_wrong_expectation_for_its_reason(self):
        wrong = {path.stem: json.loads(path.read_text(encoding="utf-8")) for path in HERE.glob("wrong/*.json")}
        self.assertTrue(wrong)

        played = play(HERE / "wrong")

        lines = played.stdout.splitlines()
        self.assertEqual(lines.pop(), f"0 passed, {len(wrong)} failed")
        self.assertEqual(len(lines), len(wrong))
        for line, (name, case) in zip(lines, sorted(wrong.items())):
            self.assertTrue(line.startswith(f"FAIL {case['source']}/{name}: "), line)
            self.assertIn(case["fails_with"], line)
        self.assertEqual(played.returncode, 1)

    def test_passes_a_right_case(self):
        self.write("right.json", RIGHT.read_text(encoding="utf-8"))

        played = play(self.folder)

        self.assertEqual(played.stdout, "ok yahoo/only_a_price\n1 passed, 0 failed\n")
        self.assertEqual(played.returncode, 0)

    def test_fails_where_one_of_many_fails(self):
        self.write("a/right.json", RIGHT.read_text(encoding="utf-8"))
        self.write("b/wrong.json", with_member("expect", "menuBarString", "BTC"))
        self.write("c/right.json", RIGHT.read_text(encoding="utf-8"))

        played = play(self.folder)

        self.assertEqual([line.split()[0] for line in played.stdout.splitlines()], ["ok", "FAIL", "ok", "2"])
        self.assertEqual(played.stdout.splitlines()[-1], "2 passed, 1 failed")
        self.assertEqual(played.returncode, 1)

    def test_plays_all_folders_and_what_is_below_them_in_order(self):
        for place in ("2/b.json", "2/a/z.json", "1/c.json", "1/deeper/still/d.json", "1/notes.txt"):
            self.write(place, with_member("name", Path(place).stem))

        played = play(self.folder / "2", self.folder / "1")

        names = ["z", "b", "c", "d"]
        self.assertEqual(played.stdout.splitlines(), [f"ok yahoo/{name}" for name in names] + ["4 passed, 0 failed"])

    def test_tells_why_a_file_is_no_case(self):
        paths = [self.write(f"{i:02}.json", text) for i, text in enumerate(NO_CASES)]

        played = play(self.folder)

        lines = played.stdout.splitlines()
        self.assertEqual(lines.pop(), f"0 passed, {len(NO_CASES)} failed")
        self.assertEqual(len(lines), len(NO_CASES))
        for line, path, reason in zip(lines, paths, NO_CASES.values()):
            self.assertTrue(line.startswith(f"FAIL {path}: "), line)
            self.assertIn(reason, line)
        self.assertEqual(played.returncode, 1)

    def test_fails_where_there_is_nothing_to_play(self):
        for folder in (self.folder, self.folder / "missing"):
            played = play(folder)

            self.assertEqual(played.stdout, "0 passed, 0 failed\n")
            self.assertEqual(played.returncode, 1)

    def test_tells_how_it_is_used(self):
        played = play()

        self.assertEqual(played.stdout, "")
        self.assertTrue(played.stderr.startswith("usage: "), played.stderr)
        self.assertEqual(played.returncode, 2)


if __name__ == "__main__":
    unittest.main()
