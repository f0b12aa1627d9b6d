import QtQuick
import Glimmet

PanelTestCase {
    id: testCase
    name: "QuoteOptions"

    Component {
        id: editors

        QuoteOptions {
            width: 300
            ticker: testCase.world.ticker
            undo: QuoteUndo {
                ticker: testCase.world.ticker
            }
        }
    }

    property QuoteOptions options: null

    function init() {
        makeWorld();
        options = make(editors);
    }

    function field(): Item {
        return all(options, BorderedField)[0];
    }

    function add(): Item {
        return buttonOf(options, "Add");
    }

    function rows(): var {
        return all(options, QuoteRow).filter(row => !row.isRemoved);
    }

    function quotes(): var {
        return rows().map(row => row.quote);
    }

    function type(words: string) {
        mouseClick(field());
        for (const letter of words)
            keyClick(letter);
    }

    function setQuotes(list: var) {
        world.ticker.customQuotes = list;
        verify(waitForRendering(options));
    }

    function test_theFieldHasItsMeasures() {
        compare(field().font.pixelSize, 12);
        compare(field().leftPadding, 10);
        compare(field().rightPadding, 10);
        compare(field().topPadding, 7);
        compare(field().bottomPadding, 7);
        compare(field().background.radius, 7);
        compare(field().background.borderWidth, 1.5);
        compareInk(field().background.color, 0.04);
        compareInk(field().background.borderColor, 0.12);
        verify(textOf(field(), "stay curious ✦") !== null);
    }

    function test_theButtonStandsBesideTheField() {
        const label = textOf(options, "Add");

        compareFont(label, 11, 400);
        compare(add().leftPadding, 10);
        compare(add().topPadding, 7);
        compareInk(add().background.color, 0.07);
        compare(areaOf(add(), options).x - areaOf(field(), options).right, 6);
        compare(areaOf(add(), options).right, 300);
        compare(add().height, field().height);
    }

    function test_thePiecesStandTwelveApart() {
        const label = areaOf(textOf(options, "ADD QUOTE"), options);
        const own = areaOf(textOf(options, "YOUR QUOTES"), options);

        compare(label.y, 0);
        compare(areaOf(field(), options).y - label.bottom, 12);
        compare(own.y - areaOf(field(), options).bottom, 12);
    }

    function test_withoutQuotesItCountsTheDefaults() {
        const count = textOf(options, "Using defaults (10)");

        compareFont(count, 10, 400);
        compareInk(count.color, 0.3);
        compare(areaOf(count, options).right, 300);
        compare(buttonOf(options, "Reset to defaults"), null);
    }

    function test_withoutQuotesItSaysHowToGetSome() {
        const hint = textOf(options, "Add a quote above to replace the default rotation.");

        compareFont(hint, 11, 400);
        compareInk(hint.color, 0.4);
        compare(hint.horizontalAlignment, Text.AlignHCenter);
        compare(hint.topPadding, 10);
        compare(hint.bottomPadding, 10);
        compare(rows().length, 0);
    }

    function test_addTakesTheQuote() {
        type("ship it");

        mouseClick(add());

        compare(world.ticker.customQuotes, ["ship it"]);
        compare(world.storedQuotes(), ["ship it"]);
        compare(field().text, "");
        verify(!field().activeFocus);
    }

    function test_returnTakesTheQuote() {
        type("ship it");

        keyClick(Qt.Key_Return);

        compare(quotes(), ["ship it"]);
        compare(field().text, "");
        verify(!field().activeFocus);
    }

    function test_anEmptyFieldAddsNothingAndLosesTheFocus_data() {
        return [{tag: "return"}, {tag: "add"}];
    }

    function test_anEmptyFieldAddsNothingAndLosesTheFocus(row) {
        mouseClick(field());

        if (row.tag === "return")
            keyClick(Qt.Key_Return);
        else
            mouseClick(add());

        compare(world.ticker.customQuotes, []);
        compare(world.storedQuotes(), ["absent"]);
        verify(!field().activeFocus);
    }

    function test_aRefusedQuoteIsClearedToo() {
        world.ticker.addQuote("ship it");
        type("  ship it ");

        keyClick(Qt.Key_Return);

        compare(quotes(), ["ship it"]);
        compare(field().text, "");
        verify(!field().activeFocus);
    }

    function test_theUsersQuotesStandInTheirOrder() {
        setQuotes(["one", "two", "three"]);

        compare(quotes(), ["one", "two", "three"]);
        compare(areaOf(rows()[1], options).y - areaOf(rows()[0], options).bottom, 4);
        compare(textOf(options, "Using defaults (10)"), null);
        compare(textOf(options, "Add a quote above to replace the default rotation."), null);
    }

    function test_aQuoteCanBeRemoved() {
        setQuotes(["one", "two", "three"]);

        mouseClick(all(rows()[1], PlainButton)[0]);

        compare(quotes(), ["one", "three"]);
        compare(world.storedQuotes(), ["one", "three"]);
    }

    function test_removingTheLastQuoteBringsTheDefaultsBack() {
        setQuotes(["one"]);

        mouseClick(all(rows()[0], PlainButton)[0]);

        compare(world.storedQuotes(), []);
        verify(textOf(options, "Using defaults (10)") !== null);
    }

    function test_theKeyboardStaysNearARemovedQuote() {
        setQuotes(["one", "two", "three"]);
        rows()[1].takeKeyboard();

        keyClick(Qt.Key_Delete);
        verify(rows()[1].hasKeyboard);
        compare(rows()[1].quote, "three");
        keyClick(Qt.Key_Delete);
        verify(rows()[0].hasKeyboard);
        keyClick(Qt.Key_Delete);

        compare(world.ticker.customQuotes, []);
        compare(testCase.Window.activeFocusItem.text, "Undo");
    }

    function test_theKeyboardGoesToTheFieldWhenAResetCanNoLongerBeUndone() {
        setQuotes(["one", "two"]);
        options.undo.duration = 50;
        buttonOf(options, "Reset to defaults").forceActiveFocus(Qt.TabFocusReason);

        keyClick(Qt.Key_Return);

        compare(quotes(), []);
        verify(buttonOf(options, "Undo").activeFocus);
        tryVerify(() => field().activeFocus);
        compare(buttonOf(options, "Undo"), null);
    }

    function test_theCountOfTheDefaultsStandsBesideUndo() {
        setQuotes(["one", "two"]);

        mouseClick(buttonOf(options, "Reset to defaults"));

        const undo = areaOf(buttonOf(options, "Undo"), options);
        compare(undo.right, 300);
        compare(areaOf(textOf(options, "Using defaults (10)"), options).right, undo.left - 6);
    }

    function test_aMouseTakesNoKeyboardFocus() {
        setQuotes(["one", "two"]);

        mouseClick(all(rows()[0], PlainButton)[0]);

        verify(!rows()[0].hasKeyboard);
    }

    function test_resetEmptiesAndStoresTheList() {
        setQuotes(["one", "two"]);
        const saves = world.quoteSaves();
        const reset = buttonOf(options, "Reset to defaults");
        compareFont(textOf(options, "Reset to defaults"), 10, 400);
        compareInk(textOf(options, "Reset to defaults").color, 0.3);
        compare(areaOf(reset, options).right, 300);

        mouseClick(reset);

        compare(world.ticker.customQuotes, []);
        compare(world.storedQuotes(), []);
        compare(world.quoteSaves(), saves + 1);
        compare(rows().length, 0);
    }

    function test_tabVisitsEverythingInOrder() {
        setQuotes(["one", "two"]);
        field().forceActiveFocus(Qt.TabFocusReason);
        tab();
        verify(add().visualFocus);
        tab();
        verify(buttonOf(options, "Reset to defaults").visualFocus);
        tab();
        verify(rows()[0].hasKeyboard);
        tab();
        verify(rows()[1].hasKeyboard);
    }

    function test_everythingIsToldByItsName() {
        setQuotes(["stay curious ✦"]);

        const told = reader.told(options);
        for (const line of ["StaticText ADD QUOTE", "EditableText New quote", "Button Add",
                "StaticText YOUR QUOTES", "Button Reset to defaults", "ListItem stay curious ✦",
                "Button Remove stay curious ✦"])
            verify(told.includes(line), line);
    }

    function test_aScreenReaderRemovesAQuote() {
        setQuotes(["one", "two"]);

        verify(reader.press(options, "Remove one"));

        compare(world.ticker.customQuotes, ["two"]);
    }

    function test_aHeldKeyRemovesOneQuoteOnly() {
        setQuotes(["a", "b", "c", "d"]);
        rows()[1].takeKeyboard();

        keyboard.hold(options.Window.window, Qt.Key_Delete, 5);

        compare(quotes(), ["a", "c", "d"]);
    }

    function pointed(): var {
        return all(options, QuoteRow).filter(row => all(row, RoundedBox).some(box => box.visible && box.opacity > 0
            && isColor(box.borderColor, Appearance.accent) && box.borderWidth === 1.5)).map(row => row.quote);
    }

    function test_aQuoteThatIsThereIsPointedAt() {
        setQuotes(["one", "two"]);

        field().text = " two ";
        field().accepted();

        tryVerify(() => pointed().length > 0);
        compare(pointed(), ["two"]);
        compare(world.ticker.customQuotes, ["one", "two"]);
        compare(options.known, "two is there already");
        tryVerify(() => pointed().length === 0);
    }

    function test_aNewQuoteIsNotPointedAt() {
        setQuotes(["one"]);

        field().text = "three";
        field().accepted();

        compare(world.ticker.customQuotes, ["one", "three"]);
        compare(pointed(), []);
        compare(options.known, "");
    }

    function test_whatIsBeingEditedComesBackWithAllThatWasReset() {
        setQuotes(["one", "two"]);
        all(options, QuoteRow)[0].edit();
        keyClick(Qt.Key_Z);

        mouseClick(buttonOf(options, "Reset to defaults"));
        compare(world.ticker.customQuotes, []);
        mouseClick(buttonOf(options, "Undo"));

        compare(world.ticker.customQuotes, ["z", "two"]);
    }
}
