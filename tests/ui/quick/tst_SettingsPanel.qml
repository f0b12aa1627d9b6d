import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "SettingsPanel"

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
        panel = make(panels);
        closings.target = world.host;
        closings.clear();
    }

    function only(type): Item {
        const found = all(panel, type);
        compare(found.length, 1);
        return found[0];
    }

    function test_hasItsMeasures() {
        compare(panel.width, 340);
        compare(panel.height, 540);
        compare(panel.radius, 14);
        verify(isColor(panel.color, Appearance.background));
    }

    function test_itsPiecesStandBelowEachOtherWithoutGaps() {
        const areas = [PanelHeader, Separator, ScrollArea, PanelFooter].map(type => areaOf(only(type), panel));

        compare(areas[0].y, 0);
        compare(areas[1].y, areas[0].bottom);
        compare(areas[2].y, areas[1].bottom);
        compare(areas[3].y, areas[2].bottom);
        compare(areas[3].bottom, 540);
        verify(areas.every(area => area.width === 340));
    }

    function test_theMiddleHoldsPreviewSelectorAndOptions() {
        const middle = only(ScrollArea).contentItem;
        const areas = [LivePreview, ModeSelector, ModeOptions].map(type => areaOf(only(type), middle));

        compare(areas[0].y, 0);
        compare(areas[1].y, areas[0].bottom);
        compare(areas[2].y, areas[1].bottom);
        compare(only(ScrollArea).contentHeight, areas[2].bottom);
    }

    function test_thePreviewFollowsTheMenuBar() {
        verify(textOf(only(LivePreview), "09:05:07") !== null);

        world.advance(1);

        verify(textOf(only(LivePreview), "09:05:08") !== null);
    }

    function test_thePreviewShowsABrokenTextOnOneLine() {
        world.ticker.mode = TickerMode.Custom;
        world.ticker.customText = "one\ntwo";
        world.advance(1);

        verify(textOf(only(LivePreview), "one two") !== null);
    }

    function test_theBadgeIsDimmedWhileTheTextIsStale() {
        world.ticker.mode = TickerMode.Revenue;
        world.finishFetch("⚠ http 500");
        world.advance(1);
        verify(only(LivePreview).isDimmed);
        compare(only(LivePreview).trouble, "The last refresh failed");

        world.ticker.fetchRevenue();
        world.finishFetch("💰 $5.00");
        world.advance(1);

        verify(!only(LivePreview).isDimmed);
    }

    function test_theBadgeIsRightAtOnceWhereTheModeChanges() {
        world.ticker.mode = TickerMode.Revenue;
        world.finishFetch("⚠ http 500");
        world.advance(1);
        verify(only(LivePreview).isDimmed);

        world.ticker.mode = TickerMode.Clock;
        verify(!only(LivePreview).isDimmed);
        world.ticker.mode = TickerMode.Revenue;

        verify(only(LivePreview).isDimmed);
        compare(only(LivePreview).trouble, "The last refresh failed");
    }

    function test_theMiddleShrinksWhereThereIsLessRoom() {
        const headerHeight = only(PanelHeader).height;
        const footerHeight = only(PanelFooter).height;

        panel.height = 360;

        compare(only(PanelHeader).height, headerHeight);
        compare(only(PanelFooter).height, footerHeight);
        compare(areaOf(only(PanelFooter), panel).bottom, 360);
        verify(only(ScrollArea).contentHeight > only(ScrollArea).height);
    }

    function test_theWheelScrollsTheMiddle() {
        panel.height = 360;

        mouseWheel(only(ScrollArea), 170, 100, 0, -240);

        tryVerify(() => only(ScrollArea).contentY > 0);
    }

    function test_scrollsNoFurtherThanItsEnds() {
        panel.height = 360;
        const middle = only(ScrollArea);

        tryVerify(() => {
            mouseWheel(middle, 170, 100, 0, -240);
            return middle.contentY >= middle.contentHeight - middle.height;
        });

        tryCompare(middle, "moving", false);
        compare(middle.contentY, middle.contentHeight - middle.height);
    }

    function test_tabVisitsEverythingInOrderOfSight() {
        const visited = [];
        tab();
        while (!visited.includes(testCase.Window.activeFocusItem) && visited.length < 20) {
            visited.push(testCase.Window.activeFocusItem);
            tab();
        }

        // The gear has no words.
        compare(visited.map(item => item.text),
            ["", "Clock", "Show seconds", "24-hour format", "Quit"]);
    }

    function test_whatGetsTheKeyboardScrollsIntoView() {
        panel.height = 360;
        const middle = only(ScrollArea);
        tab(4);

        const focused = testCase.Window.activeFocusItem;
        compare(focused.text, "24-hour format");
        verify(middle.contentY > 0);
        const area = areaOf(focused, middle);
        verify(area.top >= 0 && area.bottom <= middle.height);
        tab(3);
        compare(testCase.Window.activeFocusItem.text, "Clock");
        const first = areaOf(testCase.Window.activeFocusItem, middle);
        verify(first.top >= 0 && first.bottom <= middle.height);
    }

    function test_theGearBringsUpTheSettings() {
        mouseClick(all(only(PanelHeader), PlainButton)[0]);

        tryVerify(() => all(panel, AppSettingsSheet).length === 1);
        compare(world.ticker.mode, TickerMode.Clock);
        compare(all(panel, ClockOptions).length, 1);
    }

    function test_theSettingsShowHowTheTopBarStands() {
        world.setTopBar("on");
        mouseClick(all(panel, PlainButton).find(button => button.Accessible.name === "Settings"));
        const row = () => all(panel, GlimmetToggle).find(toggle => toggle.label === "Show in the top bar as text");
        tryVerify(() => row()?.visible ?? false);

        compare(row().checked, true);
    }

    function test_theSettingsLeaveThePanelAsItWas() {
        world.ticker.mode = TickerMode.Custom;
        tryVerify(() => all(panel, CustomTextOption).length === 1 && all(panel, ClockOptions).length === 0);
        const editor = only(CustomTextOption);
        mouseClick(all(only(PanelHeader), PlainButton)[0]);
        tryVerify(() => all(panel, AppSettingsSheet).length === 1);

        keyClick(Qt.Key_Escape);

        tryVerify(() => all(panel, AppSettingsSheet).length === 0);
        compare(world.ticker.mode, TickerMode.Custom);
        compare(only(CustomTextOption), editor);
        compare(closings.count, 0);
    }

    function test_escapeAsksToClose() {
        keyClick(Qt.Key_Escape);

        compare(closings.count, 1);
    }

    function test_escapeAsksToCloseWhileAQuoteIsTyped() {
        world.ticker.mode = TickerMode.Quote;
        tryVerify(() => all(panel, BorderedField).length === 1);
        mouseClick(only(BorderedField));
        keyClick(Qt.Key_A);

        keyClick(Qt.Key_Escape);

        compare(closings.count, 1);
        compare(world.ticker.customQuotes, []);
    }

    function test_theModeIsChangedWithTheKeyboardAlone() {
        tab(2);
        keyClick(Qt.Key_Right);
        keyClick(Qt.Key_Return);
        tryVerify(() => all(panel, QuoteOptions).length === 1 && all(panel, ClockOptions).length === 0);
        tab();

        verify(only(BorderedField).activeFocus);
        keyClick(Qt.Key_A);
        keyClick(Qt.Key_Return);

        compare(world.ticker.customQuotes, ["a"]);
    }

    function test_showsNoScrollIndicators() {
        panel.height = 360;

        const beside = Array.from(only(ScrollArea).children).filter(item => item !== only(ScrollArea).contentItem);
        compare(beside.filter(item => !(item instanceof SoftEdge) && item.children.length > 0), []);
        compare(beside.filter(item => item instanceof SoftEdge).map(edge => edge.width), [340, 340 - 2 * Theme.panelRadius]);
    }

    function sheetArea(): ScrollArea {
        return all(only(APIKeysSheet), ScrollArea)[0] as ScrollArea;
    }

    function isInView(item: Item): bool {
        const place = areaOf(item, sheetArea());
        return place.top >= 0 && place.bottom <= sheetArea().height;
    }

    function test_thePreviewLeadsToTheFieldOfTheMissingKey_data() {
        return [
            {tag: "first", provider: RevenueProvider.Polar, section: 0},
            {tag: "last", provider: RevenueProvider.LemonSqueezy, section: 4}
        ];
    }

    function test_thePreviewLeadsToTheFieldOfTheMissingKey(row) {
        world.ticker.mode = TickerMode.Revenue;
        world.ticker.revenueProvider = row.provider;
        world.finishFetch("add api key");
        world.advance(1);

        mouseClick(only(LivePreview), 60, 30);

        tryVerify(() => all(panel, APIKeysSheet).length === 1);
        const section = all(only(APIKeysSheet), KeySection)[row.section];
        tryVerify(() => isInView(section));
        verify(all(section, SecretField)[0].activeFocus);
        keyClick(Qt.Key_Z);
        compare(all(section, SecretField)[0].text, "z");
    }

    function test_thePreviewLeadsToTheMissingProjectToo() {
        world.ticker.mode = TickerMode.Revenue;
        world.ticker.revenueProvider = RevenueProvider.RevenueCat;
        world.finishFetch("add project id");
        world.advance(1);

        mouseClick(only(LivePreview), 60, 30);

        tryVerify(() => all(panel, APIKeysSheet).length === 1);
        verify(all(all(only(APIKeysSheet), KeySection)[1], SecretField)[1].activeFocus);
    }

    function test_aTextOfTheUsersThatReadsTheSameLeadsNowhere() {
        world.ticker.mode = TickerMode.Custom;
        world.ticker.customText = "add api key";
        world.advance(1);

        compare(only(LivePreview).asked, -1);
    }

    function test_theKeysOpenAtTheChosenPlatform() {
        world.ticker.mode = TickerMode.Revenue;
        world.ticker.revenueProvider = RevenueProvider.LemonSqueezy;
        tryVerify(() => buttonOf(panel, "API Keys") !== null);

        buttonOf(panel, "API Keys").clicked();

        const last = all(only(APIKeysSheet), KeySection)[4];
        tryVerify(() => isInView(last));
        verify(!all(last, SecretField)[0].activeFocus);
        tryVerify(() => {
            mouseWheel(sheetArea(), 100, 100, 0, 240);
            return sheetArea().contentY < 1;
        });
        tryCompare(sheetArea(), "moving", false);
        passFrames();
        verify(sheetArea().contentY < 1);
    }

    function test_aFieldThatGetsTheKeyboardBringsItsBadgeIntoView() {
        world.ticker.mode = TickerMode.Revenue;
        tryVerify(() => buttonOf(panel, "API Keys") !== null);
        buttonOf(panel, "API Keys").clicked();
        const third = all(only(APIKeysSheet), KeySection)[3];

        all(third, SecretField)[0].forceActiveFocus(Qt.TabFocusReason);

        tryVerify(() => isInView(all(third, KeyStatusBadge)[0]) && isInView(all(third, SectionLabel)[0]));
    }
}
