"""Pictures of the screen: what of them is held against the window itself, and what comes of a fault."""

import importlib.machinery
import importlib.util
import io
import unittest
from contextlib import redirect_stderr, redirect_stdout
from pathlib import Path
from types import SimpleNamespace
from unittest import mock

from desktop import pictures, walks
from desktop.image import CELL, Image, cells_in_motion, cells_not_shown, first_shown
from desktop.processes import DesktopError

SIDE = 12 * CELL
INK, PAPER = (10, 20, 30, 255), (200, 210, 220, 255)


def image(changes=(), has_alpha=True, ground=PAPER):
    """A square of one colour, but for the pixels in `changes`: place to colour."""
    pixels = bytearray(bytes(ground) * SIDE * SIDE)
    for (x, y), colour in dict(changes).items():
        pixels[4 * (y * SIDE + x):4 * (y * SIDE + x) + 4] = bytes(colour)
    return Image(SIDE, SIDE, bytes(pixels), has_alpha)


def screen(changes=()):
    """What the X server has of a screen: its fourth byte says nothing."""
    return image(changes, has_alpha=False, ground=(*PAPER[:3], 0))


def row(y):
    return {(x, y): INK for x in range(SIDE)}


def grab(shown):
    return SimpleNamespace(looks=(image(), image()), screen=shown)


def program(poll):
    return SimpleNamespace(process=SimpleNamespace(poll=poll), desktop=SimpleNamespace(screen=None))


def script():
    path = str(Path(__file__).resolve().parents[2] / "scripts" / "screenshots")
    loader = importlib.machinery.SourceFileLoader("screenshots", path)
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("screenshots", loader))
    loader.exec_module(module)
    return module


