pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

Column {
    id: root

    required property TickerViewModel ticker

    readonly property bool hasQuotes: ticker.customQuotes.length > 0

    function save() {
        ticker.addQuote(newQuote.text);
        newQuote.clear();
        newQuote.focus = false;
    }

    function remove(row: QuoteRow, index: int) {
        const hadKeyboard = row.hasKeyboard;
        ticker.removeQuote(row.quote);
        if (hadKeyboard)
            keepKeyboardNear(index);
    }

    // The rows are new ones; without this the keyboard would start again from the panel's top.
    function keepKeyboardNear(index: int) {
        if (hasQuotes)
            (rows.itemAt(Math.min(index, rows.count - 1)) as QuoteRow).takeKeyboard();
        else
            newQuote.forceActiveFocus(Qt.TabFocusReason);
    }

    spacing: 12

    SectionLabel {
        text: "ADD QUOTE"
    }
    Row {
        spacing: Theme.rowSpacing

        BorderedField {
            id: newQuote
            width: root.width - addButton.width - parent.spacing
            leftPadding: 10
            rightPadding: 10
            topPadding: 7
            bottomPadding: 7
            cornerRadius: Theme.buttonRadius
            placeholderText: "stay curious ✦"
            onAccepted: root.save()
        }
        PlainButton {
            id: addButton
            height: newQuote.height
            leftPadding: 10
            rightPadding: 10
            topPadding: 7
            bottomPadding: 7
            text: "Add"
            onClicked: root.save()
        }
    }
    Item {
        width: root.width
        height: quotesLabel.height

        SectionLabel {
            id: quotesLabel
            text: "YOUR QUOTES"
        }
        PlainButton {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: "Reset to defaults"
            font.pixelSize: Theme.smallSize
            ink: Theme.faintText
            fill: Theme.clear
            visible: root.hasQuotes
            onClicked: root.ticker.resetQuotes()
        }
        InkText {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: Wording.usingDefaults(root.ticker.activeQuotes.length)
            color: Theme.faintText
            font.pixelSize: Theme.smallSize
            visible: !root.hasQuotes
        }
    }
    InkText {
        width: root.width
        topPadding: 10
        bottomPadding: 10
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        text: "Add a quote above to replace the default rotation."
        color: Theme.softText
        font.pixelSize: Theme.buttonSize
        visible: !root.hasQuotes
    }
    Column {
        width: root.width
        spacing: 4
        visible: root.hasQuotes

        Repeater {
            id: rows
            model: root.ticker.customQuotes

            QuoteRow {
                id: row

                required property int index
                required property string modelData

                width: root.width
                quote: modelData
                onRemoved: root.remove(row, index)
            }
        }
    }
}
