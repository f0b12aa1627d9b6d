import QtQuick
import Glimmet

// A field of an entry with what stands to its right.
Row {
    id: root

    required property DateTimeEntry entry
    required property real padding
    required property int index
    required property string name
    required property string text
    required property string widest
    required property int number
    required property int lowest
    required property int highest
    required property string separator
    required property bool followsGap

    signal moved(int row)

    function takeKeyboard() {
        segment.forceActiveFocus(Qt.TabFocusReason);
    }

    function press(event: KeyEvent) {
        const isShortcut = event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier);
        const next = entry.pressKey(index, event.key, isShortcut ? "" : event.text);
        event.accepted = next >= 0;
        if (event.accepted)
            moved(next);
    }

    leftPadding: followsGap ? 10 : 0

    DateTimeSegment {
        id: segment
        padding: root.padding
        name: root.name
        text: root.text
        widest: root.widest
        number: root.number
        lowest: root.lowest
        highest: root.highest
        onStepped: steps => root.entry.step(root.index, steps)
        onEntered: number => root.entry.setNumber(root.index, number)
        onFinished: root.entry.finish(root.index)
        Keys.onPressed: event => root.press(event)
    }
    InkText {
        anchors.verticalCenter: parent.verticalCenter
        text: root.separator
        color: Theme.softText
        font.pixelSize: Theme.rowSize
        Accessible.ignored: true
    }
}
