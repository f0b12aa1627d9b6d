import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    name: "QuoteRow"

    QuoteRow {
        id: row
        width: 300
        ticker: null
        quote: ""
    }
    SignalSpy {
        id: removals
        target: row
        signalName: "removed"
    }

    function init() {
        row.quote = "ship it";
        removals.clear();
    }

    function test_showsTheQuote() {
        const label = textOf(row, "ship it");

        compareFont(label, 11, 400);
        compareInk(label.color, 1);
        compare(label.x, 10);
        compare(label.textFormat, Text.PlainText);
    }

    function test_isARoundedFaintRow() {
        compareInk(row.color, 0.05);
        compare(row.radius, 8);
        compare(row.height, 28);
    }

    function test_theSymbolStandsAtTheRight() {
        const symbol = all(row, SymbolImage)[0];

        compare(symbol.name, "xmark.circle.fill");
        compare(symbol.size, 14);
        compareInk(symbol.color, 0.2);
        compare(areaOf(symbol, row).right, 290);
        compare(areaOf(symbol, row).y, 7);
    }

    function test_aLongQuoteWraps() {
        row.quote = "a quote that goes on and on, so that one line is not enough for all of what it has to say";

        const label = textOf(row, row.quote);
        verify(label.lineCount > 1);
        verify(!label.truncated);
        compare(row.height, Math.ceil(label.implicitHeight) + 14);
        verify(areaOf(label, row).right <= areaOf(all(row, SymbolImage)[0], row).left);
    }

    function test_aLongWordWrapsToo() {
        row.quote = "w".repeat(120);

        const label = textOf(row, row.quote);
        verify(label.lineCount > 1);
        verify(label.contentWidth <= label.width);
    }

    function test_aClickRemoves() {
        mouseClick(all(row, PlainButton)[0]);

        compare(removals.count, 1);
    }

    function test_isToldOnceAndThenItsButton() {
        compare(reader.told(row).filter(line => line.includes("ship it")), ["ListItem ship it", "Button Remove ship it"]);
    }
}
