import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "Sheet"

    Component {
        id: sheets

        Sheet {
            width: implicitWidth
            height: implicitHeight
            symbol: "key.fill"
            title: "API Keys"

            Item {
                objectName: "content"
                width: 292
                height: 200
            }
        }
    }
    SignalSpy {
        id: dismissals
        signalName: "dismissed"
    }

    property Sheet sheet: null

    function init() {
        makeWorld();
        sheet = make(sheets);
        dismissals.target = sheet;
        dismissals.clear();
    }

    function close(): Item {
        return buttonOf(sheet, "");
    }

    function content(): Item {
        return findChild(sheet, "content");
    }

    function test_isAsWideAsThePanelAndPadded() {
        compare(sheet.width, 340);
        compare(areaOf(all(sheet, SymbolImage)[0], sheet).x, 24);
        compare(areaOf(close(), sheet).y, 24);
        compare(areaOf(close(), sheet).right, 340 - 24);
        compare(areaOf(content(), sheet).x, 24);
        compare(sheet.height - areaOf(content(), sheet).bottom, 24);
    }

    function test_itsHeaderHasItsMeasures() {
        const symbol = all(sheet, SymbolImage)[0];
        const title = textOf(sheet, "API Keys");

        compare(symbol.name, "key.fill");
        compare(symbol.size, 14);
        compareAccent(symbol.color, 1);
        compareFont(title, 16, 400);
        compareInk(title.color, 1);
        verify(areaOf(title, sheet).x > areaOf(symbol, sheet).right);
        verify(areaOf(content(), sheet).top > areaOf(close(), sheet).bottom);
    }

    function test_itsCloseButtonIsASmallCircle() {
        const symbol = all(close(), SymbolImage)[0];

        compare(symbol.name, "xmark");
        compare(symbol.size, 13);
        compareInk(symbol.color, 0.3);
        compareInk(close().background.color, 0.1);
        compare(areaOf(symbol, close()), Qt.rect(4, 4, 13, 13));
        compare(close().width, 21);
        compare(close().height, 21);
        compare(close().background.radius, 10.5);
    }

    function test_aClickOnItsCloseButtonDismissesIt() {
        mouseClick(close());

        compare(dismissals.count, 1);
    }

    function test_theKeyboardDismissesIt() {
        tab();
        verify(close().visualFocus);

        keyClick(Qt.Key_Return);

        compare(dismissals.count, 1);
    }

    function test_whatItIsAboutScrollsWhereThereIsLessRoom() {
        sheet.height = 150;
        const area = all(sheet, ScrollArea)[0];

        compare(areaOf(area, sheet).bottom, 150);
        compare(areaOf(close(), sheet).y, 24);
        area.contentY = area.contentHeight - area.height;
        compare(150 - areaOf(content(), sheet).bottom, 24);
    }

    function test_isToldAsADialogWithACloseButton() {
        const told = reader.told(sheet);

        verify(told.includes("Dialog API Keys"));
        verify(told.includes("Button Close"));
    }
}
