import QtQuick
import Glimmet

PanelTestCase {
    name: "Separator"

    Separator {
        id: separator
        width: 340
    }

    function test_isAFaintHairline() {
        compare(separator.height, 1);
        compareInk(separator.color, 0.08);
    }
}
