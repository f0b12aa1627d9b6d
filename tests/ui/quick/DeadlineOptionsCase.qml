import QtQuick
import Glimmet

// The editor of the deadlines, and where its parts are.
PanelTestCase {
    id: testCase

    Component {
        id: editors

        DeadlineOptions {
            width: 300
            ticker: testCase.world.ticker
            undo: DeadlineUndo {
                ticker: testCase.world.ticker
            }
        }
    }

    property DeadlineOptions options: null

    function init() {
        makeWorld();
        options = make(editors);
    }

    function field(): Item {
        return all(options, BorderedField)[0];
    }

    function addButton(): Item {
        return buttonOf(options, "Add Deadline");
    }

    function picker(): Item {
        return all(options, DateTimePicker)[0];
    }

    function segments(): var {
        return all(options, DateTimeSegment).map(segment => segment.text);
    }

    function rows(): var {
        return all(options, DeadlineRow).filter(row => !row.isRemoved);
    }

    function shown(what: string): var {
        return rows().map(row => row[what]);
    }

    function type(words: string) {
        mouseClick(field());
        for (const letter of words)
            keyClick(letter);
    }

    function add(title: string, seconds: real) {
        world.addDeadline(title, seconds);
        verify(waitForRendering(options));
    }
}
