import QtQuick
import QtTest
import Glimmet

CryptoOptionsCase {
    id: testCase
    name: "CryptoOptionsChart"

    SignalSpy {
        id: said
        signalName: "said"
    }

    function miss(symbol: string) {
        world.ticker.fetchAllCryptoPrices();
        world.missPrice(symbol);
    }

    function test_aSymbolThatGaveNoPriceTwiceSaysWhyInsteadOfFetching() {
        miss("BTC-USD");
        verify(textOf(options, "Fetching chart…") !== null);
        compare(chips()[0].trouble, "");

        miss("BTC-USD");

        const trouble = textOf(options, "Not found");
        compareFont(trouble, 11, 400);
        compareInk(trouble.color, 0.7);
        fuzzyCompare(areaOf(trouble, chartArea()).x + areaOf(trouble, chartArea()).right, 300, 1);
        fuzzyCompare(areaOf(trouble, chartArea()).y + areaOf(trouble, chartArea()).bottom, 80, 1);
        compare(textOf(options, "Fetching chart…"), null);
        verify(!all(options, Spinner)[0].running);
        compare(chips().map(chip => chip.trouble), ["Not found", ""]);

        world.advance(10);
        compare(textOf(options, "Not found"), null);
        verify(textOf(options, "Fetching chart…") !== null);
    }

    function test_aPriceEndsTheTrouble() {
        miss("BTC-USD");
        miss("BTC-USD");

        world.storePrice("BTC-USD", 97012, 1.3, [95000, 97012]);

        compare(textOf(options, "Not found"), null);
        verify(chart().visible);
        compare(chips()[0].trouble, "");
    }

    function test_aKnownChartStaysWhileItsSymbolIsInTrouble() {
        world.storePrice("BTC-USD", 97012, 1.3, [95000, 97012]);
        miss("BTC-USD");
        miss("BTC-USD");

        verify(chart().visible);
        compare(textOf(options, "Not found"), null);
        compare(chips()[0].trouble, "Not found");
    }

    function test_theTroubleIsAnnounced() {
        const news = announcementIn(chartArea());
        news.rest = 10;
        said.target = news;
        miss("BTC-USD");

        miss("BTC-USD");

        said.wait();
        compare(said.signalArguments[0][0], "Not found");
        compare(news.item, textOf(options, "Not found"));
    }

    function test_theChartNamesWhenItsPriceCame() {
        world.storePrice("BTC-USD", 97012, 1.3, [95000, 97012]);

        compare(chart().arrival, "as of 09:05");
        verify(textOf(chart(), "as of 09:05") !== null);
    }

    function test_theChartAreaHasItsMeasures() {
        compare(chartArea().width, 300);
        compare(chartArea().height, 80);
        compare(chartArea().radius, 8);
        compareInk(chartArea().color, 0.04);
        compare(areaOf(chart(), chartArea()), Qt.rect(0, 0, 300, 80));
    }

    function test_untilThePriceComesItSaysSo() {
        const text = textOf(options, "Fetching chart…");
        const spinner = all(options, Spinner)[0];
        const busy = text.parent;

        compareFont(text, 11, 400);
        compareInk(text.color, 0.4);
        compare(spinner.factor, 0.7);
        verify(spinner.visible && spinner.running);
        fuzzyCompare(areaOf(busy, chartArea()).x + areaOf(busy, chartArea()).right, 300, 1);
        fuzzyCompare(areaOf(busy, chartArea()).y + areaOf(busy, chartArea()).bottom, 80, 1);
        verify(!chart().visible);
    }

    function test_aPriceThatComesIsDrawn() {
        world.storePrice("BTC-USD", 97012, 1.3, [95000, 97012]);

        verify(chart().visible);
        compare(chart().shortName, "BTC");
        compare(chart().menuBarString, "BTC $97,012 (↑1.3%)");
        compare(chart().history, [95000, 97012]);
        compare(textOf(options, "Fetching chart…"), null);
        verify(!all(options, Spinner)[0].running);
    }

    function test_aPriceWithoutHistoryIsStillFetching() {
        world.storePrice("BTC-USD", 97012, 1.3, []);

        verify(!chart().visible);
        verify(textOf(options, "Fetching chart…") !== null);
    }

    function test_aFailedFetchKeepsTheChart() {
        world.storePrice("BTC-USD", 97012, 1.3, [95000, 97012]);
        mouseClick(refresh());

        world.failPrice("BTC-USD");

        verify(chart().visible);
        compare(chart().menuBarString, "BTC $97,012 (↑1.3%)");
    }

    function test_theChartFollowsTheStoredPrice() {
        world.storePrice("BTC-USD", 97012, 1.3, [95000, 97012]);
        const before = grabImage(options);

        world.storePrice("BTC-USD", 97012, 1.3, [97012, 95000]);

        compare(chart().history, [97012, 95000]);
        verify(!grabImage(options).equals(before));
    }

    function test_theChartFollowsTheRotation() {
        world.storePrice("BTC-USD", 97012, 1.3, [95000, 97012]);
        world.storePrice("ETH-USD", 3200, 0, [3100, 3200]);

        world.advance(10);

        compare(chart().shortName, "ETH");
        compare(chart().history, [3100, 3200]);
    }

    function test_aPriceOfAnotherSymbolChangesNothing() {
        world.storePrice("ETH-USD", 3200, 0, [3100, 3200]);

        verify(!chart().visible);
    }

    function test_refreshStandsUnderTheChart() {
        compareFont(textOf(options, "Refresh"), 11, 400);
        compare(refresh().leftPadding, 10);
        compare(refresh().rightPadding, 10);
        compare(refresh().topPadding, 5);
        compare(refresh().bottomPadding, 5);
        compareInk(refresh().background.color, 0.07);
        compare(areaOf(refresh(), options).x, 0);
        compare(areaOf(refresh(), options).y - areaOf(chartArea(), options).bottom, 6);
    }

    function test_refreshFetchesEveryPriceOnce() {
        setSymbols(["A", "B", "C"]);
        const before = world.priceFetches();

        mouseClick(refresh());

        compare(world.pricesAskedSince(before), ["A", "B", "C"]);
    }

    function test_withoutSymbolsTheFieldAndTheIntervalsRemain() {
        setSymbols([]);

        compare(chips().length, 0);
        verify(!flow().visible);
        verify(!chartArea().visible);
        compare(refresh(), null);
        compare(textOf(options, "Fetching chart…"), null);
        verify(field().visible);
        compare(intervals().length, 4);
        tryVerify(() => areaOf(field(), options).y - areaOf(textOf(options, "SYMBOLS"), options).bottom === 12);
        tryVerify(() => options.height === areaOf(help(), options).bottom);
    }

    function test_theFirstSymbolOfAnEmptyListIsShown() {
        setSymbols([]);
        type("btc");

        keyClick(Qt.Key_Return);

        tryVerify(() => chips().length === 1 && chips()[0].visible);
        compare(shown(), ["BTC"]);
        verify(chartArea().visible);
        tryVerify(() => areaOf(field(), options).y - areaOf(chips()[0], options).bottom === 12);
    }

    function test_theKeyboardStaysNearARemovedSymbol() {
        setSymbols(["A", "B", "C"]);
        chips()[1].takeKeyboard();

        keyClick(Qt.Key_Space);
        verify(chips()[1].hasKeyboard);
        compare(chips()[1].symbol, "C");
        keyClick(Qt.Key_Return);
        verify(chips()[0].hasKeyboard);
        keyClick(Qt.Key_Return);

        compare(world.ticker.cryptoSymbols, []);
        compare(testCase.Window.activeFocusItem.text, "Undo");
    }

    function test_aMouseTakesNoKeyboardFocus() {
        mouseClick(removeButton(chips()[0]));

        verify(chips().every(chip => !chip.hasKeyboard));
    }

    function test_theKeyboardStaysWhereItIsWhileSymbolsCome() {
        setSymbols(["A", "B"]);
        chips()[1].takeKeyboard();

        world.ticker.addCryptoSymbol("C");

        verify(chips()[1].hasKeyboard);
    }

    function test_tabVisitsEverythingInOrder() {
        chips()[0].takeKeyboard();
        tab();
        verify(chips()[1].hasKeyboard);
        tab();
        verify(field().activeFocus);
        tab();
        verify(add().visualFocus);
        tab();
        verify(intervals()[1].visualFocus, "the one that is chosen");
        tab();
        verify(refresh().visualFocus);
    }

    function test_tabVisitsInsertedSymbolsInTheirPlaces() {
        setSymbols(["B"]);
        setSymbols(["A", "B"]);
        chips().find(chip => chip.symbol === "A").takeKeyboard();

        tab();

        verify(chips().find(chip => chip.symbol === "B").hasKeyboard);
    }

    function test_everythingWorksByKeyboard() {
        const before = world.priceFetches();
        refresh().forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        compare(world.priceFetches(), before + 2);

        intervals()[3].forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        compare(world.ticker.cryptoRotateInterval, 60);
    }

    function test_everythingIsToldByItsName() {
        world.storePrice("BTC-USD", 97012, 1.3, [95000, 97012]);

        const told = reader.told(options);
        for (const line of ["StaticText SYMBOLS", "StaticText BTC-USD", "Button Remove BTC-USD",
                "Button Remove ETH-USD", "EditableText New symbol", "Button Add", "StaticText REFRESH EVERY",
                "Grouping Refresh every", "RadioButton 10s [x]", "RadioButton 60s [ ]", "Graphic BTC price chart",
                "StaticText BTC $97,012 (↑1.3%)", "Button Refresh"])
            verify(told.includes(line), line);
    }

    function test_aScreenReaderUsesEverything() {
        const before = world.priceFetches();

        verify(reader.press(options, "Remove BTC-USD"));
        compare(world.ticker.cryptoSymbols, ["ETH-USD"]);
        verify(reader.press(options, "30s"));
        compare(world.ticker.cryptoRotateInterval, 30);
        verify(reader.press(options, "Refresh"));
        compare(world.pricesAskedSince(before), ["ETH-USD", "ETH-USD"]);
        field().text = "sol";
        verify(reader.press(options, "Add"));
        compare(world.ticker.cryptoSymbols, ["ETH-USD", "SOL"]);
    }
}
