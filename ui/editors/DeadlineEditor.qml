import QtQuick
import Glimmet

RowEditor {
    id: root

    required property TickerViewModel ticker
    required property string deadlineId

    // A date that had to be moved is seen before it is saved.
    function finish() {
        if (form.date.settleAsSeen())
            finished();
    }

    implicitHeight: column.height + 2 * 7
    firstField: name.field
    onTaken: {
        // A field has one line, and so it may show a title otherwise than it is.
        if (name.text !== name.field.line)
            form.title = name.text;
        form.save();
    }

    DeadlineForm {
        id: form
        ticker: root.ticker
        Component.onCompleted: begin(root.deadlineId)
    }
    Column {
        id: column
        x: 7
        y: 7
        width: root.width - 2 * x
        spacing: Theme.rowSpacing

        EntryRow {
            id: name
            width: column.width
            fieldName: "Name"
            buttonText: "Save"
            value: form.title
            onEntered: root.finish()
        }
        DateTimePicker {
            width: column.width
            entry: form.date
            onEntered: root.finish()
        }
    }
}
