import QtQuick
import Glimmet

Choice {
    id: card

    verticalPadding: 10
    restingSymbol: Theme.cardSymbol
    restingBorder: Theme.cardBorder
    cornerRadius: Theme.cardRadius
    duration: Theme.modeDuration

    contentItem: Column {
        spacing: 5

        SymbolImage {
            anchors.horizontalCenter: parent.horizontalCenter
            name: card.symbol
            size: Theme.symbolSize
            color: card.symbolColor
        }
        InkText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: card.label
            color: card.labelColor
            font.pixelSize: Theme.smallSize
            font.weight: card.selected ? Theme.semibold : Theme.regular
            Accessible.ignored: true
        }
    }
}
