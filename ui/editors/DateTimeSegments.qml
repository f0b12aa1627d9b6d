pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

// The fields of a date and time side by side.
FocusScope {
    id: root

    required property DateTimeEntry entry

    readonly property real padding: 2

    function takeKeyboard() {
        (places.itemAt(0) as DateTimePlace).takeKeyboard();
    }

    implicitWidth: line.width
    implicitHeight: line.height
    onActiveFocusChanged: {
        if (!activeFocus)
            entry.settle();
    }

    Row {
        id: line

        Repeater {
            id: places
            model: root.entry

            DateTimePlace {
                entry: root.entry
                padding: root.padding
                onMoved: row => (places.itemAt(row) as DateTimePlace).takeKeyboard()
            }
        }
    }
}
