import QtQuick
import Glimmet

// The list of deadlines, and the editor as a whole.
DeadlineOptionsCase {
    id: testCase
    name: "DeadlineOptions"

    function test_theHeaderHasItsMeasures() {
        const label = textOf(options, "UPCOMING");
        const count = textOf(options, "0 active");
        const clear = textOf(options, "Clear all");

        compareFont(count, 10, 400);
        compareInk(count.color, 0.3);
        compareFont(clear, 10, 400);
        compareInk(clear.color, 0.3);
        compareInk(buttonOf(options, "Clear all").background.color, 0);
        compare(areaOf(label, options).x, 0);
        verify(areaOf(count, options).x > areaOf(label, options).right);
        compare(areaOf(buttonOf(options, "Clear all"), options).right, 300);
    }

    function test_withoutDeadlinesItSaysSo() {
        const hint = textOf(options, "No deadlines. Add one below.");

        compareFont(hint, 11, 400);
        compareInk(hint.color, 0.4);
        compare(hint.horizontalAlignment, Text.AlignHCenter);
        compare(hint.topPadding, 10);
        compare(hint.bottomPadding, 10);
        compare(rows().length, 0);

        add("exam", 100);

        compare(textOf(options, "No deadlines. Add one below."), null);
        world.ticker.clearDeadlines();
        verify(textOf(options, "No deadlines. Add one below.") !== null);
    }

    function test_itDoesNotSaySoOfOneThatCanBePutBack() {
        add("exam", 100);
        options.undo.duration = 50;
        rows()[0].takeKeyboard();
        const hint = () => textOf(options, "No deadlines. Add one below.");

        keyClick(Qt.Key_Delete);
        verify(options.undo.isEmpty);
        compare(hint(), null);

        tryVerify(() => hint() !== null);
        compare(all(options, DeadlineRow).length, 0);
    }

    function test_thePiecesStandTwelveApartInOrder_data() {
        return [{tag: "empty", count: 0}, {tag: "with deadlines", count: 2}];
    }

    function test_thePiecesStandTwelveApartInOrder(data) {
        for (let i = 0; i < data.count; ++i)
            add("exam", 100);
        const list = data.count > 0 ? rows()[0].parent : textOf(options, "No deadlines. Add one below.");
        const areas = [textOf(options, "UPCOMING"), list, textOf(options, "ADD DEADLINE"), field(), picker(),
            addButton()].map(item => areaOf(item, options));

        compare(areas[0].y, 0);
        for (let i = 1; i < areas.length; ++i)
            compare(areas[i].y - areas[i - 1].bottom, 12);
        compare(options.height, areas[5].bottom);
        verify([1, 3, 4, 5].every(i => areas[i].width === 300));
    }

    function test_theRowsStandInTheirOrder() {
        add("second", 7200);
        add("first", 3700);
        add("gone", -5);

        compare(shown("title"), ["gone", "first", "second"]);
        compare(shown("countdown"), ["passed", "1h 1m", "2h 0m"]);
        compare(shown("dateText"), ["4 May 2026, 09:05", "4 May 2026, 10:06", "4 May 2026, 11:05"]);
        compare(shown("opacity"), [0.4, 1, 1]);
        verify(textOf(options, "2 active") !== null);
        compare(rows()[0].width, 300);
    }

    function test_aDeadlineOfThisVerySecondHasPassed() {
        add("now", 0);

        compare(shown("countdown"), ["passed"]);
        compare(shown("opacity"), [0.4]);
        verify(textOf(options, "0 active") !== null);
    }

    function test_countdownsAndThePassedStateFollowTheClock() {
        add("soon", 61);
        add("later", 4000);
        const row = rows()[0];
        compare(row.countdown, "1m");
        verify(textOf(options, "2 active") !== null);

        world.advance(2);
        compare(row.countdown, "0m");
        compare(row.opacity, 1);
        world.advance(59);

        compare(row.countdown, "passed");
        compare(row.opacity, 0.4);
        verify(textOf(options, "1 active") !== null);
        compare(rows()[0], row);
    }

    function test_clearAllRemovesBothKindsAndStoresThatAtOnce() {
        add("gone", -100);
        add("to come", 100);
        compare(world.storedDeadlines().length, 2);

        mouseClick(buttonOf(options, "Clear all"));

        compare(world.deadlines(), []);
        compare(world.storedDeadlines(), []);
        compare(rows().length, 0);
    }

    function test_clearAllIsOutOfUseWithNothingToClear() {
        verify(!buttonOf(options, "Clear all").enabled);
        verify(reader.isDisabled(options, "Clear all"));

        add("gone", -100);
        verify(buttonOf(options, "Clear all").enabled);
        world.ticker.clearDeadlines();

        verify(!buttonOf(options, "Clear all").enabled);
    }

    function test_theKeyboardLeavesAButtonThatHasNothingToClear() {
        add("one", 1);
        buttonOf(options, "Clear all").forceActiveFocus(Qt.TabFocusReason);

        verify(reader.press(options, "Remove one"));

        verify(field().activeFocus);
    }

    function test_theKeyboardStaysAtTheButtonBelowASheet() {
        add("one", 1);
        buttonOf(options, "Clear all").forceActiveFocus(Qt.TabFocusReason);

        options.enabled = false;
        options.enabled = true;

        verify(buttonOf(options, "Clear all").activeFocus);
    }

    function test_aDeadlineCanBeRemoved() {
        add("one", 1);
        add("two", 2);
        add("three", 3);

        mouseClick(all(rows()[1], PlainButton)[0]);

        compare(shown("title"), ["one", "three"]);
        compare(world.storedDeadlines().length, 2);
    }

    function test_theKeyboardStaysNearARemovedDeadline() {
        add("one", 1);
        add("two", 2);
        add("three", 3);
        rows()[1].takeKeyboard();

        keyClick(Qt.Key_Delete);
        verify(rows()[1].hasKeyboard);
        compare(rows()[1].title, "three");
        keyClick(Qt.Key_Delete);
        verify(rows()[0].hasKeyboard);
        keyClick(Qt.Key_Delete);

        compare(world.deadlines(), []);
        compare(testCase.Window.activeFocusItem.text, "Undo");
    }

    function test_theKeyboardStaysWhereItIsWhenAnotherDeadlineGoes() {
        add("one", 1);
        add("two", 2);
        add("three", 3);
        rows()[2].takeKeyboard();

        verify(reader.press(options, "Remove one"));
        compare(rows().length, 2);
        verify(rows()[1].hasKeyboard);

        world.ticker.removeDeadline(rows()[0].deadlineId);
        verify(rows()[0].hasKeyboard);
    }

    function test_theKeyboardStaysWhereTheClockMovesOn() {
        add("one", 1);
        add("two", 120);
        rows()[0].takeKeyboard();

        world.advance(3);

        verify(rows()[0].hasKeyboard);
    }

    function test_tabVisitsEverythingInOrderOfSight() {
        add("one", 1);
        type("exam");
        const names = ["Clear all", "one", "Deadline name", "Due date, day", "Due date, month",
            "Due date, year", "Due date, hour", "Due date, minute", "Due date", "Add Deadline"];
        buttonOf(options, "Clear all").forceActiveFocus(Qt.TabFocusReason);
        const visited = [];
        for (let i = 0; i < names.length; ++i) {
            visited.push(testCase.Window.activeFocusItem.Accessible.name);
            tab();
        }

        compare(visited, names);
    }

    function test_everythingIsToldByItsName() {
        add("exam 🚀", 3700);

        const told = reader.told(options);
        for (const line of ["StaticText UPCOMING", "StaticText 1 active", "Button Clear all", "ListItem exam 🚀",
                "Button Remove exam 🚀", "StaticText ADD DEADLINE",
                "EditableText Deadline name", "SpinBox Due date, day", "SpinBox Due date, minute",
                "Button Due date", "Button Add Deadline"])
            verify(told.includes(line), line);
    }

    function test_aScreenReaderDoesEverything() {
        field().text = "exam";
        verify(reader.setNumber(options, "Due date, day", 20));
        verify(reader.setNumber(options, "Due date, hour", 23));
        verify(reader.press(options, "Add Deadline"));
        compare(world.deadlines(), ["exam 2026-05-20T22:05:00Z"]);

        verify(reader.press(options, "Remove exam"));
        compare(world.deadlines(), []);

        add("other", 5);
        verify(reader.press(options, "Clear all"));
        compare(world.storedDeadlines(), []);
    }
}
