pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

Column {
    id: root

    required property TickerViewModel ticker
    required property DeadlineUndo undo

    function remove(row: DeadlineRow, id: string, index: int) {
        const hadKeyboard = row.hasKeyboard;
        undo.remove(id);
        if (hadKeyboard)
            rows.keepKeyboardNear(index);
    }

    // Another date may give it another place.
    function take(editor: RowEditor, id: string, keepsKeyboard: bool) {
        // Called by its own name, the signal ends Qt 6.4's linter.
        const done = editor;
        done.taken();
        if (keepsKeyboard)
            rows.keepKeyboardNear(undo.rowOf(id));
    }

    // The next one begins with its name. The button could not keep the keyboard anyway: without a name there is nothing
    // to add.
    function addByKeyboard() {
        form.add();
        newName.forceActiveFocus(Qt.TabFocusReason);
    }

    // A date that had to be moved is seen before it is added.
    function addByDate() {
        if (form.date.settleAsSeen() && form.canAdd)
            addByKeyboard();
    }

    spacing: Theme.editorSpacing

    DoublePress {
        id: presses
        target: root
        onDoubled: key => rows.edit(root.undo.rowOf(key))
    }
    UndoKey {
        undo: root.undo
        told: label
    }
    DeadlineRows {
        id: deadlines
        undo: root.undo
    }
    DeadlineForm {
        id: form
        ticker: root.ticker
    }

    Item {
        width: root.width
        height: label.height

        SectionLabel {
            id: label
            text: "UPCOMING"
        }
        InkText {
            anchors.left: label.right
            anchors.leftMargin: Theme.rowSpacing
            anchors.baseline: label.baseline
            text: Wording.active(deadlines.activeCount)
            color: Theme.faintText
            font.pixelSize: Theme.smallSize
        }
        ClearingButton {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            undo: root.undo
            clearingText: "Clear all"
            fallback: newName
        }
    }
    RowRepeater {
        id: rows
        width: root.width
        spacing: Theme.listSpacing
        name: "Deadlines"
        fallback: newName
        kept: root.undo.removedRows
        model: deadlines

        DeadlineRow {
            id: row

            required property int index

            width: root.width
            ticker: root.ticker
            position: rows.positionOf(index)
            isRemoved: Array.from(root.undo.removed).includes(deadlineId)
            onPressed: presses.meet(deadlineId)
            onRemoved: root.remove(row, deadlineId, index)
            onEdited: (editor, keepsKeyboard) => root.take(editor, deadlineId, keepsKeyboard)
            onReturned: root.undo.putBack(deadlineId)
        }
    }
    InkText {
        width: root.width
        topPadding: 10
        bottomPadding: 10
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        text: "No deadlines. Add one below."
        color: Theme.softText
        font.pixelSize: Theme.buttonSize
        visible: deadlines.count === 0
    }
    SectionLabel {
        text: "ADD DEADLINE"
    }
    BorderedField {
        id: newName
        width: root.width
        font.pixelSize: Theme.rowSize
        placeholderText: "Name (e.g. Math Exam)"
        name: "Deadline name"
        value: form.title
        onEdited: text => form.title = text
        onAccepted: form.add()
    }
    DateTimePicker {
        width: root.width
        entry: form.date
        onEntered: root.addByDate()
    }
    PlainButton {
        id: addButton
        width: root.width
        verticalPadding: 9
        text: "Add Deadline"
        font.pixelSize: Theme.fieldSize
        ink: Theme.background
        fill: Theme.ink
        cornerRadius: Theme.rowRadius
        enabled: form.canAdd
        onClicked: visualFocus ? root.addByKeyboard() : form.add()

        contentItem: ChipFace {
            symbol: ""
            symbolSize: 0
            symbolColor: addButton.ink
            label: addButton.text
            labelFont: addButton.font
            labelColor: addButton.ink
        }
    }
}
