import QtQuick
import Glimmet

PanelTestCase {
    id: testCase
    name: "Spinner"

    Spinner {
        id: spinner
        running: false
        factor: 0.6
    }

    function symbol(): Item {
        return all(spinner, SymbolImage)[0];
    }

    function init() {
        spinner.running = false;
        spinner.factor = 0.6;
    }

    function test_keepsItsNaturalRoom() {
        compare(spinner.width, 16);
        compare(spinner.height, 16);
        compare(symbol().name, "progress.indicator");
        compareInk(symbol().color, 1);
    }

    function test_isDrawnInItsFinalSize_data() {
        return [{tag: "0.6", factor: 0.6, size: 10}, {tag: "0.7", factor: 0.7, size: 11},
            {tag: "1", factor: 1, size: 16}];
    }

    function test_isDrawnInItsFinalSize(row) {
        spinner.factor = row.factor;

        compare(symbol().width, row.size);
        fuzzyCompare(areaOf(symbol(), spinner).x + areaOf(symbol(), spinner).right, 16, 1);
    }

    function test_turnsWhileItRuns() {
        const rest = symbol().turn;

        spinner.running = true;

        tryVerify(() => symbol().turn !== rest);
    }
}
