import QtQuick
import Glimmet

// Adding a deadline.
DeadlineOptionsCase {
    name: "DeadlineOptionsForm"

    function test_theFieldHasItsMeasures() {
        compareFont(textOf(field(), "Name (e.g. Math Exam)"), 13, 400);
        compare(field().font.pixelSize, 13);
        compare(field().leftPadding, 12);
        compare(field().rightPadding, 12);
        compare(field().topPadding, 9);
        compare(field().bottomPadding, 9);
        compare(field().background.radius, 8);
        compare(field().background.borderWidth, 1.5);
        compareInk(field().background.color, 0.04);
        compareInk(field().background.borderColor, 0.12);
    }

    function test_theFieldsBorderTakesTheAccentWithTheFocus() {
        mouseClick(field());

        tryVerify(() => isColor(field().background.borderColor, Appearance.accent, 1));
    }

    function test_theButtonHasItsMeasures() {
        type("exam");
        const label = textOf(options, "Add Deadline");

        compareFont(label, 12, 400);
        verify(isColor(label.color, Appearance.background));
        compareInk(addButton().background.color, 1);
        compare(addButton().background.radius, 8);
        compare(addButton().topPadding, 9);
        compare(addButton().bottomPadding, 9);
        compare(addButton().width, 300);
        fuzzyCompare(areaOf(label, options).x + label.width / 2, 150, 1);
    }

    function test_aNameOfBlanksOnlyCannotBeAdded_data() {
        return [{tag: "nothing", name: ""}, {tag: "blanks", name: "   "}, {tag: "wide blanks", name: "\t\u3000"}];
    }

    function test_aNameOfBlanksOnlyCannotBeAdded(data) {
        mouseClick(field());
        field().text = data.name;
        verify(!addButton().enabled);

        keyClick(Qt.Key_Return);
        mouseClick(addButton());

        compare(world.deadlines(), []);
        compare(world.storedDeadlines(), ["absent"]);
        compare(field().text, data.name);
    }

    function test_theButtonIsEnabledByAName() {
        verify(!addButton().enabled);
        type(" a");
        verify(addButton().enabled);
        keyClick(Qt.Key_Backspace);
        verify(!addButton().enabled);
    }

    function test_theButtonAddsTheTrimmedNameOneDayAhead() {
        type("  exam ");

        mouseClick(addButton());

        compare(world.deadlines(), ["exam 2026-05-05T08:05:07Z"]);
        compare(world.storedDeadlines(), ["exam 2026-05-05T08:05:07Z"]);
    }

    function test_returnInTheNameAdds() {
        type("exam");

        keyClick(Qt.Key_Return);

        compare(world.deadlines(), ["exam 2026-05-05T08:05:07Z"]);
    }

    function test_afterAddingTheFormIsNew() {
        type("exam");
        all(options, DateTimeSegment)[0].forceActiveFocus();
        keyClick("2");
        keyClick("0");
        compare(segments(), ["20", "05", "2026", "09", "05"]);
        world.advance(120);

        mouseClick(addButton());

        compare(world.deadlines(), ["exam 2026-05-20T08:05:00Z"]);
        compare(field().text, "");
        verify(!addButton().enabled);
        compare(segments(), ["05", "05", "2026", "09", "07"]);
    }

    function test_aDateThatPassedMeanwhileIsSavedAsNow() {
        type("exam");
        all(options, DateTimeSegment)[0].forceActiveFocus();
        keyClick("4");
        field().forceActiveFocus();
        compare(segments(), ["04", "05", "2026", "09", "05"]);
        world.advance(300);

        keyClick(Qt.Key_Return);

        compare(world.deadlines(), ["exam 2026-05-04T08:10:07Z"]);
    }

    function test_addingAPastDateSaysThatItWasMovedToNow() {
        type("exam");
        all(options, DateTimeSegment)[0].forceActiveFocus();
        keyClick("1");
        keyClick("/");
        const button = addButton();

        mouseClick(button);

        compare(world.deadlines(), ["exam 2026-05-04T08:05:07Z"]);
        const note = textOf(picker(), "That moment is past: it was moved to now.");
        verify(note !== null);
        verify(waitForRendering(options));
        compare(areaOf(button, options).y - areaOf(note, options).bottom, 12);
    }

    function test_theDefaultDoesNotPassWhileTheEditorIsOpen() {
        world.setNow("2026-05-05T08:05:06Z");
        world.advance(1);
        type("exam");

        keyClick(Qt.Key_Return);

        compare(world.deadlines(), ["exam 2026-05-06T08:05:07Z"]);
    }

    function test_theKeyboardStaysInADateThatBeginsAnew() {
        type("exam");
        const minute = all(options, DateTimeSegment)[4];
        mouseClick(minute);
        keyClick("7");

        mouseClick(addButton());

        compare(world.deadlines(), ["exam 2026-05-05T08:07:00Z"]);
        verify(minute.activeFocus);
        compare(minute.text, "05");
    }

    function test_theKeyboardGoesToTheNameAfterAddingByTheButton() {
        type("exam");
        addButton().forceActiveFocus(Qt.TabFocusReason);

        keyClick(Qt.Key_Space);

        compare(world.deadlines().length, 1);
        verify(field().activeFocus);
    }

    function test_returnInTheDateAdds_data() {
        return [{tag: "return", key: Qt.Key_Return}, {tag: "enter", key: Qt.Key_Enter}];
    }

    function test_returnInTheDateAdds(row) {
        type("exam");
        tab();
        for (const digit of "20")
            keyClick(digit);

        keyClick(row.key);

        compare(world.deadlines(), ["exam 2026-05-20T08:05:00Z"]);
        verify(field().activeFocus);
        compare(field().text, "");
        compare(segments(), ["05", "05", "2026", "09", "05"]);
    }

    function test_returnInTheDateAddsNothingWithoutAName() {
        const day = all(options, DateTimeSegment)[0];
        day.forceActiveFocus(Qt.TabFocusReason);
        keyClick("2");

        keyClick(Qt.Key_Return);

        compare(world.deadlines(), []);
        verify(day.activeFocus);
        compare(segments()[0], "04");
        verify(textOf(picker(), "That moment is past: it was moved to now.") !== null);
    }

    function test_aDateThatWasMovedIsSeenBeforeReturnAddsIt() {
        type("exam");
        const day = all(options, DateTimeSegment)[0];
        day.forceActiveFocus(Qt.TabFocusReason);
        keyClick("1");

        keyClick(Qt.Key_Return);
        compare(world.deadlines(), []);
        verify(day.activeFocus);
        verify(textOf(picker(), "That moment is past: it was moved to now.") !== null);

        keyClick(Qt.Key_Return);
        compare(world.deadlines(), ["exam 2026-05-04T08:05:07Z"]);
        verify(field().activeFocus);
    }

    function test_aHeldReturnInTheDateAddsOnce() {
        type("exam");
        all(options, DateTimeSegment)[0].forceActiveFocus(Qt.TabFocusReason);
        keyClick("1");

        keyboard.hold(options.Window.window, Qt.Key_Return, 5);

        compare(world.deadlines(), []);
    }

    function test_returnInTheCalendarOnlyChoosesTheDay() {
        type("exam");
        tab(6);
        keyClick(Qt.Key_Space);
        verify(waitForRendering(options));
        keyClick(Qt.Key_Right);

        keyClick(Qt.Key_Return);

        compare(world.deadlines(), []);
        compare(segments()[0], "06");
    }

    function test_aScreenReaderCannotAddWithoutAName() {
        reader.press(options, "Add Deadline");

        compare(world.deadlines(), []);
    }
}
