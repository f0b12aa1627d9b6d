pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

Column {
    id: root

    required property TickerViewModel ticker

    readonly property bool hasQuotes: ticker.customQuotes.length > 0

    function save(text: string) {
        ticker.addQuote(text);
        newQuote.clear();
        newQuote.leaveKeyboard();
    }

    // The button goes with the quotes.
    function reset(button: PlainButton) {
        const hadKeyboard = button.visualFocus;
        ticker.resetQuotes();
        if (hadKeyboard)
            newQuote.field.forceActiveFocus(Qt.TabFocusReason);
    }

    function remove(row: QuoteRow, index: int) {
        const hadKeyboard = row.hasKeyboard;
        ticker.removeQuote(row.quote);
        if (hadKeyboard)
            rows.keepKeyboardNear(index);
    }

    spacing: Theme.editorSpacing

    SectionLabel {
        text: "ADD QUOTE"
    }
    EntryRow {
        id: newQuote
        width: root.width
        placeholderText: "stay curious ✦"
        fieldName: "New quote"
        buttonText: "Add"
        onEntered: text => root.save(text)
    }
    Item {
        width: root.width
        height: quotesLabel.height

        SectionLabel {
            id: quotesLabel
            text: "YOUR QUOTES"
        }
        PlainButton {
            id: resetButton
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: "Reset to defaults"
            font.pixelSize: Theme.smallSize
            ink: Theme.faintText
            fill: Theme.clear
            visible: root.hasQuotes
            onClicked: root.reset(resetButton)
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
        spacing: Theme.listSpacing
        visible: root.hasQuotes

        RowRepeater {
            id: rows
            fallback: newQuote.field
            model: TextListModel {
                entries: root.ticker.customQuotes
            }

            QuoteRow {
                id: row

                required property int index
                required property string entry

                width: root.width
                quote: entry
                onRemoved: root.remove(row, index)
            }
        }
    }
}
