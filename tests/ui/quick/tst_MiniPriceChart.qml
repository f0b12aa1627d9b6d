import QtQuick
import Glimmet

PanelTestCase {
    id: testCase
    name: "MiniPriceChart"

    Component {
        id: charts

        MiniPriceChart {
            width: 300
            shortName: "BTC"
            menuBarString: "BTC $97,012 (↑1.3%)"
            history: [95000, 96000, 97012]
        }
    }

    property MiniPriceChart chart: null

    function init() {
        makeWorld();
        chart = make(charts);
    }

    function curve(): Item {
        return all(chart, PriceCurveImage)[0];
    }

    function test_theHeaderNamesThePrice() {
        const name = textOf(chart, "BTC");
        const value = textOf(chart, "BTC $97,012 (↑1.3%)");

        compareFont(name, 11, 600);
        compareInk(name.color, 1);
        compareFont(value, 10, 400);
        compareInk(value.color, 0.7);
        compare(areaOf(name, chart).left, 10);
        compare(areaOf(value, chart).right, 290);
        compare(areaOf(name, chart).y + name.baselineOffset, areaOf(value, chart).y + value.baselineOffset);
    }

    function test_theCurveIsSeventyTwoHigh() {
        compare(chart.height, 80);
        compare(areaOf(curve(), chart), Qt.rect(0, 8, 300, 72));
        compare(curve().lineWidth, 1.5);
        compareAccent(curve().lineColor, 1);
        compareAccent(curve().areaColor, 0.25);
    }

    // Its highest point is a twelfth of its height below its top.
    function test_theCurveEndsWhereTheHeaderStands() {
        const highest = 8 + 72 / 12 - 1.5 / 2;
        const name = textOf(chart, "BTC");
        const value = textOf(chart, "BTC $97,012 (↑1.3%)");

        verify(areaOf(name, chart).y >= 0);
        verify(areaOf(name, chart).y + name.baselineOffset <= highest);
        verify(areaOf(value, chart).y + value.baselineOffset <= highest);
    }

    function test_theCurvePassesBehindTheHeader() {
        chart.history = [];
        const empty = grabImage(chart);

        chart.history = [2, 2, 1, 2, 2];
        const picture = grabImage(chart);

        for (const words of ["BTC", "BTC $97,012 (↑1.3%)"]) {
            const text = areaOf(textOf(chart, words), chart);
            for (let y = Math.ceil(text.top); y < Math.floor(text.bottom); ++y) {
                for (let x = Math.ceil(text.left); x < Math.floor(text.right); ++x)
                    compare(picture.pixel(x, y), empty.pixel(x, y));
            }
        }
    }

    function test_drawsItsCurveInTheAccent() {
        chart.history = [5, 5];

        const picture = grabImage(chart);

        fuzzyCompare(picture.red(150, 44), 255 * Appearance.accent.r, 60);
        fuzzyCompare(picture.green(150, 44), 255 * Appearance.accent.g, 60);
        fuzzyCompare(picture.blue(150, 44), 255 * Appearance.accent.b, 60);
        verify(picture.green(150, 50) < picture.green(150, 70));
        verify(picture.green(150, 70) < picture.green(150, 30));
    }

    function test_theLowerCornerNamesWhenThePriceCame() {
        compare(all(chart, Text).filter(text => text.visible).length, 2);

        chart.arrival = "as of 4 May 2026, 09:05";

        const arrival = textOf(chart, "as of 4 May 2026, 09:05");
        compareFont(arrival, 9, 400);
        compareInk(arrival.color, 0.4);
        fuzzyCompare(areaOf(arrival, chart).right, 290, 1);
        verify(areaOf(arrival, chart).left >= 10);
        verify(areaOf(arrival, chart).bottom <= 80);
        for (const words of ["BTC", "BTC $97,012 (↑1.3%)"])
            verify(areaOf(arrival, chart).top >= areaOf(textOf(chart, words), chart).bottom);
        verify(reader.told(chart).includes("StaticText as of 4 May 2026, 09:05"));
    }

    function test_theCurveDoesNotRunThroughTheTime() {
        chart.history = [9, 5, 5, 5, 5, 5];
        chart.arrival = "as of 09:05";
        const picture = grabImage(chart);
        const words = areaOf(textOf(chart, "as of 09:05"), chart);
        const isAccent = x => {
            for (let y = 60; y < 80; ++y)
                if (picture.red(x, y) - picture.blue(x, y) > 80)
                    return true;
            return false;
        };

        verify(isAccent(Math.floor(words.left) - 8));
        for (let x = Math.ceil(words.left); x < Math.floor(words.right); ++x)
            verify(!isAccent(x), "the curve is seen at " + x);
    }

    function test_followsItsPrice() {
        const before = grabImage(chart);

        chart.history = [97012, 96000, 95000];

        verify(!grabImage(chart).equals(before));
        compare(curve().history, [97012, 96000, 95000]);
    }

    function test_drawsAnySeries_data() {
        return [
            {tag: "one point", history: [97012]},
            {tag: "two points", history: [1, 2]},
            {tag: "flat", history: [5, 5, 5]},
            {tag: "enormous", history: [-1e308, 1e308]},
            {tag: "not finite", history: [NaN, 1, Infinity, 2]},
            {tag: "ten thousand", history: Array.from({length: 10000}, (_, i) => i * 7919 % 1000)}
        ];
    }

    function test_drawsAnySeries(row) {
        chart.history = [];
        const empty = grabImage(chart);

        chart.history = row.history;

        verify(!grabImage(chart).equals(empty));
    }

    function test_isToldAsAPicture() {
        const told = reader.told(chart);

        for (const line of ["Graphic BTC price chart", "StaticText BTC", "StaticText BTC $97,012 (↑1.3%)"])
            verify(told.includes(line), line);
    }
}
