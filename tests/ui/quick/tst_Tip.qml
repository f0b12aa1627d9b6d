import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "Tip"

    Component {
        id: panels

        SettingsPanel {
            width: implicitWidth
            height: implicitHeight
            ticker: testCase.world.ticker
            host: testCase.world.host
        }
    }
    Component {
        id: texts

        CutText {
            width: 60
            text: "a text that is longer than its room"
        }
    }

    function tips(root: Item): var {
        return all(root, TipPlace).filter(place => place.item !== null && place.item.opened).map(place => place.item);
    }

    function named(root: Item, name: string): Item {
        return all(root, PlainButton).find(item => item.visible && item.Accessible.name === name);
    }

    function test_aSymbolSaysWhatItDoes() {
        world.ticker.mode = TickerMode.Deadline;
        const panel = make(panels);

        const page = all(panel, ScrollArea)[0];
        page.contentY = page.contentHeight - page.height;
        for (const name of ["Settings", "Due date"]) {
            const button = named(panel, name);
            mouseMove(button, button.width / 2, button.height / 2);
            tryVerify(() => tips(panel).length === 1);
            compare(tips(panel)[0].text, name);
            mouseMove(panel, 3, 3);
            tryVerify(() => tips(panel).length === 0);
        }
    }

    function test_theKeyboardHasASymbolSayWhatItDoes() {
        const panel = make(panels);
        const gear = named(panel, "Settings");
        mouseMove(panel, 3, 3);

        gear.forceActiveFocus(Qt.TabFocusReason);
        tryVerify(() => tips(panel).length === 1);
        compare(tips(panel)[0].text, "Settings");
        tab();

        tryVerify(() => tips(panel).length === 0);
    }

    function test_aFocusThatDoesNotShowHasNoTip() {
        const panel = make(panels);
        const gear = named(panel, "Settings");
        mouseMove(panel, 3, 3);

        gear.forceActiveFocus(Qt.MouseFocusReason);

        verify(gear.activeFocus);
        verify(!all(panel, TipPlace).some(place => place.active));
    }

    SignalSpy {
        id: closings
        signalName: "closeRequested"
    }

    function test_escapeGoesPastATip() {
        const panel = make(panels);
        mouseMove(panel, 3, 3);
        closings.target = world.host;
        named(panel, "Settings").forceActiveFocus(Qt.TabFocusReason);
        tryVerify(() => tips(panel).length === 1);

        keyClick(Qt.Key_Escape);

        compare(closings.count, 1);
    }

    function test_aSheetTakesTheTipAway() {
        const panel = make(panels);
        mouseMove(panel, 3, 3);
        named(panel, "Settings").forceActiveFocus(Qt.TabFocusReason);
        tryVerify(() => tips(panel).length === 1);

        keyClick(Qt.Key_Space);

        tryVerify(() => tips(panel).length === 0);
        verify(!all(panel, TipPlace).some(place => place.active));
    }

    function test_waitsForThePointerToRest() {
        const panel = make(panels);
        const gear = named(panel, "Settings");

        mouseMove(gear, 5, 5);
        tryVerify(() => gear.hovered);

        compare(tips(panel).length, 0);
        tryVerify(() => tips(panel).length === 1);
        mouseMove(panel, 3, 3);
    }

    function test_aPressTakesItAway() {
        const panel = make(panels);
        const gear = named(panel, "Settings");
        mouseMove(gear, 5, 5);
        tryVerify(() => tips(panel).length === 1);

        mousePress(gear, 5, 5);

        tryVerify(() => tips(panel).length === 0);
        mouseMove(panel, 170, 300);
        mouseRelease(panel, 170, 300);
    }

    function test_staysWithinThePanel() {
        const panel = make(panels);
        const gear = named(panel, "Settings");
        mouseMove(gear, 5, 5);
        tryVerify(() => tips(panel).length === 1);
        const place = areaOf(tips(panel)[0].background, panel);

        verify(place.left >= 6 && place.right <= 334, place);
        verify(place.top >= areaOf(gear, panel).bottom);
    }

    function test_wordsAreNotRepeated() {
        const panel = make(panels);

        compare(named(panel, "Quit").children.length > 0, true);
        compare(all(named(panel, "Quit"), TipPlace).map(place => place.words), [""]);
    }

    function test_aCutTextIsShownAsAWhole() {
        const text = make(texts);
        verify(text.truncated);

        mouseMove(text, 20, 5);

        tryVerify(() => tips(text).length === 1);
        compare(tips(text)[0].text, text.text);
        mouseMove(testCase, 300, 500);
    }

    function test_aTextThatFitsIsNotShownTwice() {
        const text = make(texts, {
            text: "short",
            width: 200
        });

        mouseMove(text, 20, 5);
        passFrames();

        verify(!all(text, TipPlace)[0].active);
    }
}
