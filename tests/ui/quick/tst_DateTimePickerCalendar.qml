import QtQuick
import QtTest
import Glimmet

DateTimePickerCase {
    id: testCase
    name: "DateTimePickerCalendar"

    function test_theSymbolOpensTheCalendarBelow() {
        mouseClick(button());
        verify(waitForRendering(picker));

        verify(calendar() !== null);
        compare(areaOf(calendar(), picker).y - areaOf(button().parent, picker).bottom, 6);
        compare(calendar().width, 300);
        compare(picker.height, areaOf(calendar(), picker).bottom);
        verify(textOf(calendar(), "May 2026") !== null);
        compare(all(calendar(), CalendarDay).length, 42);
        verify(all(calendar(), CalendarDay).every(day => areaOf(day, calendar()).right <= 300 - 8));
        compare(focused(), "Tuesday, 5 May 2026");
        mouseClick(button());
        compare(calendar(), null);
    }

    function test_theWeekStartsAsTheLocaleSays_data() {
        return [{tag: "en_US", first: "Su", day: "Sunday, April 26, 2026"},
            {tag: "de_DE", first: "Mo.", day: "Montag, 27. April 2026"}];
    }

    function test_theWeekStartsAsTheLocaleSays(row) {
        open(row.tag);
        openByKeyboard();

        const label = textOf(calendar(), row.first);
        verify(all(calendar(), Text).every(text => text.font.pixelSize !== 9 || text.x >= label.x));
        compare(all(calendar(), CalendarDay)[0].name, row.day);
    }

    function test_theWeekRunsFromRightToLeftWhereTheScriptDoes_data() {
        return [{tag: "ar_EG"}, {tag: "he_IL"}, {tag: "fa_IR"}];
    }

    function test_theWeekRunsFromRightToLeftWhereTheScriptDoes(row) {
        open(row.tag);
        openByKeyboard();
        const days = all(calendar(), CalendarDay);
        const weekdays = all(calendar(), Text).filter(text => text.font.pixelSize === 9);

        for (let i = 1; i < 7; ++i) {
            verify(areaOf(days[i], calendar()).right <= areaOf(days[i - 1], calendar()).x + 0.01);
            verify(areaOf(weekdays[i], calendar()).right <= areaOf(weekdays[i - 1], calendar()).x + 0.01);
        }
        fuzzyCompare(areaOf(weekdays[0], calendar()).x, areaOf(days[0], calendar()).x, 0.01);
        const [back, next] = all(calendar(), PlainButton);
        const title = textOf(calendar(), picker.calendar.title);
        verify(areaOf(next, calendar()).right <= areaOf(back, calendar()).x);
        verify(areaOf(back, calendar()).right <= areaOf(title, calendar()).x);
        compare([next.symbol, back.symbol], ["chevron.left", "chevron.right"]);

        const before = areaOf(days[picker.calendar.cursorRow], calendar());
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Left);
        const after = areaOf(days[picker.calendar.cursorRow], calendar());
        verify(days[picker.calendar.cursorRow].visualFocus);
        verify(after.right <= before.x + 0.01);
    }

    function test_todayIsThatOfAnotherTimeZone() {
        openByKeyboard();
        world.setZone("Pacific/Kiritimati");
        world.setNow("2026-05-04T10:30:00Z");

        world.advance(1);

        compareAccent(day("Tuesday, 5 May 2026").contentItem.color, 1);
        verify(!day("Monday, 4 May 2026").enabled);
        compare(shown(), "06 05 2026 00 30");
    }

    function test_theKeyboardLeavesADayThatPasses() {
        openByKeyboard();
        press([Qt.Key_PageUp]);
        compare(focused(), "Monday, 4 May 2026");

        world.setNow("2026-05-04T23:00:00Z");
        world.advance(1);

        verify(calendar() !== null);
        verify(!day("Monday, 4 May 2026").enabled);
        compare(focused(), "Tuesday, 5 May 2026");
        verify(day("Tuesday, 5 May 2026").visualFocus);
    }

    function test_aDayBeforeTodayCannotBeChosen() {
        mouseClick(button());
        verify(waitForRendering(picker));
        verify(!day("Sunday, 3 May 2026").enabled);
        verify(day("Monday, 4 May 2026").enabled);

        mouseClick(day("Sunday, 3 May 2026"));

        verify(calendar() !== null);
        compare(shown(), "05 05 2026 09 05");
    }

    function test_aClickChoosesTheDay() {
        mouseClick(button());
        verify(waitForRendering(picker));

        mouseClick(day("Thursday, 21 May 2026"));

        compare(calendar(), null);
        compare(shown(), "21 05 2026 09 05");
        verify(button().activeFocus);
        verify(!button().visualFocus);
    }

    function test_theChosenDayAndTodayStandOut() {
        openByKeyboard();

        compareInk(day("Tuesday, 5 May 2026").background.color, 1);
        verify(isColor(day("Tuesday, 5 May 2026").contentItem.color, Appearance.background));
        compareAccent(day("Monday, 4 May 2026").contentItem.color, 1);
        compareInk(day("Wednesday, 6 May 2026").contentItem.color, 1);
        compareInk(day("Monday, 1 June 2026").contentItem.color, 0.4);
        compare(day("Friday, 1 May 2026").opacity, 0.25);
    }

    function test_theKeyboardChoosesADay() {
        openByKeyboard();
        verify(day("Tuesday, 5 May 2026").visualFocus);

        press([Qt.Key_Down, Qt.Key_Right, Qt.Key_PageDown]);
        compare(focused(), "Saturday, 13 June 2026");
        verify(textOf(calendar(), "June 2026") !== null);
        press([Qt.Key_Home]);
        compare(focused(), "Monday, 8 June 2026");
        press([Qt.Key_End, Qt.Key_Up, Qt.Key_Left]);
        compare(focused(), "Saturday, 6 June 2026");
        keyClick(Qt.Key_Return);

        compare(calendar(), null);
        compare(shown(), "06 06 2026 09 05");
        verify(button().visualFocus);
    }

    function test_theKeyboardStopsAtToday() {
        openByKeyboard();

        press([Qt.Key_PageUp]);
        compare(focused(), "Monday, 4 May 2026");
        press([Qt.Key_Up, Qt.Key_Left]);

        compare(focused(), "Monday, 4 May 2026");
    }

    function test_theMonthButtonsTurnThePage() {
        mouseClick(button());
        verify(waitForRendering(picker));
        const [back, next] = all(calendar(), PlainButton);
        verify(!back.enabled);

        mouseClick(next);
        verify(textOf(calendar(), "June 2026") !== null);
        verify(back.enabled);
        mouseClick(back);

        verify(textOf(calendar(), "May 2026") !== null);
        verify(!back.enabled);
    }

    function test_theKeyboardGoesToTheDaysWhereThereIsNoMonthBefore() {
        openByKeyboard();
        press([Qt.Key_PageDown, Qt.Key_Backtab, Qt.Key_Backtab]);
        compare(focused(), "Previous month");

        keyClick(Qt.Key_Space);

        compare(focused(), "Tuesday, 5 May 2026");
    }

    function test_tabVisitsTheCalendarOnce() {
        openByKeyboard();
        button().forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Right);
        const visited = [];
        for (let i = 0; i < 3; ++i) {
            tab();
            visited.push(focused());
        }

        // There is no month before this one.
        compare(visited.slice(0, 2), ["Next month", "Tuesday, 5 May 2026"]);
        verify(!visited[2].endsWith("May 2026"));
    }

    function test_theCalendarClosesWhenTheKeyboardLeaves() {
        openByKeyboard();

        testCase.forceActiveFocus();

        compare(calendar(), null);
    }

    function test_everyFieldIsANumberToAScreenReader() {
        open("en_US");

        compare(reader.numbers(picker, "Due date, month"), [1, 5, 12]);
        compare(reader.numbers(picker, "Due date, day"), [1, 5, 31]);
        compare(reader.numbers(picker, "Due date, year"), [2026, 2026, 9999]);
        compare(reader.numbers(picker, "Due date, hour"), [1, 9, 12]);
        compare(reader.numbers(picker, "Due date, minute"), [0, 5, 59]);
        compare(reader.numbers(picker, "Due date, AM or PM"), [0, 0, 1]);
        compare(reader.shownText(picker, "Due date, AM or PM"), "AM");
    }

    function test_aScreenReaderSetsAndStepsTheFields() {
        verify(reader.setNumber(picker, "Due date, day", 20));
        compare(reader.numbers(picker, "Due date, day"), [1, 20, 31]);
        verify(reader.act(picker, "Due date, minute", "Increase"));
        verify(reader.act(picker, "Due date, hour", "Decrease"));

        compare(shown(), "20 05 2026 08 06");
    }

    function test_aNumberBeyondTheRangeIsNotKept() {
        verify(reader.setNumber(picker, "Due date, hour", 99));
        compare(reader.numbers(picker, "Due date, hour"), [0, 23, 23]);
        verify(reader.setNumber(picker, "Due date, hour", 99));
        compare(reader.numbers(picker, "Due date, hour"), [0, 23, 23]);

        segment("hour").forceActiveFocus();
        keyClick(Qt.Key_Down);

        compare(reader.numbers(picker, "Due date, hour"), [0, 22, 23]);
    }

    function test_aScreenReaderChoosesADay() {
        verify(reader.press(picker, "Due date"));
        verify(reader.press(picker, "Next month"));
        verify(reader.press(picker, "Friday, 12 June 2026"));

        compare(calendar(), null);
        compare(shown(), "12 06 2026 09 05");
    }

    function test_aClosedCalendarIsNotTold() {
        verify(reader.press(picker, "Due date"));
        verify(reader.told(picker).includes("Button Tuesday, 5 May 2026"));

        verify(reader.press(picker, "Due date"));

        compare(reader.told(picker).filter(line => line.startsWith("Button")), ["Button Due date"]);
    }

    function test_escapeClosesTheCalendarBeforeThePanel() {
        world.ticker.mode = TickerMode.Deadline;
        const panel = make(panels);
        picker = all(panel, DateTimePicker)[0];
        closings.target = world.host;
        closings.clear();
        openByKeyboard();

        keyClick(Qt.Key_Escape);
        compare(calendar(), null);
        verify(button().visualFocus);
        compare(closings.count, 0);
        keyClick(Qt.Key_Escape);

        compare(closings.count, 1);
    }

    function test_theKeyboardComesBackFromWhereverItWas() {
        openByKeyboard();
        press([Qt.Key_Backtab]);
        compare(focused(), "Next month");

        keyClick(Qt.Key_Escape);

        compare(calendar(), null);
        verify(button().visualFocus);
    }

    function test_thePanelScrollsToTheWholeCalendar_data() {
        return [{tag: "by mouse"}, {tag: "by keyboard"}];
    }

    function test_thePanelScrollsToTheWholeCalendar(row) {
        world.ticker.mode = TickerMode.Deadline;
        const panel = make(panels);
        picker = all(panel, DateTimePicker)[0];
        const middle = all(panel, ScrollArea)[0];

        button().forceActiveFocus(Qt.TabFocusReason);
        if (row.tag === "by mouse")
            mouseClick(button());
        else
            keyClick(Qt.Key_Space);

        tryVerify(() => areaOf(calendar(), middle).bottom <= middle.height);
        verify(areaOf(calendar(), middle).y >= 0);
    }
}
