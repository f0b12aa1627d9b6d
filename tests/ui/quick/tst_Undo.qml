import QtQuick
import Glimmet

// What is removed by a slip, one by one.
UndoCase {
    id: testCase
    name: "Undo"

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
            verify(textOf(entries()[1], "Removed TWO") !== null);
    }

    function test_aRemovedEntryWithALongNameLeavesUndoItsRoom_data() {
        return clearedLists();
    }

    function test_aRemovedEntryWithALongNameLeavesUndoItsRoom(data) {
        open(data.tag);
        const name = "a name that is much longer than a row of this list is wide, and goes on and on";
        if (data.tag === "quotes")
            world.ticker.customQuotes = [name];
        else
            world.addDeadline(name, 400);
        const place = entries().length - 1;

        remove(place);

        const words = textOf(entries()[place], "Removed " + name);
        verify(words.truncated);
        verify(areaOf(words, options).right <= areaOf(undoButton(place), options).left);
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
        const offered = ["StaticText Removed TWO", "Button Undo Remove TWO"];
        verify(reader.told(options).every(line => !line.endsWith(" TWO") || offered.includes(line)));
        verify(reader.press(options, "Undo Remove TWO"));
        compare(stored(), ["ONE", "TWO", "THREE"]);
    }
}
