import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "EntryRow"

    Component {
        id: rows

        EntryRow {
            width: 300
            buttonText: "Add"
            placeholderText: "stay curious ✦"
        }
    }

    SignalSpy {
        id: entries
        signalName: "entered"
    }

    property EntryRow row: null

    function init() {
        makeWorld();
        row = make(rows);
        entries.target = row;
        entries.clear();
    }

    function field(): Item {
        return all(row, BorderedField)[0];
    }

    function button(): Item {
        return buttonOf(row, "Add");
    }

    function test_theFieldTakesTheRoomBesideTheButton() {
        compare(areaOf(field(), row).left, 0);
        compare(areaOf(button(), row).left - areaOf(field(), row).right, 6);
        compare(areaOf(button(), row).right, 300);
        compare(button().height, field().height);
        compare(row.height, field().height);
    }

    function test_hasItsMeasures() {
        compareFont(field(), 12, 400);
        compare(field().leftPadding, 10);
        compare(field().rightPadding, 10);
        compare(field().topPadding, 7);
        compare(field().bottomPadding, 7);
        compare(field().background.radius, 7);
        compare(field().background.borderWidth, 1.5);
        compareInk(field().background.color, 0.04);
        compareInk(field().background.borderColor, 0.12);
        compareFont(textOf(button(), "Add"), 11, 400);
        compare(button().leftPadding, 10);
        compare(button().rightPadding, 10);
        compare(button().topPadding, 7);
        compare(button().bottomPadding, 7);
        compareInk(button().background.color, 0.07);
        verify(textOf(field(), "stay curious ✦") !== null);
    }

    function test_canBeLower() {
        const height = row.height;

        row.verticalPadding = 6;

        compare(field().topPadding, 6);
        compare(button().bottomPadding, 6);
        tryCompare(row, "height", height - 2);
    }

    function test_canBeMonospaced() {
        row.fontFamily = Appearance.monospacedFamily;

        compare(field().font.family, Appearance.monospacedFamily);
    }

    function test_returnAndTheButtonTakeWhatIsTyped_data() {
        return [{tag: "return"}, {tag: "enter"}, {tag: "button"}];
    }

    function test_returnAndTheButtonTakeWhatIsTyped(data) {
        mouseClick(field());
        for (const letter of "btc ")
            keyClick(letter);

        if (data.tag === "button")
            mouseClick(button());
        else
            keyClick(data.tag === "return" ? Qt.Key_Return : Qt.Key_Enter);

        compare(entries.count, 1);
        compare(entries.signalArguments[0][0], "btc ");
        compare(row.text, "btc ");
    }

    function test_nothingIsTakenToo() {
        mouseClick(button());

        compare(entries.signalArguments[0][0], "");
    }

    function test_theKeyboardLeavesTheField() {
        mouseClick(field());
        verify(field().activeFocus);
        tryVerify(() => isColor(field().background.borderColor, Appearance.accent));

        row.leaveKeyboard();

        verify(!field().activeFocus);
        tryVerify(() => isColor(field().background.borderColor, Appearance.ink, 0.12));
    }

    function test_isEmptied() {
        row.text = "btc";

        row.clear();

        compare(field().text, "");
    }

    function test_isToldByItsName() {
        compare(reader.told(row), ["EditableText stay curious ✦", "Button Add"]);
        row.fieldName = "CURRENCY";
        verify(reader.told(row).includes("EditableText CURRENCY"));
    }
}
