import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "PanelFooter"

    Component {
        id: footers

        PanelFooter {
            width: 340
        }
    }
    SignalSpy {
        id: quits
        signalName: "quitRequested"
    }

    property PanelFooter footer: null

    function init() {
        makeWorld();
        footer = make(footers, {host: world.host});
        quits.target = world.host;
        quits.clear();
    }

    function quit(): Item {
        return buttonOf(footer, "Quit");
    }

    function test_showsTheVersion() {
        const version = textOf(footer, "v1.2 ·");

        compareFont(version, 10, 400);
        compareInk(version.color, 0.25);
        compare(version.x, 16);
    }

    function test_anUnknownVersionLeavesTheVAndTheDot() {
        footer = make(footers, {host: world.unversionedHost});

        verify(textOf(footer, "v ·") !== null);
    }

    function test_sitsUnderADivider() {
        const divider = all(footer, Rectangle)[0];

        compare(divider.y, 0);
        compare(divider.width, 340);
        compare(divider.height, 1);
        compareInk(divider.color, 0.1);
    }

    function test_theQuitButtonIsPadded() {
        const label = textOf(footer, "Quit");
        const area = areaOf(quit(), footer);

        compareFont(label, 11, 400);
        compareInk(label.color, 0.4);
        compareInk(quit().background.color, 0.07);
        compare(areaOf(label, quit()).x, 8);
        compare(areaOf(label, quit()).y, 5);
        compare(area.width, Math.ceil(label.implicitWidth) + 16);
        compare(area.right, 324);
        compare(area.y, 11);
        compare(footer.height - area.bottom, 10);
    }

    function test_theQuitButtonShowsThePointingHand() {
        compare(quit().cursorShape, Qt.PointingHandCursor);
    }

    function test_aClickQuits() {
        mouseClick(quit());

        compare(quits.count, 1);
    }

    function test_spaceReturnAndEnterQuit_data() {
        return [{key: Qt.Key_Space}, {key: Qt.Key_Return}, {key: Qt.Key_Enter}];
    }

    function test_spaceReturnAndEnterQuit(row) {
        quit().forceActiveFocus(Qt.TabFocusReason);
        verify(all(footer, FocusRing)[0].visible);

        keyClick(row.key);

        compare(quits.count, 1);
    }

    function test_aScreenReaderQuitsOnce() {
        verify(reader.told(footer).includes("Button Quit"));
        verify(reader.told(footer).includes("StaticText v1.2 ·"));

        verify(reader.press(footer, "Quit"));

        compare(quits.count, 1);
    }
}
