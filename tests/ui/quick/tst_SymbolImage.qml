import QtQuick
import Glimmet

PanelTestCase {
    id: testCase
    name: "SymbolImage"

    Rectangle {
        id: paper
        width: 40
        height: 40
        color: "white"

        SymbolImage {
            id: image
            size: 32
        }
    }

    // How much of the symbol's square is not paper, from 0 to 1, by the red channel.
    function coverage(): real {
        const picture = grabImage(paper);
        let sum = 0;
        for (let x = 0; x < 32; ++x) {
            for (let y = 0; y < 32; ++y)
                sum += 255 - picture.red(x, y);
        }
        return sum / (255 * 32 * 32);
    }

    function test_everySymbolIsDrawn_data() {
        return ["clock", "text.bubble", "pencil", "dollarsign.circle", "chart.line.uptrend.xyaxis", "timer",
            "xmark.circle.fill", "arrow.clockwise", "progress.indicator", "bolt.circle", "chart.bar.fill", "creditcard",
            "s.circle.fill", "l.circle.fill", "dollarsign", "bag", "chart.bar", "crown", "sun.max", "7.square",
            "calendar", "infinity", "xmark"].map(name => ({tag: name}));
    }

    function test_everySymbolIsDrawn(row) {
        image.color = "black";
        image.name = row.tag;

        verify(coverage() > 0.08);
        verify(coverage() < 0.8);
    }

    function test_theCardsSymbolsAreOpticallyEven() {
        image.color = "black";
        const inks = [];
        for (const mode of ModeLabels.all) {
            image.name = ModeLabels.symbol(mode);
            inks.push(coverage());
        }

        verify(Math.max(...inks) < 2.2 * Math.min(...inks), inks);
    }

    function test_takesItsColor() {
        image.name = "xmark.circle.fill";
        image.color = "#ff0000";

        const picture = grabImage(paper);
        compare(picture.pixel(16, 4), Qt.rgba(1, 0, 0, 1));
        compare(picture.pixel(0, 0), Qt.rgba(1, 1, 1, 1));
    }

    function test_takesTheOpacityOfItsColor() {
        image.name = "xmark.circle.fill";
        image.color = Qt.rgba(0, 0, 0, 0.2);

        fuzzyCompare(grabImage(paper).red(16, 4), 204, 2);
    }

    function test_turnsItsDrawing() {
        image.color = "black";
        image.name = "progress.indicator";
        image.turn = 0;
        const gapAtTopLeft = grabImage(paper).red(6, 6);

        image.turn = 180;

        verify(grabImage(paper).red(6, 6) < gapAtTopLeft);
        image.turn = 0;
    }

    function test_withoutANameItIsEmpty() {
        image.name = "";

        compare(coverage(), 0);
    }
}
