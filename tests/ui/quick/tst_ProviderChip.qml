import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    name: "ProviderChip"

    ProviderChip {
        id: chip
        width: 147
        provider: RevenueProvider.RevenueCat
        selected: false
    }
    SignalSpy {
        id: taps
        target: chip
        signalName: "tapped"
    }

    function init() {
        chip.selected = false;
        chip.focus = false;
        taps.clear();
        tryVerify(() => isColor(chip.labelColor, Appearance.ink, 0.7));
        tryVerify(() => isColor(chip.background.color, Appearance.ink, 0.07));
    }

    function symbol(): Item {
        return all(chip, SymbolImage)[0];
    }

    function label(): Item {
        return textOf(chip, "RevenueCat");
    }

    function test_showsItsSymbolBesideItsLabel() {
        compare(symbol().name, "chart.bar.fill");
        compare(symbol().width, 10);
        compareFont(label(), 11, 400);
        verify(areaOf(symbol(), chip).right < areaOf(label(), chip).left);
    }

    function test_isPaddedAndStandsInTheMiddle() {
        const left = areaOf(symbol(), chip).left;
        const right = areaOf(label(), chip).right;

        compare(chip.leftPadding, 9);
        compare(chip.rightPadding, 9);
        fuzzyCompare(areaOf(label(), chip).top, 7, 1);
        fuzzyCompare(chip.height - areaOf(label(), chip).bottom, 7, 1);
        // Qt centres on whole pixels, half a pixel off for the chip's odd width and half a one for the rounding.
        fuzzyCompare(left, chip.width - right, 2);
    }

    function test_isFaintAndWithoutABorderWhenItIsNotSelected() {
        compareInk(symbol().color, 0.7);
        compareInk(label().color, 0.7);
        compareInk(chip.background.color, 0.07);
        compare(chip.background.borderColor.a, 0);
        compare(chip.background.radius, 7);
    }

    function test_isFilledWithInkWhenItIsSelected() {
        chip.selected = true;

        tryVerify(() => isColor(chip.background.color, Appearance.ink));
        tryVerify(() => isColor(symbol().color, Appearance.background));
        tryVerify(() => isColor(label().color, Appearance.background));
    }

    function test_itsColorsPassOver() {
        chip.selected = true;

        compare(chip.duration, 150);
        verify(!isColor(chip.background.color, Appearance.ink));
        verify(!isColor(label().color, Appearance.background));
        tryVerify(() => isColor(chip.background.color, Appearance.ink));
    }

    function test_aClickTapsIt_data() {
        return [{tag: "not selected", selected: false}, {tag: "selected", selected: true}];
    }

    function test_aClickTapsIt(row) {
        chip.selected = row.selected;

        mouseClick(chip);

        compare(taps.count, 1);
    }

    function test_spaceReturnAndEnterTapIt_data() {
        return [{key: Qt.Key_Space}, {key: Qt.Key_Return}, {key: Qt.Key_Enter}];
    }

    function test_spaceReturnAndEnterTapIt(row) {
        chip.forceActiveFocus(Qt.TabFocusReason);

        keyClick(row.key);

        compare(taps.count, 1);
    }

    function test_showsItsFocusToTheKeyboardOnly() {
        const ring = all(chip, FocusRing)[0];
        mouseClick(chip);
        verify(!ring.visible);

        chip.forceActiveFocus(Qt.TabFocusReason);

        verify(ring.visible);
        compare(ring.cornerRadius, 7);
    }

    function test_isToldAsARadioButton() {
        compare(reader.told(chip), ["RadioButton RevenueCat [ ]"]);
        chip.selected = true;
        compare(reader.told(chip), ["RadioButton RevenueCat [x]"]);
    }

    function test_aScreenReaderTapsItOnce() {
        verify(reader.press(chip, "RevenueCat"));

        compare(taps.count, 1);
    }
}
