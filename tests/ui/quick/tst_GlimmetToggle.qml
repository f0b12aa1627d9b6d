import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    name: "GlimmetToggle"

    GlimmetToggle {
        id: toggle
        width: 300
        label: "Show seconds"
        on: false
    }
    SignalSpy {
        id: toggles
        target: toggle
        signalName: "toggled"
    }

    function init() {
        toggle.on = true;
        toggle.on = false;
        toggle.focus = false;
        tryCompare(knob(), "x", 2);
        toggles.clear();
    }

    function knob(): Item {
        return all(toggle.indicator, RoundedBox)[0];
    }

    function test_showsItsLabel() {
        const label = textOf(toggle, "Show seconds");

        compareFont(label, 13, 400);
        compareInk(label.color, 1);
        compare(areaOf(label, toggle).x, 12);
    }

    function test_isARoundedFaintRow() {
        compareInk(toggle.background.color, 0.05);
        compare(toggle.background.radius, 8);
        compare(toggle.topPadding, 9);
        compare(toggle.bottomPadding, 9);
        compare(toggle.height, 22 + 18);
    }

    function test_theSwitchStandsAtTheRight() {
        const area = areaOf(toggle.indicator, toggle);

        compare(area.right, 300 - 12);
        fuzzyCompare(area.width, 40 * 0.8, 0.01);
        fuzzyCompare(area.height, 22.5 * 0.8, 0.01);
        fuzzyCompare(area.y + area.height / 2, toggle.height / 2, 0.01);
    }

    function test_theSwitchTakesTheAccentWhenItIsOn() {
        const left = knob().x;

        toggle.on = true;

        tryVerify(() => isColor(toggle.indicator.color, Appearance.accent));
        tryVerify(() => knob().x > left);
        tryCompare(knob(), "x", toggle.indicator.width - knob().width - 2);
    }

    function test_theSwitchMovesAtOnceWhereLessMotionIsWished() {
        desktop.wish(false, true);

        toggle.on = true;

        verify(isColor(toggle.indicator.color, Appearance.accent));
        compare(knob().x, toggle.indicator.width - knob().width - 2);
    }

    function test_aClickAnywhereTogglesIt_data() {
        return [{tag: "label", x: 30}, {tag: "middle", x: 180}, {tag: "switch", x: 275}];
    }

    function test_aClickAnywhereTogglesIt(row) {
        mouseClick(toggle, row.x, 20);

        compare(toggles.count, 1);
        verify(toggle.checked);
    }

    function test_aHeldKeyTogglesOnce_data() {
        return [{tag: "Space", key: Qt.Key_Space}, {tag: "Return", key: Qt.Key_Return},
            {tag: "Enter", key: Qt.Key_Enter}];
    }

    function test_aHeldKeyTogglesOnce(row) {
        toggle.forceActiveFocus(Qt.TabFocusReason);

        keyboard.hold(toggle.Window.window, row.key, 5);

        compare(toggles.count, 1);
    }

    function test_spaceReturnAndEnterToggleIt_data() {
        return [{key: Qt.Key_Space}, {key: Qt.Key_Return}, {key: Qt.Key_Enter}];
    }

    function test_spaceReturnAndEnterToggleIt(row) {
        toggle.forceActiveFocus(Qt.TabFocusReason);

        keyClick(row.key);

        compare(toggles.count, 1);
        verify(toggle.checked);
    }

    function test_showsItsFocusToTheKeyboardOnly() {
        const ring = all(toggle, FocusRing)[0];
        mouseClick(toggle);
        verify(!ring.visible);

        toggle.forceActiveFocus(Qt.TabFocusReason);

        verify(ring.visible);
    }

    function test_isToldAsACheckBox() {
        compare(reader.told(toggle), ["CheckBox Show seconds [ ]"]);
        toggle.on = true;
        compare(reader.told(toggle), ["CheckBox Show seconds [x]"]);
    }

    function test_aScreenReaderTogglesItOnce() {
        verify(reader.toggle(toggle, "Show seconds"));

        compare(toggles.count, 1);
        verify(toggle.checked);
    }
}
