import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    name: "CalendarDay"

    CalendarDay {
        id: day
        width: 40
        label: "5"
        name: "Tuesday, 5 May 2026"
        isInMonth: true
        isOffered: true
        isToday: false
        isChosen: false
        isCursor: false
    }
    SignalSpy {
        id: clicks
        target: day
        signalName: "clicked"
    }

    function init() {
        day.focus = false;
        day.isInMonth = true;
        day.isOffered = true;
        day.isToday = false;
        day.isChosen = false;
        day.isCursor = false;
        clicks.clear();
    }

    function test_showsItsNumberInTheMiddle() {
        const label = textOf(day, "5");

        compareFont(label, 12, 400);
        compareInk(label.color, 1);
        compare(label.horizontalAlignment, Text.AlignHCenter);
        compare(day.height, 28);
    }

    function test_standsOutByWhatItIs_data() {
        return [
            {tag: "chosen", property: "isChosen", value: true, color: Appearance.background, opacity: 1, weight: 600},
            {tag: "today", property: "isToday", value: true, color: Appearance.accent, opacity: 1, weight: 600},
            {tag: "of another month", property: "isInMonth", value: false, color: Appearance.ink, opacity: 0.4,
                weight: 400}
        ];
    }

    function test_standsOutByWhatItIs(row) {
        day[row.property] = row.value;

        const label = textOf(day, "5");
        verify(isColor(label.color, row.color, row.opacity));
        compareFont(label, 12, row.weight);
    }

    function test_aChosenOneIsFilledWithInk() {
        compareInk(day.background.color, 0);

        day.isChosen = true;

        compareInk(day.background.color, 1);
    }

    function test_isAStopOfTheTabKeyOnlyUnderTheCursor() {
        verify(!day.activeFocusOnTab);

        day.isCursor = true;

        verify(day.activeFocusOnTab);
    }

    function test_isChosenByMouseKeysAndScreenReader() {
        mouseClick(day);
        compare(clicks.count, 1);
        day.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        keyClick(Qt.Key_Enter);
        keyClick(Qt.Key_Space);
        compare(clicks.count, 4);
        verify(reader.press(day, "Tuesday, 5 May 2026"));
        compare(clicks.count, 5);
    }

    function test_isToldAsSelectedWhereItIsChosen() {
        verify(!reader.isSelected(day, "Tuesday, 5 May 2026"));

        day.isChosen = true;

        verify(reader.isSelected(day, "Tuesday, 5 May 2026"));
    }

    function test_aHeldKeyChoosesOnce_data() {
        return [{tag: "Space", key: Qt.Key_Space}, {tag: "Return", key: Qt.Key_Return},
            {tag: "Enter", key: Qt.Key_Enter}];
    }

    function test_aHeldKeyChoosesOnce(row) {
        day.forceActiveFocus(Qt.TabFocusReason);

        keyboard.hold(day.Window.window, row.key, 5);

        compare(clicks.count, 1);
    }

    function test_oneThatIsNotOfferedIsDimAndCannotBeClicked() {
        day.isOffered = false;

        mouseClick(day);

        compare(day.opacity, 0.25);
        compare(clicks.count, 0);
    }
}
