pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

// The fields of a date and time side by side.
FocusScope {
    id: root

    required property DateTimeEntry entry

    readonly property real padding: 2

    function press(row: int, event: KeyEvent) {
        const next = entry.pressKey(row, event.key, event.text);
        event.accepted = next >= 0;
        if (event.accepted)
            (repeater.itemAt(next) as Place).takeKeyboard();
    }

    implicitWidth: line.width
    implicitHeight: line.height
    onActiveFocusChanged: {
        if (!activeFocus)
            entry.settle();
    }

    component Place: Row {
        id: place

        required property int index
        required property string name
        required property string text
        required property string widest
        required property int number
        required property int lowest
        required property int highest
        required property string separator
        required property bool startsTime

        function takeKeyboard() {
            segment.forceActiveFocus(Qt.TabFocusReason);
        }

        leftPadding: startsTime ? 10 : 0

        DateTimeSegment {
            id: segment
            padding: root.padding
            name: place.name
            text: place.text
            widest: place.widest
            number: place.number
            lowest: place.lowest
            highest: place.highest
            onStepped: steps => root.entry.step(place.index, steps)
            onEntered: number => root.entry.setNumber(place.index, number)
            onFinished: root.entry.finish(place.index)
            Keys.onPressed: event => root.press(place.index, event)
        }
        InkText {
            anchors.verticalCenter: parent.verticalCenter
            text: place.separator
            color: Theme.softText
            font.pixelSize: Theme.rowSize
            Accessible.ignored: true
        }
    }

    Row {
        id: line

        Repeater {
            id: repeater
            model: root.entry

            Place {}
        }
    }
}
