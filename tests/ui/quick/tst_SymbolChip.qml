import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "SymbolChip"

    Component {
        id: chips

        SymbolChip {
            symbol: "AAPL"
            shown: false
            maximumWidth: 300
        }
    }

    SignalSpy {
        id: removals
        signalName: "removed"
    }

    property SymbolChip chip: null

    function init() {
        makeWorld();
        chip = make(chips);
        removals.target = chip;
        removals.clear();
    }

    function label(): Item {
        return all(chip, InkText).find(text => text.text === chip.symbol || text.truncated);
    }

    function removeButton(): Item {
        return all(chip, PlainButton)[0];
    }

    function dot(): Item {
        return all(chip, RoundedBox).find(box => box.width === 5) ?? null;
    }

    function test_showsItsSymbolInItsPaddings() {
        compareFont(label(), 10, 500);
        compare(areaOf(label(), chip).left, 8);
        fuzzyCompare(areaOf(label(), chip).top, 5, 1);
        fuzzyCompare(chip.height - areaOf(label(), chip).bottom, 5, 1);
        compare(chip.radius, 7);
    }

    function test_theCrossStandsAtTheRight() {
        const cross = all(removeButton(), SymbolImage)[0];

        compare(cross.name, "xmark");
        compare(cross.width, 8);
        compare(chip.width - areaOf(cross, chip).right, 8);
        fuzzyCompare(areaOf(cross, chip).y + areaOf(cross, chip).bottom, chip.height, 1);
    }

    function test_theCrossIsEasyToHit() {
        const area = areaOf(removeButton(), chip);

        compare(area.right, chip.width);
        compare(area.height, chip.height);
        verify(area.width >= 20);
        mouseClick(chip, chip.width - 2, 2);
        compare(removals.count, 1);
    }

    function test_aClickOnTheSymbolRemovesNothing() {
        mouseClick(chip, 12, 10);

        compare(removals.count, 0);
    }

    function test_isFaintWhileItIsNotOnShow() {
        compareInk(chip.color, 0.08);
        compareInk(label().color, 1);
        compareInk(removeButton().ink, 1);
        verify(!dot().visible);
    }

    function test_isMarkedWhileItIsOnShow() {
        const width = chip.width;

        chip.shown = true;

        tryVerify(() => isColor(chip.color, Appearance.ink, 0.8));
        tryVerify(() => isColor(label().color, Appearance.background));
        compare(removeButton().ink, label().color);
        verify(isColor(dot().color, Appearance.accentOnInk));
        compare(dot().height, 5);
        compare(areaOf(dot(), chip).x, 8);
        compare(areaOf(label(), chip).left - areaOf(dot(), chip).right, 4);
        compare(chip.width, width + 9);
        fuzzyCompare(areaOf(dot(), chip).y + areaOf(dot(), chip).bottom, chip.height, 1);
    }

    function test_aLongSymbolEndsInAnEllipsis() {
        chip.symbol = "W".repeat(5000);

        compare(chip.width, 300);
        verify(label().truncated);
        compare(areaOf(removeButton(), chip).right, 300);
        verify(areaOf(label(), chip).right <= areaOf(removeButton(), chip).left);
    }

    function test_isAsWideAsItsSymbol() {
        const width = chip.width;

        chip.symbol = "AAPLAAPL";

        verify(chip.width > width);
        verify(!label().truncated);
    }

    function test_theWholeChipShowsTheKeyboard() {
        const ring = all(chip, FocusRing).find(candidate => candidate.cornerRadius === chip.radius);
        verify(!ring.visible);

        chip.takeKeyboard();

        verify(chip.hasKeyboard);
        verify(ring.visible);
        verify(ring.width > chip.width);
        compare(all(removeButton(), FocusRing).length, 0);
    }

    function test_theKeyboardRemovesIt_data() {
        return [{tag: "space", key: Qt.Key_Space}, {tag: "return", key: Qt.Key_Return}, {tag: "enter", key: Qt.Key_Enter}];
    }

    function test_theKeyboardRemovesIt(row) {
        chip.takeKeyboard();

        keyClick(row.key);

        compare(removals.count, 1);
    }

    function test_isToldByWhatItDoes() {
        compare(reader.told(chip), ["StaticText AAPL", "Button Remove AAPL"]);

        verify(reader.press(chip, "Remove AAPL"));

        compare(removals.count, 1);
    }

    function test_isDimmedWhileItGivesNoPrice() {
        chip.trouble = "Not found";

        compare(label().opacity, 0.5);
        compare(dot().opacity, 0.5);
        compare(removeButton().opacity, 1);
        chip.shown = true; // A strong fill, on which less could not be read.
        compare(label().opacity, 0.75);
        chip.trouble = "";
        compare(label().opacity, 1);
    }

    function test_saysWhyItGivesNoPrice() {
        compare(reader.description(chip, "AAPL"), "");

        chip.trouble = "Not found";

        compare(reader.description(chip, "AAPL"), "Not found");
        // Where the keyboard comes to.
        compare(reader.description(chip, "Remove AAPL"), "Not found");
        compare(reader.told(chip), ["StaticText AAPL", "Button Remove AAPL"]);
    }

    function tip(): string {
        mouseMove(chip, 12, 10);
        tryVerify(() => all(chip, TipPlace).some(place => place.item !== null && place.item.opened));
        const words = all(chip, TipPlace).find(place => place.active).item.text;
        mouseMove(testCase, 300, 500);
        return words;
    }

    function test_aTipSaysWhatCannotBeSeen_data() {
        const wide = "W".repeat(60);
        return [{tag: "trouble", symbol: "AAPL", trouble: "Not found", words: "Not found"},
            {tag: "a cut symbol", symbol: wide, trouble: "", words: wide},
            {tag: "trouble of a cut symbol", symbol: wide, trouble: "Not found", words: wide + ". Not found"}];
    }

    function test_aTipSaysWhatCannotBeSeen(data) {
        chip.symbol = data.symbol;
        chip.trouble = data.trouble;

        compare(tip(), data.words);
    }

    function openTips(): var {
        return all(chip, TipPlace).filter(place => place.item !== null && place.item.opened).map(place => place.item.text);
    }

    function test_theKeyboardHasItSayWhatCannotBeSeen_data() {
        return [{tag: "trouble", trouble: "Not found", words: "Not found"},
            {tag: "nothing", trouble: "", words: "Remove AAPL"}];
    }

    function test_theKeyboardHasItSayWhatCannotBeSeen(data) {
        mouseMove(testCase, 300, 500);
        chip.trouble = data.trouble;

        chip.takeKeyboard();
        tryVerify(() => openTips().length > 0);
        compare(openTips(), [data.words]);
        compare(all(chip, TipPlace).filter(place => place.active).length, 1);

        testCase.forceActiveFocus();
        tryVerify(() => openTips().length === 0);
    }

    function test_isToldAsSelectedWhileItIsOnShow() {
        verify(!reader.isSelected(chip, "AAPL"));

        chip.shown = true;

        verify(reader.isSelected(chip, "AAPL"));
    }
}
