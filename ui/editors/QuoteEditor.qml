import QtQuick
import Glimmet

RowEditor {
    id: root

    required property TickerViewModel ticker
    required property string quote

    firstField: field
    onTaken: {
        // A field has one line, and so it may show a quote otherwise than it is.
        if (field.text !== field.line)
            ticker.replaceQuote(quote, field.text);
    }

    BorderedField {
        id: field
        anchors.fill: parent
        horizontalPadding: Theme.buttonPadding
        verticalPadding: 7
        font.pixelSize: Theme.buttonSize
        value: root.quote
        name: "Quote"
        onAccepted: root.finished()
    }
}
