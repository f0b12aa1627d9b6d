import QtQuick
import Glimmet

Column {
    id: root

    required property TickerViewModel ticker
    required property SheetStage stage

    readonly property int mode: ticker.mode

    leftPadding: Theme.pageMargin
    rightPadding: Theme.pageMargin
    bottomPadding: 16
    spacing: Theme.sectionSpacing

    // Longer than the editors, which go with their mode: it can be gone back to.
    QuoteUndo {
        id: quoteUndo
        ticker: root.ticker
    }
    SymbolUndo {
        id: symbolUndo
        ticker: root.ticker
    }
    DeadlineUndo {
        id: deadlineUndo
        ticker: root.ticker
    }

    SectionLabel {
        text: "OPTIONS"
    }
    Item {
        id: editors
        width: root.width - root.leftPadding - root.rightPadding
        // To where the lowest one ends; one that left stands above the top edge.
        height: slots.childrenRect.y + slots.childrenRect.height

        // One that comes or goes never crosses what is above.
        Item {
            anchors.fill: parent
            anchors.margins: -Theme.ringRoom
            clip: true

            Item {
                id: slots
                x: Theme.ringRoom
                y: Theme.ringRoom
                width: editors.width

                EditorSlot {
                    width: slots.width
                    shown: root.mode === TickerMode.Clock
                    ticker: root.ticker
                    editor: "ClockOptions.qml"
                }
                EditorSlot {
                    width: slots.width
                    shown: root.mode === TickerMode.Quote
                    ticker: root.ticker
                    editor: "QuoteOptions.qml"
                    inputs: ({
                            undo: quoteUndo
                        })
                }
                EditorSlot {
                    width: slots.width
                    shown: root.mode === TickerMode.Custom
                    ticker: root.ticker
                    editor: "CustomTextOption.qml"
                }
                EditorSlot {
                    width: slots.width
                    shown: root.mode === TickerMode.Revenue
                    ticker: root.ticker
                    editor: "RevenueOptions.qml"
                    inputs: ({
                            stage: root.stage
                        })
                }
                EditorSlot {
                    width: slots.width
                    shown: root.mode === TickerMode.Crypto
                    ticker: root.ticker
                    editor: "CryptoOptions.qml"
                    inputs: ({
                            undo: symbolUndo
                        })
                }
                EditorSlot {
                    width: slots.width
                    shown: root.mode === TickerMode.Deadline
                    ticker: root.ticker
                    editor: "DeadlineOptions.qml"
                    inputs: ({
                            undo: deadlineUndo
                        })
                }
            }
        }
    }
}
