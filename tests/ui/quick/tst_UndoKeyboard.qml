import QtQuick
import Glimmet

// Removing and putting back by keyboard.
UndoCase {
    name: "UndoKeyboard"

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
        options.undo.duration = 1000; // Not over before the others are removed, also on a busy machine.
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
}
