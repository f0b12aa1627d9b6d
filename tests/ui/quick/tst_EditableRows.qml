import QtQuick
import Glimmet

// Rows that can be edited, as the pointer, the keyboard and a screen reader find them.
EditInPlaceCase {
    name: "EditableRows"

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

    function test_theRowIsToldByItsName() {
        open("deadlines");

        verify(reader.told(options).includes("ListItem two"));
        compare(reader.description(options, "two"), "6 May 2026, 09:05, 2d 0h. Return edits it, Delete removes it.");
        verify(reader.told(options).includes("Button Remove two"));
    }
}
