import QtQuick
import Glimmet

// Quotes and deadlines, which are edited in their rows.
PanelTestCase {
    id: testCase
    name: "EditInPlace"

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
        id: deadlineEditors

        DeadlineOptions {
            width: 300
            ticker: testCase.world.ticker
            undo: DeadlineUndo {
                ticker: testCase.world.ticker
            }
        }
    }
    Component {
        id: panels

        SettingsPanel {
            width: implicitWidth
            height: implicitHeight
            ticker: testCase.world.ticker
            host: testCase.world.host
        }
    }

    property Item options: null
    property string list

    function lists(): var {
        return [{tag: "quotes"}, {tag: "deadlines"}];
    }

    function open(kind: string) {
        list = kind;
        if (kind === "quotes")
            world.ticker.customQuotes = ["one", "two", "three"];
        else
            ["one", "two", "three"].forEach((name, i) => world.addDeadline(name, 86400 * (i + 1)));
        options = make(kind === "quotes" ? quoteEditors : deadlineEditors);
    }

    function kept(): var {
        if (list === "quotes")
            return world.storedQuotes();
        return world.storedDeadlines().map(line => line.slice(0, line.lastIndexOf(" ")));
    }

    function rows(): var {
        return all(options, RemovableRow);
    }

    function editors(): var {
        return all(options, RowEditor);
    }

    function field(): Item {
        return all(editors()[0], BorderedField)[0];
    }

    // The field for a new entry.
    function newField(): Item {
        return all(options, BorderedField).find(other => editors().length === 0 || other !== field());
    }

    function edit(place: int) {
        rows()[place].takeKeyboard();
        keyClick(Qt.Key_F2);
        verify(waitForRendering(options));
    }

    // At one place of the window, with time for the rows to move between the two.
    function doubleClick(place: int) {
        const point = rows()[place].mapToItem(null, 60, 12);
        pointer.click(options.Window.window, point);
        passFrames();
        pointer.clickAgain(options.Window.window, point);
        passFrames();
    }

    function doubleTap(place: int) {
        const row = rows()[place];
        for (let i = 0; i < 2; ++i) {
            touchEvent(row).press(0, row, 60, 12).commit();
            touchEvent(row).release(0, row, 60, 12).commit();
        }
    }

    function type(words: string) {
        for (const letter of words)
            keyClick(letter);
    }

    function ways(): var {
        const all = [];
        for (const kind of ["quotes", "deadlines"])
            for (const way of ["double click", "double tap", "F2", "Return", "Enter", "screen reader"])
                all.push({tag: kind + " by " + way, kind: kind, way: way});
        return all;
    }

    function test_aRowIsEditedInItsPlace_data() {
        return ways();
    }

    function test_aRowIsEditedInItsPlace(data) {
        open(data.kind);
        const keys = {F2: Qt.Key_F2, Return: Qt.Key_Return, Enter: Qt.Key_Enter};
        if (data.way === "double click")
            doubleClick(1);
        else if (data.way === "double tap")
            doubleTap(1);
        else if (data.way === "screen reader")
            verify(reader.act(options, "two", "Press"));
        else {
            rows()[1].takeKeyboard();
            keyClick(keys[data.way]);
        }

        compare(editors().length, 1);
        verify(field().activeFocus);
        compare(field().selectedText, "two");
        compare(rows().map(row => row.isEditing), [false, true, false]);
        verify(rows()[1].contains(rows()[1].mapFromItem(field(), 1, 1)));
        type("new");
        keyClick(Qt.Key_Return);

        compare(kept(), ["one", "new", "three"]);
        compare(editors().length, 0);
        verify(rows()[1].hasKeyboard);
    }

    function test_escapeLeavesItAsItWas_data() {
        return lists();
    }

    function test_escapeLeavesItAsItWas(data) {
        open(data.tag);
        edit(1);
        type("new");

        keyClick(Qt.Key_Escape);

        compare(kept(), ["one", "two", "three"]);
        compare(editors().length, 0);
        verify(rows()[1].hasKeyboard);
        verify(textOf(rows()[1], "two") !== null);
    }

    function test_escapeClosesThePanelOnlyWhereNothingIsEdited_data() {
        return [{tag: "from the keyboard", press: () => keyClick(Qt.Key_Escape)},
            {tag: "from a screen reader", press: () => keyboard.handOn(options.Window.window, Qt.Key_Escape)}];
    }

    function test_escapeClosesThePanelOnlyWhereNothingIsEdited(data) {
        world.ticker.customQuotes = ["one"];
        world.ticker.mode = TickerMode.Quote;
        options = make(panels);
        let closings = 0;
        world.host.closeRequested.connect(() => ++closings);
        edit(0);

        data.press();
        compare(editors().length, 0);
        compare(closings, 0);
        data.press();

        compare(closings, 1);
    }

    function test_leavingTheRowTakesIt_data() {
        return lists();
    }

    function test_leavingTheRowTakesIt(data) {
        open(data.tag);
        edit(1);
        type("new");

        mouseClick(newField());

        compare(kept(), ["one", "new", "three"]);
        compare(editors().length, 0);
        verify(newField().activeFocus);
    }

    function test_editingAnotherRowTakesTheFirst_data() {
        return lists();
    }

    function test_editingAnotherRowTakesTheFirst(data) {
        open(data.tag);
        edit(0);
        type("new");

        doubleClick(2);
        compare(kept(), ["new", "two", "three"]);
        compare(rows().map(row => row.isEditing), [false, false, true]);
        verify(field().activeFocus);
        compare(field().selectedText, "three");
        type("last");
        keyClick(Qt.Key_Return);

        compare(kept(), ["new", "two", "last"]);
    }

    function test_aDoubleClickMeansItsRowAlsoWhereTheEditedOneTakesAnotherPlace() {
        open("deadlines");
        edit(0);
        tab(2);
        type("20");

        doubleClick(1);

        compare(kept(), ["two", "three", "one"]);
        compare(rows().map(row => row.isEditing), [true, false, false]);
        compare(field().selectedText, "two");
    }

    function test_twoClicksOnTwoRowsAreNoDoubleClick_data() {
        return lists();
    }

    function test_twoClicksOnTwoRowsAreNoDoubleClick(data) {
        open(data.tag);
        const window = options.Window.window;

        pointer.click(window, rows()[0].mapToItem(null, 60, 12));
        pointer.clickAgain(window, rows()[2].mapToItem(null, 60, 12));

        compare(editors().length, 0);
        verify(rows()[2].hasKeyboard);
    }

    function test_twoClicksFarApartInTimeAreNoDoubleClick() {
        open("quotes");
        const point = rows()[1].mapToItem(null, 60, 12);

        pointer.click(options.Window.window, point);
        pointer.click(options.Window.window, point);

        compare(editors().length, 0);
    }

    function test_leavingTheEditorOfTheModeTakesIt() {
        open("quotes");
        edit(1);
        type("new");

        options.enabled = false;

        compare(kept(), ["one", "new", "three"]);
    }

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

    function test_aQuotesRowKeepsItsSize() {
        open("quotes");
        world.ticker.customQuotes = ["one", "a quote that is long enough to need a second line of the row it stands in"];
        verify(waitForRendering(options));
        const areas = rows().map(row => areaOf(row, options));

        edit(0);
        compare(rows().map(row => areaOf(row, options)), areas);
        compare(areaOf(field(), options), areas[0]);
        edit(1);

        compare(rows().map(row => areaOf(row, options)), areas);
        compare(areaOf(field(), options), areas[1]);
    }

    function test_aHeldKeyOnlyBeginsTheEditing_data() {
        return lists();
    }

    function test_aHeldKeyOnlyBeginsTheEditing(data) {
        open(data.tag);
        rows()[1].takeKeyboard();

        keyboard.hold(options.Window.window, Qt.Key_Return, 5);

        compare(editors().length, 1);
    }

    function test_spaceDoesNothingToARow() {
        open("quotes");
        rows()[1].takeKeyboard();

        keyClick(Qt.Key_Space);

        compare(editors().length, 0);
        compare(kept(), ["one", "two", "three"]);
    }

    function test_aClickGivesARowTheKeyboard() {
        open("quotes");

        mouseClick(rows()[1], 60, 12);
        verify(rows()[1].hasKeyboard);
        keyClick(Qt.Key_Delete);

        compare(kept(), ["one", "three"]);
    }

    function test_theRowShowsTheKeyboard() {
        open("quotes");
        const ring = all(rows()[1], FocusRing).find(candidate => candidate.cornerRadius === 8);
        verify(!ring.visible);

        rows()[1].takeKeyboard();

        verify(ring.visible);
    }

    function test_aRowIsOneStop() {
        open("quotes");
        rows()[0].takeKeyboard();

        tab();
        verify(rows()[1].hasKeyboard);
        tab();
        verify(rows()[2].hasKeyboard);
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

    function test_theRowHoldsTheWholeEditor() {
        open("deadlines");
        const height = rows()[0].height;

        edit(0);

        const picker = all(editors()[0], DateTimePicker)[0];
        compare(areaOf(picker, rows()[0]).bottom, rows()[0].height - 7);
        compare(areaOf(field(), rows()[0]).y, 7);
        mouseClick(all(picker, PlainButton)[0]);
        verify(waitForRendering(options));
        compare(areaOf(picker, rows()[0]).bottom, rows()[0].height - 7);
        keyClick(Qt.Key_Escape);
        compare(editors().length, 1);
        keyClick(Qt.Key_Escape);
        compare(rows()[0].height, height);
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

    function test_theKeyboardGoesNearARowThatIsGone_data() {
        return lists();
    }

    function test_theKeyboardGoesNearARowThatIsGone(data) {
        open(data.tag);
        edit(1);
        type("new");

        if (data.tag === "quotes")
            world.ticker.removeQuote("two");
        else
            world.ticker.removeDeadline(rows()[1].deadlineId);

        compare(kept(), ["one", "three"]);
        verify(rows()[1].hasKeyboard);
    }

    function test_theRowIsToldByItsName() {
        open("deadlines");

        verify(reader.told(options).includes("ListItem two"));
        compare(reader.description(options, "two"), "6 May 2026, 09:05, 2d 0h. Return edits it, Delete removes it.");
        verify(reader.told(options).includes("Button Remove two"));
    }
}
