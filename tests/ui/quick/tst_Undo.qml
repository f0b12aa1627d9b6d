import QtQuick
import QtTest
import Glimmet

// The three lists of the user's, from which something is removed by a slip.
PanelTestCase {
    id: testCase
    name: "Undo"

    Component {
        id: quoteEditors

        QuoteOptions {
            width: 300
            ticker: testCase.world.ticker
            undo: QuoteUndo {
                ticker: testCase.world.ticker
            }
        }
    }
    Component {
        id: symbolEditors

        CryptoOptions {
            width: 300
            ticker: testCase.world.ticker
            undo: SymbolUndo {
                ticker: testCase.world.ticker
            }
        }
    }
    Component {
        id: deadlineEditors

        DeadlineOptions {
            width: 300
            ticker: testCase.world.ticker
            undo: DeadlineUndo {
                ticker: testCase.world.ticker
            }
        }
    }
    SignalSpy {
        id: news
        signalName: "said"
    }

    property Item options: null
    property string list

    function lists(): var {
        return [{tag: "quotes"}, {tag: "symbols"}, {tag: "deadlines"}];
    }

    function clearedLists(): var {
        return [{tag: "quotes", clearing: "Reset to defaults"}, {tag: "deadlines", clearing: "Clear all"}];
    }

    // An editor of "ONE", "TWO" and "THREE".
    function open(kind: string) {
        list = kind;
        const names = ["ONE", "TWO", "THREE"];
        if (kind === "quotes")
            world.ticker.customQuotes = names;
        else if (kind === "symbols")
            world.ticker.cryptoSymbols = names;
        else
            names.forEach((name, i) => world.addDeadline(name, 100 * (i + 1)));
        options = make({quotes: quoteEditors, symbols: symbolEditors, deadlines: deadlineEditors}[kind]);
    }

    function kept(): var {
        if (list === "quotes")
            return world.ticker.customQuotes;
        return list === "symbols" ? world.ticker.cryptoSymbols : world.deadlines().map(line => line.split(" ")[0]);
    }

    function stored(): var {
        if (list === "quotes")
            return world.storedQuotes();
        return list === "symbols" ? world.storedSymbols() : world.storedDeadlines().map(line => line.split(" ")[0]);
    }

    function entries(): var {
        return all(options, RemovableBox);
    }

    function removeButton(entry: Item): Item {
        return all(entry, PlainButton).find(button => button.symbol.startsWith("xmark"));
    }

    function undoButton(place: int): Item {
        return buttonOf(entries()[place], "Undo");
    }

    function remove(place: int) {
        mouseClick(removeButton(entries()[place]));
        verify(waitForRendering(options));
    }

    function field(): Item {
        return all(options, BorderedField)[0];
    }

    function pressUndoKeys() {
        keySequence(StandardKey.Undo);
    }

    function test_whatIsRemovedIsStoredAtOnce_data() {
        return lists();
    }

    function test_whatIsRemovedIsStoredAtOnce(data) {
        open(data.tag);

        remove(1);

        compare(kept(), ["ONE", "THREE"]);
        compare(stored(), ["ONE", "THREE"]);
    }

    function test_undoStandsWhereTheEntryStood_data() {
        return lists();
    }

    function test_undoStandsWhereTheEntryStood(data) {
        open(data.tag);
        const areas = entries().map(entry => areaOf(entry, options));

        remove(1);

        compare(entries().map(entry => entry.isRemoved), [false, true, false]);
        compare(entries().map(entry => areaOf(entry, options)), areas);
        verify(undoButton(1) !== null);
        compare(undoButton(0), null);
        compare(textOf(entries()[1], "TWO"), null);
        if (data.tag !== "symbols")
            verify(textOf(entries()[1], "Removed") !== null);
    }

    function test_aClickPutsItBack_data() {
        return lists();
    }

    function test_aClickPutsItBack(data) {
        open(data.tag);
        remove(1);

        mouseClick(undoButton(1));

        compare(kept(), ["ONE", "TWO", "THREE"]);
        compare(stored(), ["ONE", "TWO", "THREE"]);
        compare(undoButton(1), null);
        verify(textOf(entries()[1], "TWO") !== null);
    }

    function test_theOfferLastsEightSeconds_data() {
        return lists();
    }

    function test_theOfferLastsEightSeconds(data) {
        open(data.tag);
        compare(options.undo.duration, 8000);
        options.undo.duration = 50;

        remove(1);

        tryVerify(() => entries().length === 2);
        compare(kept(), ["ONE", "THREE"]);
        pressUndoKeys();
        compare(kept(), ["ONE", "THREE"]);
    }

    function test_eachRemovalIsOfferedByItself_data() {
        return lists();
    }

    function test_eachRemovalIsOfferedByItself(data) {
        open(data.tag);
        remove(0);
        remove(1);
        remove(2);
        compare(kept(), []);

        mouseClick(undoButton(1));

        compare(kept(), ["TWO"]);
        mouseClick(undoButton(0));
        mouseClick(undoButton(2));
        compare(stored(), ["ONE", "TWO", "THREE"]);
    }

    function test_theUndoKeysTakeBackTheLastRemovalAndThenTheOneBefore_data() {
        return lists();
    }

    function test_theUndoKeysTakeBackTheLastRemovalAndThenTheOneBefore(data) {
        open(data.tag);
        remove(0);
        remove(2);

        pressUndoKeys();
        compare(kept(), ["TWO", "THREE"]);
        pressUndoKeys();

        compare(stored(), ["ONE", "TWO", "THREE"]);
    }

    function test_theUndoKeysAreAFieldsOwnWhileItHasTheKeyboard_data() {
        return lists();
    }

    function test_theUndoKeysAreAFieldsOwnWhileItHasTheKeyboard(data) {
        open(data.tag);
        remove(1);
        mouseClick(field());
        keyClick(Qt.Key_A);
        compare(field().text, "a");

        pressUndoKeys();
        pressUndoKeys();

        compare(field().text, "");
        compare(kept(), ["ONE", "THREE"]);
    }

    function test_theUndoKeysWorkInADate() {
        open("deadlines");
        remove(1);
        all(options, DateTimeSegment)[0].forceActiveFocus();

        pressUndoKeys();

        compare(kept(), ["ONE", "TWO", "THREE"]);
    }

    function test_theUndoKeysDoNothingBelowASheet() {
        open("quotes");
        remove(1);
        options.enabled = false;

        pressUndoKeys();

        compare(kept(), ["ONE", "THREE"]);
    }

    function test_nothingIsUndoneWhereNothingWasRemoved_data() {
        return lists();
    }

    function test_nothingIsUndoneWhereNothingWasRemoved(data) {
        open(data.tag);

        pressUndoKeys();

        compare(kept(), ["ONE", "TWO", "THREE"]);
    }

    function test_aDoubleClickRemovesOnce_data() {
        return lists();
    }

    function test_aDoubleClickRemovesOnce(data) {
        open(data.tag);

        mouseDoubleClickSequence(removeButton(entries()[1]));

        compare(kept(), ["ONE", "THREE"]);
    }

    function test_aDoubleClickPutsBackOnce_data() {
        return lists();
    }

    function test_aDoubleClickPutsBackOnce(data) {
        open(data.tag);
        const cross = areaOf(removeButton(entries()[1]), entries()[1]);
        remove(1);

        mouseDoubleClickSequence(entries()[1], cross.x + cross.width / 2, cross.y + cross.height / 2);

        compare(kept(), ["ONE", "TWO", "THREE"]);
    }

    function test_theKeyboardComesBackWithTheEntry_data() {
        return lists();
    }

    function test_theKeyboardComesBackWithTheEntry(data) {
        open(data.tag);
        remove(1);
        undoButton(1).forceActiveFocus(Qt.TabFocusReason);
        verify(entries()[1].hasKeyboard);

        keyClick(Qt.Key_Space);

        compare(kept(), ["ONE", "TWO", "THREE"]);
        verify(entries()[1].hasKeyboard);
        verify(removeButton(entries()[1]).visible);
    }

    function test_theKeyboardStaysNearAnOfferThatEnds_data() {
        return lists();
    }

    function test_theKeyboardStaysNearAnOfferThatEnds(data) {
        open(data.tag);
        options.undo.duration = 50;
        remove(1);
        undoButton(1).forceActiveFocus(Qt.TabFocusReason);

        tryVerify(() => entries().length === 2);

        verify(entries()[1].hasKeyboard);
    }

    function removeByKeyboard(place: int) {
        entries()[place].takeKeyboard();
        keyClick(list === "symbols" ? Qt.Key_Space : Qt.Key_Delete);
    }

    function test_theKeyboardGoesToTheNextEntryThenToTheOneBeforeAndThenToTheOffer_data() {
        return lists();
    }

    function test_theKeyboardGoesToTheNextEntryThenToTheOneBeforeAndThenToTheOffer(data) {
        open(data.tag);

        removeByKeyboard(1);
        verify(entries()[2].hasKeyboard);
        removeByKeyboard(2);
        verify(entries()[0].hasKeyboard);
        removeByKeyboard(0);

        compare(kept(), []);
        verify(undoButton(0).activeFocus);
        verify(undoButton(0).visualFocus);
    }

    function test_theUndoKeysBringBackTheLastEntryThatTheKeyboardRemoved_data() {
        return lists();
    }

    function test_theUndoKeysBringBackTheLastEntryThatTheKeyboardRemoved(data) {
        open(data.tag);
        for (const place of [0, 1, 2])
            removeByKeyboard(place);
        compare(kept(), []);

        pressUndoKeys();

        compare(stored(), ["THREE"]);
        verify(entries()[2].hasKeyboard);
        pressUndoKeys();
        compare(stored(), ["TWO", "THREE"]);
    }

    function test_theKeyboardGoesFromAnOfferThatEndsToOneThatLasts_data() {
        return lists();
    }

    function test_theKeyboardGoesFromAnOfferThatEndsToOneThatLasts(data) {
        open(data.tag);
        options.undo.duration = 50;
        remove(1);
        options.undo.duration = 8000;
        remove(0);
        remove(2);
        undoButton(1).forceActiveFocus(Qt.TabFocusReason);

        tryVerify(() => entries().length === 2);

        verify(undoButton(1).activeFocus);
    }

    function test_theKeyboardGoesToTheFieldAfterTheLastOffer_data() {
        return lists();
    }

    function test_theKeyboardGoesToTheFieldAfterTheLastOffer(data) {
        open(data.tag);
        options.undo.duration = 300;
        remove(0);
        remove(1);
        remove(2);
        undoButton(2).forceActiveFocus(Qt.TabFocusReason);

        tryVerify(() => entries().length === 0);

        verify(field().activeFocus);
    }

    function test_clearingIsUndoneByTheSameButton_data() {
        return clearedLists();
    }

    function test_clearingIsUndoneByTheSameButton(data) {
        open(data.tag);
        const button = buttonOf(options, data.clearing);

        mouseClick(button);
        compare(stored(), []);
        compare(entries().length, 0);
        compare(button.text, "Undo");
        verify(waitForRendering(options));
        mouseClick(button);

        compare(stored(), ["ONE", "TWO", "THREE"]);
        compare(button.text, data.clearing);
    }

    function test_clearingIsUndoneByTheUndoKeys_data() {
        return clearedLists();
    }

    function test_clearingIsUndoneByTheUndoKeys(data) {
        open(data.tag);
        mouseClick(buttonOf(options, data.clearing));

        pressUndoKeys();

        compare(stored(), ["ONE", "TWO", "THREE"]);
    }

    function test_aDoubleClickClearsOnce_data() {
        return clearedLists();
    }

    function test_aDoubleClickClearsOnce(data) {
        open(data.tag);

        mouseDoubleClickSequence(buttonOf(options, data.clearing), 5, 5);

        compare(kept(), []);
    }

    function test_afterEightSecondsClearingIsDone_data() {
        return clearedLists();
    }

    function test_afterEightSecondsClearingIsDone(data) {
        open(data.tag);
        options.undo.duration = 50;

        mouseClick(buttonOf(options, data.clearing));
        verify(buttonOf(options, "Undo") !== null);

        tryVerify(() => buttonOf(options, "Undo") === null);
        pressUndoKeys();
        compare(stored(), []);
    }

    function test_whatWasRemovedOneByOneBeforeIsOfferedBesideAClearing_data() {
        return clearedLists();
    }

    function test_whatWasRemovedOneByOneBeforeIsOfferedBesideAClearing(data) {
        open(data.tag);
        remove(1);
        mouseClick(buttonOf(options, data.clearing));
        verify(waitForRendering(options));
        compare(entries().length, 1);

        mouseClick(undoButton(0));
        compare(kept(), ["TWO"]);
        pressUndoKeys();

        compare(stored(), ["ONE", "TWO", "THREE"]);
    }

    function test_whatIsAddedMeanwhileStays_data() {
        return lists();
    }

    function test_whatIsAddedMeanwhileStays(data) {
        open(data.tag);
        remove(2);
        if (data.tag === "quotes")
            world.ticker.addQuote("FOUR");
        else if (data.tag === "symbols")
            world.ticker.addCryptoSymbol("FOUR");
        else
            world.addDeadline("FOUR", 400);
        verify(waitForRendering(options));

        mouseClick(undoButton(2));

        compare(stored(), ["ONE", "TWO", "THREE", "FOUR"]);
    }

    function test_whatIsAddedAgainIsNotOfferedAnyMore_data() {
        return [{tag: "quotes"}, {tag: "symbols"}];
    }

    function test_whatIsAddedAgainIsNotOfferedAnyMore(data) {
        open(data.tag);
        remove(0);
        mouseClick(field());
        for (const letter of "ONE")
            keyClick(letter);
        keyClick(Qt.Key_Return);
        testCase.forceActiveFocus();

        compare(kept(), ["TWO", "THREE", "ONE"]);
        compare(entries().length, 3);
        pressUndoKeys();
        compare(kept(), ["TWO", "THREE", "ONE"]);
    }

    function test_theSymbolOnShowIsMarkedBesideAnOffer() {
        open("symbols");
        remove(0);

        compare(entries().map(chip => chip.shown), [false, true, false]);
        world.ticker.currentCryptoIndex = 1;
        compare(entries().map(chip => chip.shown), [false, false, true]);
    }

    function test_removedDeadlinesAreNotCounted() {
        open("deadlines");

        remove(1);

        verify(textOf(options, "2 active") !== null);
    }

    function test_aScreenReaderHearsOfTheOfferAndTakesIt_data() {
        return lists();
    }

    function test_aScreenReaderHearsOfTheOfferAndTakesIt(data) {
        open(data.tag);
        news.target = announcementIn(all(options, UndoKey)[0]);
        news.clear();

        verify(reader.press(options, "Remove TWO"));

        tryVerify(() => news.count === 1);
        compare(news.signalArguments[0][0], "Removed TWO. Ctrl+Z brings it back.");
        verify(reader.told(options).every(line => !line.endsWith(" TWO") || line === "Button Undo Remove TWO"));
        verify(reader.press(options, "Undo Remove TWO"));
        compare(stored(), ["ONE", "TWO", "THREE"]);
    }

    function test_aScreenReaderHearsOfAClearing_data() {
        return clearedLists();
    }

    function test_aScreenReaderHearsOfAClearing(data) {
        open(data.tag);
        news.target = announcementIn(all(options, UndoKey)[0]);
        news.clear();

        verify(reader.press(options, data.clearing));

        tryVerify(() => news.count === 1);
        compare(news.signalArguments[0][0], "Removed all. Ctrl+Z brings them back.");
        verify(reader.press(options, "Undo " + data.clearing));
        compare(stored(), ["ONE", "TWO", "THREE"]);
    }
}
