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

    SectionLabel {
        text: "OPTIONS"
    }
    Item {
        id: editors
        width: root.width - root.leftPadding - root.rightPadding
        // To where the lowest one ends; one that left stands above the top edge.
        height: childrenRect.y + childrenRect.height

        EditorSlot {
            width: editors.width
            shown: root.mode === TickerMode.Clock
            ticker: root.ticker
            editor: "ClockOptions.qml"
        }
        EditorSlot {
            width: editors.width
            shown: root.mode === TickerMode.Quote
            ticker: root.ticker
            editor: "QuoteOptions.qml"
        }
        EditorSlot {
            width: editors.width
            shown: root.mode === TickerMode.Custom
            ticker: root.ticker
            editor: "CustomTextOption.qml"
        }
        EditorSlot {
            width: editors.width
            shown: root.mode === TickerMode.Revenue
            ticker: root.ticker
            editor: "RevenueOptions.qml"
            inputs: ({
                    stage: root.stage
                })
        }
        EditorSlot {
            width: editors.width
            shown: root.mode === TickerMode.Crypto
            ticker: root.ticker
            editor: "CryptoOptions.qml"
        }
        EditorSlot {
            width: editors.width
            shown: root.mode === TickerMode.Deadline
            ticker: root.ticker
            editor: "DeadlineOptions.qml"
        }
    }
}
