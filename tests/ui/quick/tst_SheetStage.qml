import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "SheetStage"

    Component {
        id: panels

        SettingsPanel {
            width: implicitWidth
            height: implicitHeight
            ticker: testCase.world.ticker
            host: testCase.world.host
        }
    }
    SignalSpy {
        id: closings
        signalName: "closeRequested"
    }

    property SettingsPanel panel: null

    function init() {
        makeWorld();
        world.ticker.mode = TickerMode.Revenue;
        panel = make(panels);
        closings.target = world.host;
        closings.clear();
    }

    function stage(): SheetStage {
        return all(panel, SheetStage)[0] as SheetStage;
    }

    function sheet(): Item {
        return all(panel, Sheet)[0] ?? null;
    }

    function opener(): Item {
        return buttonOf(panel, "API Keys");
    }

    function focused(): Item {
        return testCase.Window.activeFocusItem;
    }

    // With the keyboard, as it is then seen where the focus is.
    function present() {
        opener().forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        tryCompare(stage(), "presence", 1);
    }

    function waitUntilGone() {
        tryVerify(() => sheet() === null);
        compare(stage().presence, 0);
    }

    function test_isEmptyAtFirst() {
        compare(sheet(), null);
        verify(!stage().isUp);
    }

    function test_aSheetSlidesUpFromTheLowerEdge() {
        opener().clicked();

        const surface = sheet().parent.parent;
        verify(surface.height < sheet().height);
        tryVerify(() => surface.height > 0 && surface.height < sheet().height);
        compare(areaOf(surface, panel).bottom, 540);
        tryCompare(surface, "height", sheet().height);
        compare(areaOf(sheet(), panel).bottom, 540);
        compare(sheet().width, 340);
    }

    function test_aSheetSlidesOutAgain() {
        present();

        stage().dismiss();

        verify(sheet() !== null);
        tryVerify(() => stage().presence > 0 && stage().presence < 1);
        waitUntilGone();
    }

    function test_aSheetComesAndGoesAtOnceWhereLessMotionIsWished() {
        desktop.wish(false, true);

        opener().clicked();
        compare(stage().presence, 1);
        stage().dismiss();

        compare(stage().presence, 0);
        compare(sheet(), null);
    }

    function test_whatLiesBelowIsDimmed() {
        present();

        const picture = grabImage(panel);
        const dimmed = picture.pixel(100, 10);
        verify(dimmed.hslLightness < Appearance.background.hslLightness - 0.2);
        verify(isColor(picture.pixel(10, 300), Appearance.background));
    }

    function test_theDimmedGroundIsAsRoundAsThePanel() {
        compare(all(stage(), RoundedBox)[0].radius, panel.radius);
        compare(all(stage(), RoundedBox)[0].width, 340);
        compare(all(stage(), RoundedBox)[0].height, 540);
    }

    function test_aSheetThatWouldBeHigherThanThePanelScrolls_data() {
        return [{tag: "panel", height: 540}, {tag: "low panel", height: 300}];
    }

    function test_aSheetThatWouldBeHigherThanThePanelScrolls(row) {
        panel.height = row.height;
        present();
        const area = all(sheet(), ScrollArea)[0];

        compare(sheet().height, row.height - 28);
        compare(areaOf(sheet(), panel).bottom, row.height);
        verify(area.contentHeight > area.height);
        compare(areaOf(area, panel).bottom, row.height);
        tryVerify(() => {
            mouseWheel(area, 170, 50, 0, -240);
            return area.contentY === area.contentHeight - area.height;
        });
        verify(areaOf(buttonOf(sheet(), ""), panel).top > 28, "its close button stays");
    }

    function test_whatGetsTheKeyboardScrollsIntoView() {
        panel.height = 300;
        present();
        const area = all(sheet(), ScrollArea)[0];

        for (let stop = 0; stop < 13; ++stop) {
            tab();
            const place = areaOf(focused(), panel);
            verify(place.top >= 28 && place.bottom <= 300, "stop " + stop);
        }
        verify(area.contentY > 0);
    }

    function test_theSheetTakesTheFocus() {
        present();

        verify(sheet().activeFocus);
        tab();
        compare(focused().Accessible.name, "Close");
    }

    function test_theFocusNeverLeavesTheSheet() {
        present();
        for (const key of [Qt.Key_Tab, Qt.Key_Backtab]) {
            for (let stop = 0; stop < 30; ++stop) {
                keyClick(key);
                verify(sheet().activeFocus, "stop " + stop);
            }
        }
    }

    function test_theFocusGoesBackWhereItWas() {
        present();
        tab(3);

        keyClick(Qt.Key_Escape);

        compare(focused(), opener());
        verify(opener().visualFocus);
    }

    function test_withoutAFocusBeforeThereIsNoneAfterwards() {
        const middle = all(panel, ScrollArea)[0];
        middle.contentY = middle.contentHeight - middle.height;
        mouseClick(opener());
        tryCompare(stage(), "presence", 1);
        tab(2);

        keyClick(Qt.Key_Escape);

        verify(!stage().activeFocus);
        compare(focused(), testCase.Window.contentItem);
    }

    function test_aFocusThatIsGoneIsNotMissed() {
        present();
        world.ticker.mode = TickerMode.Clock;
        tryVerify(() => opener() === null);

        keyClick(Qt.Key_Escape);

        waitUntilGone();
        verify(!stage().activeFocus);
    }

    function test_escapeClosesTheSheetAndThenThePanel() {
        present();

        keyClick(Qt.Key_Escape);
        verify(!stage().isUp);
        compare(closings.count, 0);
        keyClick(Qt.Key_Escape);

        compare(closings.count, 1);
    }

    function test_escapeClosesTheSheetWhileAKeyIsTyped() {
        present();
        mouseClick(all(sheet(), BorderedField)[0]);
        keyClick(Qt.Key_A);

        keyClick(Qt.Key_Escape);

        compare(closings.count, 0);
        waitUntilGone();
        compare(world.ticker.polarAPIKey, "a");
    }

    function test_itsCloseButtonClosesIt() {
        present();

        verify(reader.press(panel, "Close"));

        waitUntilGone();
        compare(focused(), opener());
    }

    function test_aClickOnTheDimmedGroundClosesIt() {
        present();

        mouseClick(panel, 170, 10);

        waitUntilGone();
        compare(closings.count, 0);
    }

    function test_aClickOnTheSheetItselfDoesNot() {
        present();

        mouseClick(panel, 170, 35);
        mouseClick(panel, 5, 300);

        verify(stage().isUp);
    }

    function test_whatLiesBelowTakesNoInput() {
        panel.height = 540;
        opener().clicked();
        verify(!opener().enabled);
        const before = all(panel, ScrollArea)[0].contentY;

        mouseWheel(panel, 170, 10, 0, -240);
        mouseClick(panel, 80, 130);

        compare(all(panel, ScrollArea)[0].contentY, before);
        compare(world.ticker.mode, TickerMode.Revenue);
    }

    function test_whatLiesBelowIsHiddenFromAScreenReader() {
        world.finishFetch("$12");
        const names = ["RadioButton Clock [ ]", "StaticText OPTIONS", "RadioButton Polar [x]", "Button Refresh",
            "Button API Keys", "Button Quit"];
        verify(names.every(name => reader.told(panel).includes(name)));

        present();
        verify(!names.some(name => reader.told(panel).includes(name)), reader.told(panel));
        compare(reader.told(panel)[0], "Dialog API Keys");
        stage().dismiss();

        verify(names.every(name => reader.told(panel).includes(name)));
    }

    function test_aSecondSheetDoesNotComeOverTheFirst() {
        present();

        opener().clicked();

        compare(all(panel, Sheet).length, 1);
    }

    function test_aSheetIsMadeAnewEachTime() {
        present();
        const first = all(sheet(), APIKeyField)[0] as APIKeyField;
        first.isRevealed = true;
        keyClick(Qt.Key_Escape);
        waitUntilGone();

        present();

        verify(!(all(sheet(), APIKeyField)[0] as APIKeyField).isRevealed);
        compare(all(sheet(), ScrollArea)[0].contentY, 0);
    }

    function test_comesBackWhileItIsStillLeaving() {
        present();
        stage().dismiss();

        opener().clicked();

        tryCompare(stage(), "presence", 1);
        compare(all(panel, Sheet).length, 1);
        verify(sheet().activeFocus);
    }

    function test_goesBeforeItHasMoved() {
        opener().clicked();
        stage().dismiss();

        waitUntilGone();
    }

    function test_aSheetIsToldAsADialog() {
        present();

        verify(reader.told(panel).includes("Dialog API Keys"));
    }
}
