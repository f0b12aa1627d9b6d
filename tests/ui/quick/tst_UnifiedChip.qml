import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    name: "UnifiedChip"

    UnifiedChip {
        id: chip
        label: "Orders"
        symbol: "bag"
        selected: false
    }
    SignalSpy {
        id: taps
        target: chip
        signalName: "tapped"
    }

    function init() {
        chip.selected = false;
        chip.symbol = "bag";
        taps.clear();
        tryVerify(() => isColor(chip.labelColor, Appearance.ink, 0.7));
        tryVerify(() => isColor(chip.background.color, Appearance.ink, 0.07));
        tryVerify(() => isColor(chip.background.borderColor, Appearance.ink, 0.13));
    }

    function symbol(): Item {
        return all(chip, SymbolImage)[0];
    }

    function label(): Item {
        return textOf(chip, "Orders");
    }

    function test_aHeldKeyTapsOnce_data() {
        return [{tag: "Space", key: Qt.Key_Space}, {tag: "Return", key: Qt.Key_Return},
            {tag: "Enter", key: Qt.Key_Enter}];
    }

    function test_aHeldKeyTapsOnce(row) {
        chip.forceActiveFocus(Qt.TabFocusReason);

        keyboard.hold(chip.Window.window, row.key, 5);

        compare(taps.count, 1);
    }

    function test_showsItsSymbolBesideItsLabel() {
        compare(symbol().name, "bag");
        compare(symbol().width, 9);
        compareFont(label(), 10, 400);
        verify(areaOf(symbol(), chip).right < areaOf(label(), chip).left);
    }

    function test_isAsLargeAsItsContentAndItsPaddings() {
        fuzzyCompare(areaOf(symbol(), chip).left, 7, 1);
        fuzzyCompare(chip.width - areaOf(label(), chip).right, 7, 1);
        fuzzyCompare(areaOf(label(), chip).top, 6, 1);
        fuzzyCompare(chip.height - areaOf(label(), chip).bottom, 6, 1);
    }

    function test_withoutASymbolItIsItsLabel() {
        chip.symbol = "";

        tryVerify(() => !symbol().visible);
        tryVerify(() => Math.abs(areaOf(label(), chip).left - 7) <= 1);
        fuzzyCompare(chip.width - areaOf(label(), chip).right, 7, 1);
    }

    function test_changesAtOnceWhereLessMotionIsWished() {
        desktop.wish(false, true);

        chip.selected = true;

        verify(isColor(chip.labelColor, Appearance.background));
        verify(isColor(chip.symbolColor, Appearance.background));
        verify(isColor(chip.background.color, Appearance.ink));
    }

    function test_isFaintInAHairlineWhenItIsNotSelected() {
        compareInk(symbol().color, 0.7);
        compareInk(label().color, 0.7);
        compareInk(chip.background.color, 0.07);
        compareInk(chip.background.borderColor, 0.13);
        compare(chip.background.borderWidth, 1);
        compare(chip.background.radius, 7);
    }

    function test_isFilledWithInkWhenItIsSelected() {
        chip.selected = true;

        verify(!isColor(chip.background.color, Appearance.ink));
        tryVerify(() => isColor(chip.background.color, Appearance.ink));
        tryVerify(() => isColor(symbol().color, Appearance.background));
        tryVerify(() => isColor(label().color, Appearance.background));
        compare(chip.duration, 150);
    }

    function test_aClickTapsIt_data() {
        return [{tag: "not selected", selected: false}, {tag: "selected", selected: true}];
    }

    function test_aClickTapsIt(row) {
        chip.selected = row.selected;

        mouseClick(chip);

        compare(taps.count, 1);
    }

    function test_isToldAsARadioButton() {
        compare(reader.told(chip), ["RadioButton Orders [ ]"]);
        chip.selected = true;
        compare(reader.told(chip), ["RadioButton Orders [x]"]);
    }
}
