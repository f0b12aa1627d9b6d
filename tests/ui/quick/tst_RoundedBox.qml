import QtQuick
import Glimmet

PanelTestCase {
    name: "RoundedBox"

    Rectangle {
        id: paper
        width: 60
        height: 60
        color: "white"

        RoundedBox {
            id: box
            x: 10
            y: 10
            width: 40
            height: 40
        }
    }

    function init() {
        box.color = "transparent";
        box.borderColor = "transparent";
        box.borderWidth = 0;
        box.radius = 0;
        box.margin = 0;
    }

    function red(x: int, y: int): int {
        return grabImage(paper).red(x, y);
    }

    function test_isFilledToItsEdge() {
        box.color = "black";

        compare(red(10, 10), 0);
        compare(red(49, 49), 0);
        compare(red(9, 30), 255);
        compare(red(50, 30), 255);
    }

    function test_leavesItsCornersOut() {
        box.color = "black";
        box.radius = 14;

        compare(red(10, 10), 255);
        compare(red(30, 10), 0);
    }

    function test_aBorderOfOneAndAHalfCoversHalfOfItsSecondPixel() {
        box.borderColor = "black";
        box.borderWidth = 1.5;

        compare(red(10, 30), 0);
        fuzzyCompare(red(11, 30), 128, 4);
        compare(red(12, 30), 255);
    }

    function test_aSeeThroughBorderShowsTheFillUnderIt() {
        box.color = Qt.rgba(0, 0, 0, 0.5);
        box.borderColor = Qt.rgba(0, 0, 0, 0.5);
        box.borderWidth = 2;

        fuzzyCompare(red(30, 30), 128, 2);
        fuzzyCompare(red(11, 30), 64, 3);
    }

    function test_aMarginStaysEmpty() {
        box.color = "black";
        box.margin = 3;

        compare(red(12, 30), 255);
        compare(red(13, 30), 0);
    }
}
