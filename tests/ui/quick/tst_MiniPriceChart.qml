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

    function test_drawsItsCurveInTheAccent() {
        chart.history = [5, 5];

        const picture = grabImage(chart);

        fuzzyCompare(picture.red(150, 44), 255 * Appearance.accent.r, 60);
        fuzzyCompare(picture.green(150, 44), 255 * Appearance.accent.g, 60);
        fuzzyCompare(picture.blue(150, 44), 255 * Appearance.accent.b, 60);
        verify(picture.green(150, 50) < picture.green(150, 70));
        verify(picture.green(150, 70) < picture.green(150, 30));
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
