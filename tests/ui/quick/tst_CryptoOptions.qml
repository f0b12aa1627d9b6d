import QtQuick
import Glimmet

CryptoOptionsCase {
    id: testCase
    name: "CryptoOptions"

    function test_thePiecesStandTwelveApart() {
        const label = areaOf(textOf(options, "SYMBOLS"), options);
        const list = areaOf(flow(), options);
        const entry = areaOf(field(), options);
        const every = areaOf(textOf(options, "REFRESH EVERY"), options);
        const interval = areaOf(intervals()[0], options);
        const area = areaOf(chartArea(), options);

        compare(label.y, 0);
        compare(list.y - label.bottom, 12);
        compare(entry.y - list.bottom, 12);
        compare(every.y - entry.bottom, 12);
        compare(area.y - interval.bottom, 12);
        compare(areaOf(help(), options).y - areaOf(refresh(), options).bottom, 12);
        compare(options.height, areaOf(help(), options).bottom);
    }

    function test_eachSymbolHasAChip() {
        compare(symbols(), ["BTC-USD", "ETH-USD"]);
        compare(flow().spacing, 6);
        compare(flow().width, 300);
        compare(areaOf(chips()[1], options).left - areaOf(chips()[0], options).right, 6);
        compare(areaOf(chips()[1], options).y, areaOf(chips()[0], options).y);
    }

    function test_manySymbolsTakeSeveralRows() {
        setSymbols(manySymbols);

        const rows = [...new Set(chips().map(chip => chip.y))];
        verify(rows.length > 3);
        compare(rows[1] - rows[0], chips()[0].height + 6);
        verify(chips().every(chip => chip.x + chip.width <= 300));
        compare(flow().height, rows.length * (chips()[0].height + 6) - 6);
    }

    function test_aLongSymbolStaysInTheEditor() {
        setSymbols(["BTC", "W".repeat(200), "AAPL"]);

        tryCompare(chips()[2], "x", 0);
        compare(chips()[1].x, 0);
        compare(chips()[1].width, 300);
        verify(chips()[0].y < chips()[1].y && chips()[1].y < chips()[2].y);
    }

    function test_theChipOfTheSymbolOnShowIsMarked() {
        compare(shown(), ["BTC-USD"]);
        world.advance(10);
        compare(shown(), ["ETH-USD"]);
        world.advance(10);
        compare(shown(), ["BTC-USD"]);
    }

    function test_outOfRangeNothingIsOnShow() {
        world.ticker.currentCryptoIndex = 2;

        compare(shown(), []);
        verify(!chartArea().visible);
        verify(refresh() === null);
        world.ticker.currentCryptoIndex = 1;
        compare(shown(), ["ETH-USD"]);
        verify(chartArea().visible);
    }

    function test_aSymbolCanBeRemoved() {
        setSymbols(["A", "B", "C"]);

        mouseClick(removeButton(chips()[1]));

        compare(symbols(), ["A", "C"]);
        compare(world.storedSymbols(), ["A", "C"]);
    }

    function test_equalSymbolsGoTogether() {
        setSymbols(["A", "B", "A"]);
        compare(shown(), ["A"]);

        mouseClick(removeButton(chips()[2]));

        compare(symbols(), ["B"]);
    }

    function test_theOtherChipsAreKeptAndGlide() {
        setSymbols(["AAAAAAAA", "B", "C"]);
        const c = chips()[2];
        const x = c.x;

        world.ticker.removeCryptoSymbol("AAAAAAAA");

        verify(chips()[1] === c);
        tryVerify(() => c.x < x && c.x > chips()[0].width + 6);
        tryVerify(() => c.x === chips()[0].width + 6);
    }

    function test_aNewChipFadesIn() {
        world.ticker.addCryptoSymbol("aapl");

        verify(chips()[2].opacity < 1);
        tryCompare(chips()[2], "opacity", 1);
        compare(chips()[0].opacity, 1);
    }

    function test_theFirstChipsAreThereAtOnce() {
        verify(chips().every(chip => chip.opacity === 1));
        compare(flow().height, flow().implicitHeight);
        verify(flow().height > 0);
    }

    function test_theHeightFollowsSlowly() {
        const height = flow().height;

        world.ticker.cryptoSymbols = manySymbols;

        tryVerify(() => flow().height > height && flow().height < flow().implicitHeight);
        tryVerify(() => flow().height === flow().implicitHeight);
    }

    function test_theListChangesAtOnceWhereLessMotionIsWished() {
        desktop.wish(false, true);
        setSymbols(["AAAAAAAA", "B"]);
        const b = chips()[1];

        world.ticker.cryptoSymbols = ["B"];
        tryVerify(() => !isPolishScheduled(flow()));
        compare(b.x, 0);

        world.ticker.cryptoSymbols = ["B"].concat(manySymbols);
        tryVerify(() => !isPolishScheduled(flow()));
        compare(flow().height, flow().implicitHeight);
        verify(chips().every(chip => chip.opacity === 1));
    }

    function test_theFieldHasItsMeasures() {
        compare(field().font.pixelSize, 12);
        compare(field().font.family, Appearance.monospacedFamily);
        compare(field().leftPadding, 10);
        compare(field().rightPadding, 10);
        compare(field().topPadding, 7);
        compare(field().bottomPadding, 7);
        compare(field().background.radius, 7);
        compare(field().background.borderWidth, 1.5);
        compareInk(field().background.color, 0.04);
        compareInk(field().background.borderColor, 0.12);
        verify(textOf(field(), "BTC, ETH-USD, AAPL…") !== null);
        compareFont(textOf(options, "Add"), 11, 400);
        compare(add().leftPadding, 10);
        compare(add().topPadding, 7);
        compareInk(add().background.color, 0.07);
        compare(areaOf(add(), options).right, 300);
    }

    function test_theFieldsBorderTakesTheAccentWhileItHasTheFocus() {
        mouseClick(field());

        tryVerify(() => isColor(field().background.borderColor, Appearance.accent));
    }

    function test_returnAndTheButtonAddASymbol_data() {
        return [{tag: "return"}, {tag: "add"}];
    }

    function test_returnAndTheButtonAddASymbol(row) {
        type(" aapl ");

        if (row.tag === "return")
            keyClick(Qt.Key_Return);
        else
            mouseClick(add());

        compare(symbols(), ["BTC-USD", "ETH-USD", "AAPL"]);
        compare(world.storedSymbols(), ["BTC-USD", "ETH-USD", "AAPL"]);
        compare(field().text, "");
    }

    function test_severalSymbolsAreAddedAtOnce() {
        type("sol, aapl,btc-usd");

        keyClick(Qt.Key_Return);

        compare(symbols(), ["BTC-USD", "ETH-USD", "SOL", "AAPL"]);
    }

    function test_aKnownOrEmptySymbolOnlyEmptiesTheField_data() {
        return [{tag: "known", text: "eth-usd"}, {tag: "blank", text: "  "}, {tag: "empty", text: ""}];
    }

    function test_aKnownOrEmptySymbolOnlyEmptiesTheField(row) {
        type(row.text);
        const before = world.priceFetches();

        keyClick(Qt.Key_Return);

        compare(symbols(), ["BTC-USD", "ETH-USD"]);
        compare(field().text, "");
        compare(world.priceFetches(), before);
    }

    function test_afterAnEntryTheNextOneCanBeTyped() {
        type("sol");
        keyClick(Qt.Key_Return);

        verify(field().activeFocus);
    }

    function test_anAddedSymbolFetchesEveryPriceOnce() {
        type("sol");
        const before = world.priceFetches();

        keyClick(Qt.Key_Return);

        compare(world.pricesAskedSince(before), ["BTC-USD", "ETH-USD", "SOL"]);
    }

    function test_aRemovedSymbolFetchesTheRest() {
        const before = world.priceFetches();

        mouseClick(removeButton(chips()[0]));

        compare(world.pricesAskedSince(before), ["ETH-USD"]);
    }

    function test_theIntervalsStandInOrder() {
        compare(intervals().map(chip => chip.label), ["5s", "10s", "30s", "60s"]);
        verify(intervals().every(chip => chip.symbol === "arrow.clockwise"));
        compare(intervals().filter(chip => chip.selected).map(chip => chip.label), ["10s"]);
    }

    function test_aTapSetsTheInterval_data() {
        return [{tag: "5s", seconds: 5}, {tag: "10s", seconds: 10}, {tag: "30s", seconds: 30}, {tag: "60s", seconds: 60}];
    }

    function test_aTapSetsTheInterval(row) {
        const before = world.priceFetches();

        mouseClick(intervals().find(chip => chip.label === row.tag));

        compare(world.ticker.cryptoRotateInterval, row.seconds);
        compare(intervals().filter(chip => chip.checked).map(chip => chip.label), [row.tag]);
        compare(help().text,
            "Works for crypto (BTC, ETH) and stocks (AAPL, TSLA). Price refreshes every " + row.tag + ".");
        compare(world.priceFetches(), before);
    }

    function test_anIntervalThatIsNotOfferedSelectsNone() {
        world.ticker.cryptoRotateInterval = 7;

        verify(intervals().every(chip => !chip.selected && !chip.checked));
        verify(help().text.endsWith("every 7s."));
    }

    function test_theHelpLineWrapsUnderEverything() {
        compareFont(help(), 10, 400);
        compareInk(help().color, 0.35);
        compare(help().width, 300);
        compare(help().wrapMode, Text.Wrap);
    }

    function test_aSymbolThatIsThereIsPointedAt() {
        const pointed = () => chips().filter(chip => all(chip, RoundedBox).some(box => box.visible && box.opacity > 0
            && isColor(box.borderColor, Appearance.accent) && box.borderWidth === 1.5)).map(chip => chip.symbol);
        const before = world.ticker.cryptoSymbols;

        field().text = "eth-usd";
        field().accepted();

        tryVerify(() => pointed().length > 0);
        compare(pointed(), ["ETH-USD"]);
        compare(world.ticker.cryptoSymbols, before);
        compare(options.known, "ETH-USD is there already");
    }
}
