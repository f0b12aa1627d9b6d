pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

Column {
    id: root

    required property TickerViewModel ticker
    required property QuoteUndo undo

    readonly property bool hasQuotes: ticker.customQuotes.length > 0
    // What was to be added and is there already, in words.
    property string known

    function save(text: string) {
        const before = ticker.customQuotes.length;
        ticker.addQuote(text);
        if (ticker.customQuotes.length === before)
            pointAt(ticker.quoteIn(text));
        newQuote.clear();
        newQuote.leaveKeyboard();
    }

    function pointAt(quote: string) {
        const row = undo.rowOf(quote);
        rows.pointAt(row);
        known = row >= 0 ? Wording.known(quote) : "";
    }

    function remove(row: QuoteRow, index: int) {
        const hadKeyboard = row.hasKeyboard;
        undo.remove(row.quote);
        if (hadKeyboard)
            rows.keepKeyboardNear(index);
    }

    // Another quote is another row.
    function take(editor: RowEditor, index: int, keepsKeyboard: bool) {
        editor.taken();
        if (keepsKeyboard)
            rows.keepKeyboardNear(index);
    }

    spacing: Theme.editorSpacing

    DoublePress {
        id: presses
        target: root
        onDoubled: key => rows.edit(root.undo.rowOf(key))
    }
    UndoKey {
        undo: root.undo
        told: quotesLabel
    }
    Announcement {
        item: quotesLabel
        text: root.known
        gap: 0
    }
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
        ClearingButton {
            id: resetButton
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            undo: root.undo
            clearingText: "Reset to defaults"
            fallback: newQuote.field
            visible: !isOutOfUse
        }
        InkText {
            anchors.right: resetButton.visible ? resetButton.left : parent.right
            anchors.rightMargin: resetButton.visible ? Theme.rowSpacing : 0
            anchors.verticalCenter: parent.verticalCenter
            text: Wording.usingDefaults(root.ticker.activeQuotes.length)
            color: Theme.faintText
            font.pixelSize: Theme.smallSize
            visible: !root.hasQuotes
        }
    }
    RowRepeater {
        id: rows
        width: root.width
        spacing: Theme.listSpacing
        name: "Your quotes"
        fallback: newQuote.field
        kept: root.undo.removedRows
        estimate: QuoteExtent {
            width: root.width
        }
        model: TextListModel {
            entries: root.undo.shown
        }

        QuoteRow {
            id: row

            required property int index
            required property string entry

            width: root.width
            ticker: root.ticker
            quote: entry
            position: rows.positionOf(index)
            isRemoved: Array.from(root.undo.removed).includes(entry)
            onPressed: presses.meet(entry)
            onRemoved: root.remove(row, index)
            onEdited: (editor, keepsKeyboard) => root.take(editor, index, keepsKeyboard)
            onReturned: root.undo.putBack(entry)
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
}
