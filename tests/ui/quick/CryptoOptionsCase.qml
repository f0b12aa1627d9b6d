import QtQuick
import Glimmet

// The editor of the prices, and where its parts are.
PanelTestCase {
    id: testCase

    readonly property Component editors: Component {
        CryptoOptions {
            width: 300
            ticker: testCase.world.ticker
            undo: SymbolUndo {
                ticker: testCase.world.ticker
            }
        }
    }

    readonly property var manySymbols: Array.from({
        length: 25
    }, (_, i) => "SYMBOL" + i)

    property CryptoOptions options: null

    function init() {
        makeWorld();
        world.ticker.mode = TickerMode.Crypto;
        options = make(editors);
    }

    function chips(): var {
        return all(options, SymbolChip).filter(chip => !chip.isRemoved);
    }

    function symbols(): var {
        return chips().map(chip => chip.symbol);
    }

    function shown(): var {
        return chips().filter(chip => chip.shown).map(chip => chip.symbol);
    }

    function flow(): Item {
        return all(options, FlowLayout)[0];
    }

    function field(): Item {
        return all(options, BorderedField)[0];
    }

    function add(): Item {
        return buttonOf(options, "Add");
    }

    function refresh(): Item {
        return buttonOf(options, "Refresh");
    }

    function intervals(): var {
        return all(options, UnifiedChip);
    }

    function chart(): Item {
        return all(options, MiniPriceChart)[0];
    }

    function chartArea(): Item {
        return chart().parent;
    }

    function removeButton(chip: Item): Item {
        return all(chip, PlainButton)[0];
    }

    function type(words: string) {
        mouseClick(field());
        for (const letter of words)
            keyClick(letter);
    }

    // Until everything stands where it will stay.
    function settle() {
        tryVerify(() => !isPolishScheduled(flow()) && !isPolishScheduled(options));
        tryVerify(() => flow().height === flow().implicitHeight);
        tryVerify(() => !isPolishScheduled(options));
    }

    function setSymbols(list: var) {
        world.ticker.cryptoSymbols = list;
        settle();
    }

    function help(): Item {
        return all(options, InkText).find(text => text.text.startsWith("Works for crypto"));
    }
}
