import QtQuick
import Glimmet

// Lists that are removed as a whole.
UndoCase {
    name: "UndoClearing"

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

    function test_theRingLeavesTheTextRoomAndIsSeenAsAWhole_data() {
        return clearedLists();
    }

    function test_theRingLeavesTheTextRoomAndIsSeenAsAWhole(data) {
        open(data.tag);
        const button = buttonOf(options, data.clearing);
        const ring = all(button, FocusRing)[0];
        const text = areaOf(textOf(button, data.clearing), button);
        const room = areaOf(ring, button);

        compare(text.left - room.left - ring.borderWidth, 2);
        compare(room.right - ring.borderWidth - button.width, 2);
        verify(text.right <= button.width);
        verify(areaOf(ring, options).right <= options.width + Theme.ringRoom);
        compare(areaOf(button, options).right, options.width);
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
