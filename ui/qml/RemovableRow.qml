import QtQuick
import Glimmet

// A row of a list with a button at its end that removes it.
RoundedBox {
    id: root

    required property string subject
    default property alias content: room.data

    readonly property bool hasKeyboard: removeButton.visualFocus
    // Where the row's own room ends.
    readonly property real contentEnd: removeButton.x

    signal removed

    function takeKeyboard() {
        removeButton.forceActiveFocus(Qt.TabFocusReason);
    }

    radius: Theme.rowRadius
    color: Theme.rowFill

    // Before the button, as it is read.
    Item {
        id: room
        anchors.fill: parent
    }
    PlainButton {
        id: removeButton
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        // The paddings of the row make the button easier to hit.
        leftPadding: 8
        rightPadding: 10
        topPadding: 7
        bottomPadding: 7
        symbol: "xmark.circle.fill"
        symbolSize: Theme.symbolSize
        ink: Theme.quietSymbol
        fill: Theme.clear
        Accessible.name: Wording.removing(root.subject)
        onClicked: root.removed()
    }
}
