import QtQuick
import Glimmet

// How editing a row begins and ends.
EditInPlaceCase {
    name: "EditInPlace"

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

    function test_twoSwipesFromOnePlaceAreNoDoubleTap() {
        open("quotes");
        const row = rows()[1];

        for (let i = 0; i < 2; ++i) {
            touchEvent(row).press(0, row, 60, 12).commit();
            touchEvent(row).move(0, row, 60, -60).commit();
            touchEvent(row).release(0, row, 60, -60).commit();
        }

        compare(editors().length, 0);
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

    function test_aHeldKeyOnlyBeginsTheEditing_data() {
        return lists();
    }

    function test_aHeldKeyOnlyBeginsTheEditing(data) {
        open(data.tag);
        rows()[1].takeKeyboard();

        keyboard.hold(options.Window.window, Qt.Key_Return, 5);

        compare(editors().length, 1);
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
}
