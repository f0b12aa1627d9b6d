import QtQuick
import Glimmet

PanelTestCase {
    id: testCase
    name: "SectionLabel"

    SectionLabel {
        id: label
        text: "OPTIONS"
    }

    function test_isASmallSpacedFaintText() {
        compareFont(label, 9, 600);
        compare(label.font.letterSpacing, 1.5);
        compareInk(label.color, 0.38);
    }

    function test_isToldAsText() {
        compare(reader.told(label), ["StaticText OPTIONS"]);
    }
}
