import QtQuick
import Glimmet

PanelTestCase {
    id: testCase
    name: "ModeSelector"

    Component {
        id: selectors

        ModeSelector {
            width: 340
            ticker: testCase.world.ticker
        }
    }

    property ModeSelector selector: null

    function init() {
        makeWorld();
        selector = make(selectors);
    }

    function cards(): var {
        return all(selector, ModeCard);
    }

    function selected(): var {
        return cards().filter(card => card.selected).map(card => card.label);
    }

    function test_holdsACardForEachModeInOrder() {
        compare(cards().map(card => card.label), ["Clock", "Quote", "Custom", "Revenue", "Crypto", "Deadline"]);
        compare(cards().map(card => card.symbol), ["clock", "text.bubble", "pencil", "dollarsign.circle",
            "chart.line.uptrend.xyaxis", "timer"]);
    }

    function test_standsInTwoColumns() {
        const areas = cards().map(card => areaOf(card, selector));

        compare(areas.map(area => area.x), [20, 173, 20, 173, 20, 173]);
        compare(areas.map(area => area.width), [147, 147, 147, 147, 147, 147]);
        compare(areas[1].y, areas[0].y);
        compare(areas[2].y - areas[0].bottom, 6);
    }

    function test_isPaddedBelowItsLabel() {
        const label = areaOf(textOf(selector, "DISPLAY MODE"), selector);

        compare(label.x, 20);
        compare(label.y, 16);
        compare(areaOf(cards()[0], selector).y - label.bottom, 10);
        compare(selector.height - areaOf(cards()[5], selector).bottom, 16);
    }

    function test_theCardOfTheModeIsSelected() {
        compare(selected(), ["Clock"]);

        world.ticker.mode = TickerMode.Deadline;

        compare(selected(), ["Deadline"]);
    }

    function test_aTapSetsTheMode() {
        mouseClick(cards()[1]);

        compare(world.ticker.mode, TickerMode.Quote);
        compare(selected(), ["Quote"]);
        verify(cards().every(card => card.checked === card.selected));
    }

    function test_theRevenueCardFetchesTheRevenue() {
        const before = world.revenueFetches();

        mouseClick(cards()[3]);
        compare(world.revenueFetches(), before + 1);
        mouseClick(cards()[3]);
        compare(world.revenueFetches(), before + 2);
        compare(selected(), ["Revenue"]);
    }

    function test_theCryptoCardFetchesThePriceOfEverySymbol() {
        const before = world.priceFetches();

        mouseClick(cards()[4]);
        compare(world.priceFetches(), before + 2);
        mouseClick(cards()[4]);
        compare(world.priceFetches(), before + 4);
        compare(selected(), ["Crypto"]);
    }

    function test_theOtherCardsFetchNothing() {
        const revenue = world.revenueFetches();
        const prices = world.priceFetches();

        for (const index of [0, 1, 2, 5])
            mouseClick(cards()[index]);

        compare(world.revenueFetches(), revenue);
        compare(world.priceFetches(), prices);
    }

    function test_theMenuBarFollowsWithinASecond() {
        mouseClick(cards()[2]);
        world.advance(1);

        compare(world.ticker.currentDisplay, "hello world ✦");
    }

    function focused(): string {
        return cards().find(card => card.visualFocus).label;
    }

    function test_tabStopsOnceAtTheCardThatIsChosen() {
        world.ticker.mode = TickerMode.Custom;

        compare(cards().filter(card => card.activeFocusOnTab).map(card => card.label), ["Custom"]);
    }

    function test_arrowsLeadFromCardToCardAsTheyStand() {
        cards()[0].forceActiveFocus(Qt.TabFocusReason);

        for (const [key, expected] of [[Qt.Key_Right, "Quote"], [Qt.Key_Down, "Revenue"], [Qt.Key_Left, "Custom"],
                [Qt.Key_Down, "Crypto"], [Qt.Key_Down, "Crypto"], [Qt.Key_Up, "Custom"], [Qt.Key_Up, "Clock"],
                [Qt.Key_Up, "Clock"], [Qt.Key_Left, "Clock"]]) {
            keyClick(key);
            compare(focused(), expected);
        }
        compare(world.ticker.mode, TickerMode.Clock);
    }

    function test_spaceAndReturnChooseWhereTheArrowsLed() {
        cards()[0].forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Right);
        keyClick(Qt.Key_Space);
        compare(world.ticker.mode, TickerMode.Quote);

        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);

        compare(world.ticker.mode, TickerMode.Revenue);
        compare(focused(), "Revenue");
    }

    function test_theCardsAreOneGroupForAScreenReader() {
        const told = reader.told(selector);

        compare(told.slice(told.indexOf("Grouping Display mode"))[1], "RadioButton Clock [x]");
    }

    function test_aScreenReaderChoosesAModeOnce() {
        const before = world.revenueFetches();

        verify(reader.press(selector, "Revenue"));

        compare(world.ticker.mode, TickerMode.Revenue);
        compare(world.revenueFetches(), before + 1);
        verify(reader.told(selector).includes("RadioButton Revenue [x]"));
        verify(reader.told(selector).includes("RadioButton Clock [ ]"));
    }
}
