import QtQuick
import QtTest
import Glimmet

DateTimePickerCase {
    id: testCase
    name: "DateTimePicker"

    SignalSpy {
        id: said
        signalName: "said"
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
            {tag: "ko_KR", expected: "2026 05 05 오전 9 05", first: "year", separators: [". ", ". ", ".", " ", ":", ""]}
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

    function test_aLineFromRightToLeftIsReadAndVisitedSo_data() {
        return [
            {tag: "ar_EG", line: "ص ٩:٠٥ ٢٠٢٦/٠٥/٠٥", read: ["day", "month", "year", "hour", "minute", "AM or PM"],
                seen: ["AM or PM", "hour", "minute", "year", "month", "day"]},
            {tag: "he_IL", line: "9:05 05.05.2026", read: ["day", "month", "year", "hour", "minute"],
                seen: ["hour", "minute", "day", "month", "year"]},
            {tag: "fa_IR", line: "۹:۰۵ ۲۰۲۶/۰۵/۰۵", read: ["year", "month", "day", "hour", "minute"],
                seen: ["hour", "minute", "year", "month", "day"]}
        ];
    }

    function test_aLineFromRightToLeftIsReadAndVisitedSo(row) {
        open(row.tag);
        const named = names => names.map(name => "Due date, " + name);

        compare(line(), row.line);
        segment(row.read[0]).forceActiveFocus(Qt.TabFocusReason);
        const read = [focused()];
        while (read.length < row.read.length) {
            tab();
            read.push(focused());
        }
        compare(read, named(row.read));

        segment(row.seen[0]).forceActiveFocus(Qt.TabFocusReason);
        const seen = [focused()];
        while (seen.length < row.seen.length) {
            keyClick(Qt.Key_Right);
            seen.push(focused());
        }
        compare(seen, named(row.seen));
        keyClick(Qt.Key_Left);
        compare(focused(), named(row.seen)[row.seen.length - 2]);
    }

    function test_noFieldLiesOverAnother_data() {
        return ["en_US", "ko_KR", "zh_TW", "ar_EG", "he_IL", "fa_IR"].map(name => ({tag: name}));
    }

    function test_noFieldLiesOverAnother(row) {
        open(row.tag);

        const areas = segments().map(segment => areaOf(segment, picker)).sort((one, other) => one.x - other.x);
        compare(areas[0].x, 10);
        for (let i = 1; i < areas.length; ++i)
            verify(areas[i].x >= areas[i - 1].right);
        verify(areas[areas.length - 1].right < areaOf(button(), picker).x);
    }

    function test_aMomentIsTypedAsPeopleWriteIt_data() {
        return [
            {tag: "de_DE", typed: "1.2.2027 9:15", line: "01.02.2027 09:15", last: "minute"},
            {tag: "de_DE, all digits", locale: "de_DE", typed: "01.02.2027, 09:15", line: "01.02.2027 09:15",
                last: "minute"},
            {tag: "de_DE, year first", locale: "de_DE", typed: "2027-02-01 9:15", line: "01.02.2027 09:15",
                last: "minute"},
            {tag: "en_US", typed: "1/2/2027, 1:30 PM", line: "01/02/2027 1:30 PM", last: "AM or PM"},
            {tag: "en_US, 24 hours", locale: "en_US", typed: "1/2/27 13:30", line: "01/02/2027 1:30 PM",
                last: "AM or PM"},
            {tag: "en_US_POSIX", typed: "1/2/27 1:30 pm", line: "01/02/2027 1:30 PM", last: "AM or PM"},
            {tag: "en_GB", typed: "1/2/27, 1:30", line: "01/02/2027 01:30", last: "minute"},
            {tag: "ko_KR", typed: "2027. 2. 1. p 1:30", line: "2027. 02. 01. 오후 1:30", last: "minute"},
            {tag: "zh_TW", typed: "2027/2/1 p1:30", line: "2027/02/01 下午1:30", last: "minute"},
            {tag: "ja_JP", typed: "2027-02-01 9:15", line: "2027/02/01 9:15", last: "minute"},
            {tag: "ar_EG", typed: "1/2/2027 1:30 p", line: "م ١:٣٠ ٢٠٢٧/٠٢/٠١", last: "AM or PM"},
            {tag: "he_IL", typed: "1.2.2027, 9:15", line: "9:15 01.02.2027", last: "minute"},
            {tag: "fa_IR", typed: "2027/2/1 9:15", line: "۹:۱۵ ۲۰۲۷/۰۲/۰۱", last: "minute"}
        ];
    }

    function test_aMomentIsTypedAsPeopleWriteIt(row) {
        open(row.locale ?? row.tag);
        segments()[0].forceActiveFocus(Qt.TabFocusReason);

        typeLetters(row.typed);

        verify(segment(row.last).activeFocus);
        testCase.forceActiveFocus();
        compare(line(), row.line);
    }

    function test_whatIsTypedIsAdded() {
        open("de_DE");
        segments()[0].forceActiveFocus(Qt.TabFocusReason);
        typeLetters("1.2.2027 9:15");
        keyClick(Qt.Key_Return);

        picker.form.title = "Exam";
        picker.form.add();

        compare(world.deadlines(), ["Exam 2027-02-01T09:15:00Z"]);
    }

    function test_aMonthIsTypedByItsName() {
        open("de_DE");
        segments()[0].forceActiveFocus(Qt.TabFocusReason);

        typeLetters("24. D");
        verify(segment("month").activeFocus);
        compare(shown(), "24 12 2026 09 05");
        typeLetters("ezember 2027 9:15");

        testCase.forceActiveFocus();
        compare(line(), "24.12.2027 09:15");
    }

    function test_aSeparatorThatComesTooLateSkipsNoField() {
        segment("day").forceActiveFocus(Qt.TabFocusReason);

        typeLetters("12");
        verify(segment("month").activeFocus);
        typeLetters("/ ");

        verify(segment("month").activeFocus);
        compare(shown(), "12 05 2026 09 05");
    }

    function test_aShortcutIsNotTyped() {
        segment("hour").forceActiveFocus(Qt.TabFocusReason);

        keyClick("p", Qt.AltModifier);
        keyClick("1", Qt.ControlModifier);

        verify(segment("hour").activeFocus);
        compare(shown(), "05 05 2026 09 05");
    }

    function test_anotherTimeZoneIsFollowed() {
        world.setZone("Asia/Tokyo");
        world.advance(1);
        compare(shown(), "05 05 2026 17 05");

        segments()[0].forceActiveFocus(Qt.TabFocusReason);
        typeLetters("1/2/27 9:15");
        world.setZone("America/New_York");
        world.advance(1);

        compare(shown(), "01 02 2027 09 15");
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

    readonly property string movedToNow: "That moment is past: it was moved to now."
    readonly property string movedToNearest: "That cannot be: it was moved to the nearest moment."

    function enter(letters: string) {
        segments()[0].forceActiveFocus(Qt.TabFocusReason);
        typeLetters(letters);
        testCase.forceActiveFocus();
    }

    function test_aNoteBelowSaysThatAPastMomentWasMoved() {
        const box = button().parent;
        enter("1/5/2026 9:15");
        verify(waitForRendering(picker));

        const note = textOf(picker, movedToNow);
        compare(shown(), "04 05 2026 09 05");
        compareFont(note, 10, 400);
        compareInk(note.color, 0.4);
        compare(areaOf(note, picker).y - areaOf(box, picker).bottom, 6);
        compare(picker.height, areaOf(note, picker).bottom);
        verify(note.paintedWidth <= 300);
        verify(reader.told(picker).includes("StaticText " + movedToNow));

        enter("9");
        verify(waitForRendering(picker));
        compare(textOf(picker, movedToNow), null);
        compare(picker.height, box.height);
        verify(!reader.told(picker).includes("StaticText " + movedToNow));
    }

    function test_aNoteBelowSaysThatWhatCannotBeWasMoved() {
        enter("31/2/2027 9:60");

        compare(shown(), "28 02 2027 09 59");
        verify(textOf(picker, movedToNearest) !== null);
    }

    function test_theNoteIsSaidByAScreenReader() {
        said.target = announcementIn(picker);
        said.clear();

        enter("1/5/2026 9:15");

        tryVerify(() => said.count === 1);
        compare(said.signalArguments[0][0], movedToNow);
    }

    function test_thePanelScrollsToTheNote() {
        world.ticker.mode = TickerMode.Deadline;
        const panel = make(panels);
        picker = all(panel, DateTimePicker)[0];
        segments()[0].forceActiveFocus(Qt.TabFocusReason);

        typeLetters("1/5/2026 9:15");
        tab();

        const middle = all(panel, ScrollArea)[0];
        verify(button().activeFocus);
        tryVerify(() => areaOf(textOf(picker, movedToNow), middle).bottom <= middle.height);
    }

    function test_theCalendarDropsDownBelowTheNote() {
        enter("1/5/2026 9:15");

        mouseClick(button());
        verify(waitForRendering(picker));

        compare(areaOf(calendar(), picker).y - areaOf(textOf(picker, movedToNow), picker).bottom, 6);
    }
}
