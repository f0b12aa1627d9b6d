pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

// The fields of a date and time side by side. They follow each other in the order of reading, for the Tab key
// and the screen reader, and stand where the line of the locale has them.
FocusScope {
    id: root

    required property DateTimeEntry entry

    readonly property real padding: 2

    // By Return.
    signal entered

    // Held, the key takes once what is entered.
    function enter(event: KeyEvent) {
        if (!event.isAutoRepeat)
            entered();
    }

    function takeKeyboard() {
        (places.itemAt(0) as DateTimePlace).takeKeyboard();
    }

    // Where the field ends on the line; 0 for none. `made` is there to ask again: the one at the left may be the
    // later one.
    function endOf(row: int, made: int): real {
        const place = places.itemAt(row) as DateTimePlace;
        return place === null ? 0 : place.x + place.width;
    }

    implicitWidth: line.childrenRect.width
    implicitHeight: line.childrenRect.height
    onActiveFocusChanged: {
        if (!activeFocus)
            entry.settle();
    }
    Keys.onReturnPressed: event => enter(event)
    Keys.onEnterPressed: event => enter(event)

    Item {
        id: line

        property int made: 0

        Repeater {
            id: places
            model: root.entry
            onItemAdded: ++line.made

            DateTimePlace {
                required property int leftRow

                x: root.endOf(leftRow, line.made)
                entry: root.entry
                padding: root.padding
                onMoved: row => (places.itemAt(row) as DateTimePlace).takeKeyboard()
            }
        }
    }
}
