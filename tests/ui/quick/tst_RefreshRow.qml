import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "RefreshRow"

    Component {
        id: rows

        RefreshRow {
            width: 300
            ticker: testCase.world.ticker
        }
    }

    SignalSpy {
        id: said
        signalName: "said"
    }
    Component {
        id: buttons

        PlainButton {
            text: "Next"
        }
    }

    property RefreshRow row: null

    function init() {
        makeWorld();
        world.finishFetch("$12");
        row = make(rows);
    }

    function refresh(): Item {
        return buttonOf(row, "Refresh");
    }

    function test_saysThatItRefreshesByItself() {
        const caption = textOf(row, "Auto-refreshes every 5 min");

        compareFont(caption, 10, 400);
        compareInk(caption.color, 0.35);
        compare(textOf(row, "Fetching…"), null);
    }

    function test_theButtonStandsAtTheRight() {
        const label = textOf(row, "Refresh");

        compareFont(label, 11, 400);
        compareInk(label.color, 1);
        compare(areaOf(refresh(), row).right, 300);
        compare(refresh().leftPadding, 10);
        compare(refresh().topPadding, 5);
        compareInk(refresh().background.color, 0.07);
        verify(refresh().background.radius > 0);
        compare(all(refresh(), SymbolImage)[0].name, "arrow.clockwise");
        compare(all(refresh(), SymbolImage)[0].size, 11);
    }

    function test_aClickFetches() {
        const before = world.revenueFetches();

        mouseClick(refresh());

        compare(world.revenueFetches(), before + 1);
    }

    function test_whileAFetchRunsItSaysSo() {
        world.ticker.fetchRevenue();

        const text = textOf(row, "Fetching…");
        compareFont(text, 11, 400);
        compareInk(text.color, 0.45);
        compare(textOf(row, "Auto-refreshes every 5 min"), null);
        const spinner = all(row, SymbolImage).find(symbol => symbol.name === "progress.indicator");
        compare(spinner.parent.width, 16);
        compare(spinner.width, 10);
        const turn = spinner.turn;
        tryVerify(() => spinner.turn !== turn);
    }

    function test_aFetchIsAnnounced() {
        const news = announcementIn(row);
        news.rest = 10;
        said.target = news;

        world.ticker.fetchRevenue();

        said.wait();
        compare(said.signalArguments[0][0], "Fetching…");
        verify(news.item.visible);
    }

    function test_theSpinnerStandsStillWhereLessMotionIsWished() {
        desktop.wish(false, true);
        world.ticker.fetchRevenue();
        const spinner = all(row, SymbolImage).find(symbol => symbol.name === "progress.indicator");
        verify(spinner.visible);

        passFrames();

        compare(spinner.turn, 0);
    }

    function test_theSpinnerRestsWhileNothingIsFetched() {
        const spinner = all(row, SymbolImage).find(symbol => symbol.name === "progress.indicator");

        verify(!spinner.visible);
        compare(spinner.turn, 0);
    }

    function test_whileAFetchRunsTheButtonIsOff() {
        world.ticker.fetchRevenue();
        const running = world.revenueFetches();

        verify(!refresh().enabled);
        mouseClick(refresh());

        compare(world.revenueFetches(), running);
        world.finishFetch("$13");
        verify(refresh().enabled);
        verify(textOf(row, "Auto-refreshes every 5 min") !== null);
    }

    function test_theKeyboardComesBackToTheButtonAfterAFetch() {
        refresh().forceActiveFocus(Qt.TabFocusReason);

        keyClick(Qt.Key_Return);
        verify(!refresh().enabled);
        world.finishFetch("$13");

        verify(refresh().visualFocus);
    }

    function test_theKeyboardGoesOnFromTheButtonWhileAFetchRuns() {
        // So that there is another one at the top.
        make(buttons);
        row = make(rows);
        const next = make(buttons);
        refresh().forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);

        tab();
        verify(next.visualFocus);
        world.finishFetch("$13");

        verify(next.visualFocus);
    }

    function test_isToldAsAButton() {
        const before = world.revenueFetches();
        verify(reader.told(row).includes("Button Refresh"));

        verify(reader.press(row, "Refresh"));

        compare(world.revenueFetches(), before + 1);
    }

    function test_aScreenReaderStartsNoSecondFetch() {
        verify(reader.press(row, "Refresh"));
        const fetches = world.revenueFetches();

        verify(reader.isDisabled(row, "Refresh"));
        verify(reader.press(row, "Refresh"), "it is told of, though out of use");

        compare(world.revenueFetches(), fetches);
    }
}
