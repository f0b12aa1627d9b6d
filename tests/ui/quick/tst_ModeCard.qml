import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    name: "ModeCard"

    ModeCard {
        id: card
        width: 147
        label: "Clock"
        symbol: "clock"
        selected: false
    }
    SignalSpy {
        id: taps
        target: card
        signalName: "tapped"
    }

    function init() {
        card.selected = false;
        card.focus = false;
        taps.clear();
        tryVerify(() => isColor(card.labelColor, Appearance.ink, 0.7));
        tryVerify(() => isColor(card.background.color, Appearance.ink, 0.07));
    }

    function symbol(): Item {
        return all(card, SymbolImage)[0];
    }

    function test_showsItsSymbolAboveItsLabel() {
        const label = textOf(card, "Clock");

        compare(symbol().name, "clock");
        compare(symbol().size, 14);
        compare(symbol().width, 14);
        compare(label.font.pixelSize, 10);
        verify(areaOf(symbol(), card).bottom <= areaOf(label, card).top);
        fuzzyCompare(areaOf(symbol(), card).x + 7, card.width / 2, 0.5);
    }

    function test_isPadded() {
        compare(areaOf(symbol(), card).top, 10);
        fuzzyCompare(areaOf(textOf(card, "Clock"), card).bottom, card.height - 10, 1);
    }

    function test_changesAtOnceWhereLessMotionIsWished() {
        desktop.wish(false, true);

        card.selected = true;

        verify(isColor(card.labelColor, Appearance.background));
        verify(isColor(card.background.color, Appearance.ink));
    }

    function test_isFaintWhenItIsNotSelected() {
        compareInk(symbol().color, 0.6);
        compareInk(textOf(card, "Clock").color, 0.7);
        compareInk(card.background.color, 0.07);
        compareInk(card.background.borderColor, 0.1);
        compare(card.background.borderWidth, 1);
        compare(card.background.radius, 10);
        compare(textOf(card, "Clock").font.weight, 400);
    }

    function test_isFilledWithInkWhenItIsSelected() {
        card.selected = true;

        tryVerify(() => isColor(card.background.color, Appearance.ink));
        tryVerify(() => isColor(symbol().color, Appearance.background));
        tryVerify(() => isColor(textOf(card, "Clock").color, Appearance.background));
        tryVerify(() => card.background.borderColor.a === 0);
        compare(textOf(card, "Clock").font.weight, 600);
    }

    function test_itsColorsPassOver() {
        card.selected = true;

        verify(!isColor(card.background.color, Appearance.ink));
        tryVerify(() => isColor(card.background.color, Appearance.ink));
    }

    function test_aClickTapsIt() {
        mouseClick(card);

        compare(taps.count, 1);
    }

    function test_aClickTapsTheSelectedCardToo() {
        card.selected = true;

        mouseClick(card);

        compare(taps.count, 1);
    }

    function test_spaceReturnAndEnterTapIt_data() {
        return [{key: Qt.Key_Space}, {key: Qt.Key_Return}, {key: Qt.Key_Enter}];
    }

    function test_spaceReturnAndEnterTapIt(row) {
        card.forceActiveFocus(Qt.TabFocusReason);

        keyClick(row.key);

        compare(taps.count, 1);
    }

    function test_showsItsFocusToTheKeyboardOnly() {
        const ring = all(card, FocusRing)[0];
        mouseClick(card);
        verify(!ring.visible);

        card.forceActiveFocus(Qt.TabFocusReason);

        verify(ring.visible);
        compareAccent(ring.borderColor, 1);
    }

    function test_isToldAsARadioButton() {
        compare(reader.told(card), ["RadioButton Clock [ ]"]);
        card.selected = true;
        compare(reader.told(card), ["RadioButton Clock [x]"]);
    }

    function test_aScreenReaderTapsItOnce() {
        verify(reader.press(card, "Clock"));

        compare(taps.count, 1);
    }
}
