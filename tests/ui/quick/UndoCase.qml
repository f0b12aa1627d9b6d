import QtQuick
import QtTest
import Glimmet

// The three lists of the user's, from which something is removed by a slip.
PanelTestCase {
    id: testCase

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
        id: symbolEditors

        CryptoOptions {
            width: 300
            ticker: testCase.world.ticker
            undo: SymbolUndo {
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
    readonly property SignalSpy news: SignalSpy {
        signalName: "said"
    }

    property Item options: null
    property string list

    // Those that have a button which clears them.
    function clearedLists(): var {
        return [{tag: "quotes", clearing: "Reset to defaults"}, {tag: "deadlines", clearing: "Clear all"}];
    }

    function lists(): var {
        return [{tag: "quotes"}, {tag: "symbols"}, {tag: "deadlines"}];
    }

    // An editor of "ONE", "TWO" and "THREE".
    function open(kind: string) {
        list = kind;
        const names = ["ONE", "TWO", "THREE"];
        if (kind === "quotes")
            world.ticker.customQuotes = names;
        else if (kind === "symbols")
            world.ticker.cryptoSymbols = names;
        else
            names.forEach((name, i) => world.addDeadline(name, 100 * (i + 1)));
        options = make({quotes: quoteEditors, symbols: symbolEditors, deadlines: deadlineEditors}[kind]);
    }

    function kept(): var {
        if (list === "quotes")
            return world.ticker.customQuotes;
        return list === "symbols" ? world.ticker.cryptoSymbols : world.deadlines().map(line => line.split(" ")[0]);
    }

    function stored(): var {
        if (list === "quotes")
            return world.storedQuotes();
        return list === "symbols" ? world.storedSymbols() : world.storedDeadlines().map(line => line.split(" ")[0]);
    }

    function entries(): var {
        return all(options, RemovableBox);
    }

    function removeButton(entry: Item): Item {
        return all(entry, PlainButton).find(button => button.symbol.startsWith("xmark"));
    }

    function undoButton(place: int): Item {
        return buttonOf(entries()[place], "Undo");
    }

    function remove(place: int) {
        mouseClick(removeButton(entries()[place]));
        verify(waitForRendering(options));
    }

    function field(): Item {
        return all(options, BorderedField)[0];
    }

    function pressUndoKeys() {
        keySequence(StandardKey.Undo);
    }
}
