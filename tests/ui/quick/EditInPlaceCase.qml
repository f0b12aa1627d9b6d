import QtQuick
import Glimmet

// Quotes and deadlines, which are edited in their rows.
PanelTestCase {
    id: testCase

    readonly property Component quoteEditors: Component {
        QuoteOptions {
            width: 300
            ticker: testCase.world.ticker
            undo: QuoteUndo {
                ticker: testCase.world.ticker
            }
        }
    }
    readonly property Component deadlineEditors: Component {
        DeadlineOptions {
            width: 300
            ticker: testCase.world.ticker
            undo: DeadlineUndo {
                ticker: testCase.world.ticker
            }
        }
    }
    readonly property Component panels: Component {
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
}
