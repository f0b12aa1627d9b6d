import QtQuick
import QtTest
import Glimmet

DateTimePickerCase {
    id: testCase
    name: "DateTimePicker"

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
}
