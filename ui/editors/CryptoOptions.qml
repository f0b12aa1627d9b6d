pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

Column {
    id: root

    required property TickerViewModel ticker
    required property SymbolUndo undo

    // What was to be added and is there already, in words.
    property string known

    function add(text: string) {
        const before = ticker.cryptoSymbols.length;
        const symbols = ticker.symbolsIn(text);
        ticker.addCryptoSymbol(text);
        known = "";
        for (let i = 0; i < symbols.length && ticker.cryptoSymbols.length === before; ++i)
            pointAt(symbols[i]);
        newSymbol.clear();
    }

    function pointAt(symbol: string) {
        chips.pointAt(undo.rowOf(symbol));
        known = Wording.known(symbol);
    }

    function remove(chip: SymbolChip, index: int) {
        const hadKeyboard = chip.hasKeyboard;
        undo.remove(chip.symbol);
        if (hadKeyboard)
            chips.keepKeyboardNear(index);
    }

    spacing: Theme.editorSpacing

    UndoKey {
        undo: root.undo
        told: label
    }
    Announcement {
        item: label
        text: root.known
        gap: 0
    }
    ShownPrice {
        id: price
        ticker: root.ticker
    }

    SectionLabel {
        id: label
        text: "SYMBOLS"
    }
    RowRepeater {
        id: chips

        readonly property int shownRow: root.undo.places[price.index] ?? -1

        width: root.width
        spacing: Theme.rowSpacing
        duration: Theme.listDuration
        name: "Symbols"
        fallback: newSymbol.field
        // The one on show is wider by its dot.
        kept: [...root.undo.removedRows, shownRow]
        estimate: ChipExtent {}
        model: TextListModel {
            entries: root.undo.shown
        }

        Behavior on height {
            enabled: chips.isLaidOut

            NumberAnimation {
                duration: Theme.listDuration
                easing.type: Theme.easeInOut
            }
        }

        SymbolChip {
            id: chip

            required property int index
            required property string entry

            symbol: entry
            position: chips.positionOf(index)
            shown: chips.shownRow === index
            isRemoved: Array.from(root.undo.removed).includes(entry)
            trouble: status.text
            maximumWidth: root.width
            onRemoved: root.remove(chip, index)
            onReturned: root.undo.putBack(entry)

            SymbolTrouble {
                id: status
                ticker: root.ticker
                symbol: chip.entry
            }

            // The first ones are there at once, and so are those that were only out of view.
            Component.onCompleted: entrance.running = chips.isAdding

            NumberAnimation on opacity {
                id: entrance
                running: false
                from: 0
                to: 1
                duration: Theme.listDuration
                easing.type: Theme.easeInOut
            }
        }
    }
    EntryRow {
        id: newSymbol
        width: root.width
        placeholderText: "BTC, ETH-USD, AAPL…"
        fieldName: "New symbol"
        fontFamily: Theme.monospacedFamily
        buttonText: "Add"
        onEntered: text => root.add(text)
    }
    ChipRow {
        title: "REFRESH EVERY"
        group: "Refresh every"

        Repeater {
            model: PriceLabels.intervals

            UnifiedChip {
                required property int modelData

                label: PriceLabels.intervalLabel(modelData)
                symbol: "arrow.clockwise"
                selected: price.interval === modelData
                onTapped: root.ticker.cryptoRotateInterval = modelData
            }
        }
    }
    Column {
        spacing: Theme.rowSpacing
        visible: price.hasSymbol

        RoundedBox {
            id: area
            width: root.width
            height: chart.implicitHeight
            color: Theme.fieldFill
            radius: Theme.rowRadius

            MiniPriceChart {
                id: chart
                anchors.fill: parent
                shortName: price.shortName
                menuBarString: price.menuBarString
                history: price.history
                arrival: price.arrival
                visible: price.hasChart
            }
            Row {
                id: busy
                anchors.centerIn: parent
                spacing: Theme.rowSpacing
                visible: !price.hasChart && price.trouble.length === 0

                Spinner {
                    anchors.verticalCenter: parent.verticalCenter
                    running: busy.visible
                    factor: 0.7
                }
                InkText {
                    anchors.verticalCenter: parent.verticalCenter
                    text: "Fetching chart…"
                    color: Theme.softText
                    font.pixelSize: Theme.buttonSize
                }
            }
            InkText {
                id: trouble
                anchors.centerIn: parent
                text: price.trouble
                color: Theme.choiceInk
                font.pixelSize: Theme.buttonSize
                visible: !price.hasChart && price.trouble.length > 0
            }
            Announcement {
                item: trouble
                text: price.hasChart ? "" : price.trouble
            }
        }
        PlainButton {
            horizontalPadding: Theme.buttonPadding
            verticalPadding: 5
            text: "Refresh"
            onClicked: root.ticker.fetchAllCryptoPrices()
        }
    }
    InkText {
        width: root.width
        text: Wording.pricesHelp(price.interval)
        color: Theme.helpText
        font.pixelSize: Theme.smallSize
        wrapMode: Text.Wrap
    }
}