class Pictures(unittest.TestCase):
    def failures(self, groups, launch=None):
        """Plays the groups with a program that needs nothing."""
        self.taken = []
        launch = launch or (lambda: program(poll=lambda: None))
        with mock.patch.multiple(pictures, open_anew=mock.DEFAULT, put_away=mock.DEFAULT):
            return pictures.play(launch, groups, lambda _glimmet, name: self.taken.append(name))

    def test_areHeldAgainstTheWindowWithoutAFaultWhereTheScreenShowsIt(self):
        self.assertEqual(cells_not_shown((image(row(3)), image(row(3))), screen(row(3))), set())

    def test_tellOfARowThatTheScreenShowsTwice(self):
        found = cells_not_shown((image(row(3)), image(row(3))), screen(row(3) | row(4 * CELL)))

        self.assertEqual(found, {(column, 4) for column in range(SIDE // CELL)})

    def test_tellOfASinglePixelThatIsOneStepOff(self):
        blue, *others = PAPER

        self.assertEqual(cells_not_shown((image(), image()), screen({(17, 40): (blue + 1, *others)})), {(2, 5)})

    def test_leaveToACornerWhatShinesThroughIt(self):
        half, through = {(0, 0): (50, 50, 50, 128)}, {(0, 0): (177, 50, 60, 0)}

        self.assertEqual(cells_not_shown((image(half), image(half)), screen(through)), set())

    def test_tellOfACornerThatIsDarkerOrLighterThanItCanBe(self):
        half = image({(0, 0): (50, 50, 50, 128)})

        for impossible in ((40, 50, 50, 0), (50, 50, 180, 0)):
            self.assertEqual(cells_not_shown((half, half), screen({(0, 0): impossible})), {(0, 0)})

    def test_leaveOutWhatMovesInTheWindow(self):
        dot = {(30, 30): INK}

        self.assertEqual(cells_in_motion((image(), image(dot))), {(3, 3)})
        self.assertEqual(cells_not_shown((image(), image(dot), image()), screen(dot)), set())

    def test_tellOfWhatIsWrongBesideWhatMoves(self):
        dot = {(30, 30): INK}

        self.assertEqual(cells_not_shown((image(), image(dot)), screen({(60, 30): INK})), {(7, 3)})

    def test_sayNothingWhileMuchIsMoving(self):
        lower = {place: INK for y in range(SIDE // 2, SIDE) for place in row(y)}

        self.assertIsNone(cells_not_shown((image(), image(lower)), screen()))

    def test_areNotComparedWithAWindowOfAnotherSize(self):
        with self.assertRaises(ValueError):
            cells_not_shown((image(), image()), screen().crop(0, 0, CELL, CELL))

    def test_showAPartAsItIs(self):
        self.assertEqual(screen({(5, 7): INK}).crop(5, 7, 1, 1).pixels, bytes(INK))

    def test_areTakenOnceWhereTheyAreRight(self):
        refreshed = mock.Mock()

        found = first_shown(lambda: grab(screen()), 3, refreshed)

        self.assertEqual(found[1:], (1, set()))
        refreshed.assert_not_called()

    def test_areTakenAgainUntilTheyAreRight(self):
        grabs = iter([grab(screen({(0, 0): INK})), grab(screen()), grab(screen({(0, 0): INK}))])
        refreshed = mock.Mock()

        found = first_shown(lambda: next(grabs), 3, refreshed)

        self.assertEqual(found[1:], (2, set()))
        refreshed.assert_called_once()

    def test_areGivenUpWithWhatIsWrongWithThem(self):
        wrong = mock.Mock(return_value=grab(screen({(0, 0): INK})))

        found = first_shown(wrong, 3, lambda: None)

        self.assertEqual(found, (wrong.return_value, 3, {(0, 0)}))
        self.assertEqual(wrong.call_count, 3)

    def test_haveANameOfTheirOwnWhereverTheyAreKept(self):
        for groups in (pictures.GROUPS, *walks.WALKS.values()):
            names = [name for group in groups for name, *_ in group]
            self.assertEqual(len(set(names)), len(names))

    def test_loseNoSceneToOneThatFails(self):
        def fail(_stage):
            raise DesktopError("no button")

        done = []
        groups = ((("one", done.append), ("two", fail, done.append), ("three", done.append)), (("four",),))

        failures = self.failures(groups)

        self.assertEqual([(name, str(error)) for name, error in failures], [("two", "no button")])
        self.assertEqual(self.taken, ["one", "three", "four"])
        self.assertEqual(len(done), 2)

    def test_nameEverySceneOfAGroupThatCannotBegin(self):
        def launch():
            raise OSError("no program")

        failures = self.failures(((("one",), ("two",)), (("three",),)), launch)

        self.assertEqual([name for name, _ in failures], ["one", "two", "three"])
        self.assertEqual(self.taken, [])

    def test_goOnWithAnotherLaunchWhereTheProgramEnded(self):
        ended = program(poll=lambda: -11)
        launch = mock.Mock(return_value=ended)

        self.assertEqual(self.failures(((("one",),), (("two",),)), launch), [])
        self.assertEqual(launch.call_count, 2)

    def test_endWithAnErrorThatNamesWhatDiffersAndWhatFailed(self):
        screenshots = script()
        outcome = screenshots.Outcome()
        outcome.add("good", pictures.Taken(("good.png",)))
        outcome.add("late", pictures.Taken(("late.png",), 2))
        outcome.add("bad", pictures.Taken(("bad-differs.png", "bad-window.png"), 3, "the screen differs"))
        outcome.fail("lost", DesktopError("no button"))

        with redirect_stdout(io.StringIO()) as out, redirect_stderr(io.StringIO()) as told:
            status = screenshots.tell(outcome)

        self.assertEqual(status, 1)
        self.assertEqual(out.getvalue(), "good.png\nlate.png\n")
        for line in ("late: right at try 2", "bad: the screen differs; kept as bad-differs.png, bad-window.png",
                     "lost: no button"):
            self.assertIn(line, told.getvalue())

    def test_endWellWhereSomeOnlyHadToBeTakenAgain(self):
        screenshots = script()
        outcome = screenshots.Outcome()
        outcome.add("late", pictures.Taken(("late.png",), 2))

        with redirect_stdout(io.StringIO()), redirect_stderr(io.StringIO()):
            self.assertEqual(screenshots.tell(outcome), 0)


if __name__ == "__main__":
    unittest.main()
