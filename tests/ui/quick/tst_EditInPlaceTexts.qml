import QtQuick
import Glimmet

// What becomes of what is entered in a row.
EditInPlaceCase {
    name: "EditInPlaceTexts"

    function test_whatCannotBeAddedLeavesItAsItWas_data() {
        return [{tag: "an empty quote", kind: "quotes", text: ""}, {tag: "a quote of blanks", kind: "quotes", text: "  "},
            {tag: "a known quote", kind: "quotes", text: " one "}, {tag: "an empty name", kind: "deadlines", text: ""},
            {tag: "a name of blanks", kind: "deadlines", text: "  "}];
    }

    function test_whatCannotBeAddedLeavesItAsItWas(data) {
        open(data.kind);
        edit(1);
        keyClick(Qt.Key_Backspace);
        type(data.text);

        keyClick(Qt.Key_Return);

        compare(kept(), ["one", "two", "three"]);
        verify(textOf(rows()[1], "two") !== null);
        verify(rows()[1].hasKeyboard);
    }

    function test_blanksAroundItAreLeftOut_data() {
        return lists();
    }

    function test_blanksAroundItAreLeftOut(data) {
        open(data.tag);
        edit(1);
        type("  a b ");

        keyClick(Qt.Key_Return);

        compare(kept(), ["one", "a b", "three"]);
    }

    function test_aQuoteOfTwoLinesStaysWhereItIsNotChanged() {
        open("quotes");
        world.ticker.customQuotes = ["one\ntwo"];
        const saves = world.quoteSaves();
        edit(0);
        compare(field().text, "one two");

        keyClick(Qt.Key_Return);

        compare(world.ticker.customQuotes, ["one\ntwo"]);
        compare(world.quoteSaves(), saves);
    }

    function test_theUndoKeysAreTheFieldsOwn() {
        open("quotes");
        mouseClick(all(rows()[0], PlainButton)[0]);
        edit(1);
        type("x");

        keyClick(Qt.Key_Z, Qt.ControlModifier);

        compare(field().text, "two");
        compare(kept(), ["two", "three"]);
    }

    function test_anEditedQuoteStaysInPlaceBesideAnOffer() {
        open("quotes");
        mouseClick(all(rows()[1], PlainButton)[0]);
        edit(0);
        type("new");
        keyClick(Qt.Key_Return);
        verify(rows()[0].hasKeyboard);

        keyClick(Qt.Key_Z, Qt.ControlModifier);

        compare(kept(), ["new", "two", "three"]);
    }

    function segments(): var {
        return all(editors()[0], DateTimeSegment);
    }

    function test_theDateIsEditedBelowTheName() {
        open("deadlines");
        edit(0);
        compare(segments().map(segment => segment.text), ["05", "05", "2026", "09", "05"]);
        tab(2);
        verify(segments()[0].activeFocus);

        type("20");
        mouseClick(buttonOf(editors()[0], "Save"));

        compare(world.storedDeadlines(),
            ["two 2026-05-06T08:05:07Z", "three 2026-05-07T08:05:07Z", "one 2026-05-20T08:05:00Z"]);
        compare(editors().length, 0);
        verify(rows()[2].hasKeyboard);
    }

    function test_aPastDateIsSeenToBeMovedBeforeItIsSaved() {
        open("deadlines");
        edit(0);
        tab(2);
        type("1/5/2026");

        mouseClick(buttonOf(editors()[0], "Save"));

        verify(textOf(editors()[0], "That moment is past: it was moved to now.") !== null);
        compare(segments().map(segment => segment.text), ["04", "05", "2026", "09", "05"]);
        compare(world.storedDeadlines()[0], "one 2026-05-05T08:05:07Z");
        world.advance(120);

        mouseClick(buttonOf(editors()[0], "Save"));

        compare(editors().length, 0);
        compare(world.storedDeadlines()[0], "one 2026-05-04T08:07:07Z");
    }

    function test_returnInTheDateTakesTheDeadline_data() {
        return [{tag: "return", key: Qt.Key_Return}, {tag: "enter", key: Qt.Key_Enter}];
    }

    function test_returnInTheDateTakesTheDeadline(row) {
        open("deadlines");
        edit(0);
        tab(2);
        type("1/5/2026");

        keyClick(row.key);
        verify(textOf(editors()[0], "That moment is past: it was moved to now.") !== null);
        compare(world.storedDeadlines()[0], "one 2026-05-05T08:05:07Z");

        keyClick(row.key);

        compare(editors().length, 0);
        compare(world.storedDeadlines()[0], "one 2026-05-04T08:05:07Z");
        verify(rows()[0].hasKeyboard);
    }

    function test_anUntouchedDateStaysAsItWas() {
        list = "deadlines";
        world.addDeadline("gone", -100);
        options = make(deadlineEditors);
        edit(0);
        type("past");
        tab(4);
        world.advance(60);

        mouseClick(newField());

        compare(world.storedDeadlines(), ["past 2026-05-04T08:03:27Z"]);
        compare(rows()[0].opacity, 0.4);
    }

    function test_theIdentityStays() {
        open("deadlines");
        const id = rows()[1].deadlineId;
        edit(1);
        type("new");
        keyClick(Qt.Key_Return);

        compare(rows()[1].deadlineId, id);
    }
}
