import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "DateTimePicker"

    // As it is used: the entry is a form's.
    Component {
        id: pickers

        DateTimePicker {
            id: picker

            readonly property DeadlineForm form: DeadlineForm {
                ticker: testCase.world.ticker
            }

            width: 300
            entry: form.date
        }
    }
    Component {
        id: panels

        SettingsPanel {
            width: implicitWidth
            height: implicitHeight
            ticker: testCase.world.ticker
            host: testCase.world.host
        }
    }
    SignalSpy {
        id: closings
        signalName: "closeRequested"
    }

    property DateTimePicker picker: null

    function init() {
        makeWorld();
        picker = make(pickers);
    }

    function open(locale: string) {
        world.setLocale(locale);
        picker = make(pickers);
    }

    function segments(): var {
        return all(picker, DateTimeSegment);
    }

    function segment(name: string): Item {
        return segments().find(segment => segment.name === "Due date, " + name) ?? null;
    }

    function shown(): string {
        return segments().map(segment => segment.text).join(" ");
    }

    function button(): Item {
        return all(picker, PlainButton).find(button => button.Accessible.name === "Due date");
    }

    function calendar(): Item {
        return all(picker, CalendarView)[0] ?? null;
    }

    function day(name: string): Item {
        return all(picker, CalendarDay).find(day => day.name === name) ?? null;
    }

    function focused(): string {
        return testCase.Window.activeFocusItem.Accessible.name;
    }

    function press(keys: var) {
        for (const key of keys)
            keyClick(key);
    }

    function openByKeyboard() {
        button().forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        verify(calendar() !== null);
        verify(waitForRendering(picker));
    }

    function test_looksLikeTheFieldAboveIt() {
        const box = button().parent;

        compareInk(box.color, 0.04);
        compareInk(box.borderColor, 0.12);
        compare(box.borderWidth, 1.5);
        compare(box.radius, 8);
        compare(box.width, 300);
        compareFont(textOf(picker, "2026"), 13, 400);
        compare(areaOf(all(button(), SymbolImage)[0], picker).right, 288);
        compare(all(button(), SymbolImage)[0].name, "calendar");
        compare(calendar(), null);
        compare(picker.height, box.height);
    }

    function test_showsTheFieldsInTheLocalesOrder_data() {
        return [
            {tag: "en_US", expected: "05 05 2026 9 05 AM", first: "month", separators: ["/", "/", "", ":", "\u202F", ""]},
            {tag: "en_GB", expected: "05 05 2026 09 05", first: "day", separators: ["/", "/", "", ":", ""]},
            {tag: "de_DE", expected: "05 05 2026 09 05", first: "day", separators: [".", ".", "", ":", ""]},
            {tag: "ja_JP", expected: "2026 05 05 9 05", first: "year", separators: ["/", "/", "", ":", ""]},
            {tag: "ar_EG", expected: "٢٠٢٦ ٠٥ ٠٥ ص ٩ ٠٥", first: "year", separators: ["/", "/", "", " ", ":", ""]}
        ];
    }

    function test_showsTheFieldsInTheLocalesOrder(row) {
        open(row.tag);

        compare(shown(), row.expected);
        compare(segments()[0].name, "Due date, " + row.first);
        compare(segments().map(segment => segment.parent.separator), row.separators);
        const areas = segments().map(segment => areaOf(segment, picker));
        for (let i = 1; i < areas.length; ++i)
            verify(areas[i].x >= areas[i - 1].right);
        verify(areas[areas.length - 1].right < areaOf(button(), picker).x);
    }

    function test_theFieldsKeepTheirPlaceWhateverTheyShow() {
        const places = () => segments().map(segment => segment.x + segment.parent.x);
        const before = places();

        segment("day").forceActiveFocus();
        press(["1", "1", "1", "1", "1", "1", "1", "1", "1", "1", "1", "1"]);

        compare(places(), before);
    }

    function test_digitsFillFieldAfterField() {
        mouseClick(segments()[0]);
        verify(segments()[0].activeFocus);

        press(["3", "1", "1", "2", "2", "0", "2", "7", "2", "3", "5", "9"]);

        compare(shown(), "31 12 2027 23 59");
        verify(segment("minute").activeFocus);
    }

    function test_aClickGoesToItsField() {
        mouseClick(segment("hour"));
        verify(segment("hour").activeFocus);

        mouseClick(picker, 220, 16);

        verify(segments()[0].activeFocus);
        compare(calendar(), null);
    }

    function test_aHalfTypedNumberCountsWhenTheKeyboardMovesOn() {
        segment("month").forceActiveFocus(Qt.TabFocusReason);

        keyClick("1");
        compare(segment("month").text, "1");
        tab();

        verify(segment("year").activeFocus);
        compare(segment("month").text, "01");
        tab(3);
        compare(shown(), "04 05 2026 09 05");
    }

    function test_theArrowKeysStepAndMove() {
        segment("day").forceActiveFocus(Qt.TabFocusReason);

        press([Qt.Key_Up, Qt.Key_Right, Qt.Key_Down, Qt.Key_Left, Qt.Key_Up]);

        verify(segment("day").activeFocus);
        compare(shown(), "07 04 2026 09 05");
    }

    function test_theLetterChoosesTheDayPeriod() {
        open("en_US");
        segment("AM or PM").forceActiveFocus(Qt.TabFocusReason);

        keyClick("p");
        compare(segment("AM or PM").text, "PM");
        keyClick(Qt.Key_Down);
        compare(segment("AM or PM").text, "AM");
    }

    function test_theFieldWithTheKeyboardStandsOut() {
        const box = button().parent;

        segment("day").forceActiveFocus(Qt.TabFocusReason);

        verify(isColor(textOf(picker, "05").color, Appearance.background));
        tryVerify(() => isColor(box.borderColor, Appearance.accent, 1));
    }

    function test_thePastIsSettledWhenTheKeyboardLeaves() {
        segment("day").forceActiveFocus(Qt.TabFocusReason);
        press(["0", "1", "0", "1"]);
        compare(shown(), "01 01 2026 09 05");

        tab(3);

        verify(button().visualFocus);
        compare(shown(), "04 05 2026 09 05");
    }

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
        compare(reader.description(picker, "Due date, AM or PM"), "AM");
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
