import QtQuick
import Glimmet

Column {
    id: root

    required property TickerViewModel ticker

    spacing: Theme.rowSpacing

    BorderedField {
        width: root.width
        verticalPadding: 10
        cornerRadius: 9
        font.pixelSize: 14
        placeholderText: "Type your text…"
        name: "Custom text"
        value: root.ticker.customText
        onEdited: text => root.ticker.customText = text
    }
    InkText {
        text: "Updates live as you type."
        color: Theme.labelText
        font.pixelSize: Theme.smallSize
    }
}
