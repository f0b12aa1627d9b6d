import QtQuick
import Glimmet

PanelTestCase {
    id: testCase
    name: "ChipRow"

    Component {
        id: rows

        ChipRow {
            title: "WINDOW"
            group: "Period"

            UnifiedChip {
                label: "Today"
                symbol: "sun.max"
                selected: true
            }
            UnifiedChip {
                label: "Week"
                symbol: "7.square"
                selected: false
            }
        }
    }

    property ChipRow row: null

    function init() {
        row = make(rows);
    }

    function chips(): var {
        return all(row, UnifiedChip);
    }

    function test_theChipsStandBesideEachOtherUnderTheTitle() {
        const areas = chips().map(chip => areaOf(chip, row));
        const title = areaOf(textOf(row, "WINDOW"), row);

        compare(chips().map(chip => chip.label), ["Today", "Week"]);
        compare(title.x, 0);
        compare(title.y, 0);
        compare(areas[0].x, 0);
        compare(areas[0].y - title.bottom, 6);
        compare(areas[1].x - areas[0].right, 6);
        compare(areas[1].y, areas[0].y);
        compare(row.height, areas[0].bottom);
    }

    function test_theTitleIsASectionLabel() {
        compare(all(row, SectionLabel).map(label => label.text), ["WINDOW"]);
    }

    function test_aNoteFollowsTheTitle() {
        row.note = "RC: fixed 28d";
        verify(waitForRendering(row));

        const note = textOf(row, "RC: fixed 28d");
        const title = textOf(row, "WINDOW");
        compareFont(note, 8, 400);
        compareInk(note.color, 0.3);
        verify(areaOf(note, row).left > areaOf(title, row).right);
        fuzzyCompare(areaOf(note, row).y + note.baselineOffset, areaOf(title, row).y + title.baselineOffset, 1);
        verify(reader.told(row).includes("StaticText RC: fixed 28d"));
    }

    function test_withoutANoteThereIsTheTitleAlone() {
        compare(all(row, Text).filter(text => text.visible).map(text => text.text), ["WINDOW", "Today", "Week"]);
        verify(!reader.told(row).includes("StaticText "));
    }

    function test_theNoteLeavesTheChipsWhereTheyAre() {
        const before = areaOf(chips()[0], row);

        row.note = "RC: fixed 28d";
        verify(waitForRendering(row));

        compare(areaOf(chips()[0], row), before);
    }
}
