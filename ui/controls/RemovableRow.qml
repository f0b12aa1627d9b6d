import QtQuick
import Glimmet

// A row of a list, whose button stands at its end.
RemovableBox {
    id: root

    default property alias content: room.data

    // Where the row's own room ends.
    readonly property real contentEnd: cross.x

    keyboardStop: cross
    offer: "RowOffer.qml"
    radius: Theme.rowRadius
    color: Theme.rowFill

    Item {
        anchors.fill: parent
        enabled: !root.isRemoved
        visible: !root.isRemoved

        // Before the button, as it is read.
        Item {
            id: room
            anchors.fill: parent
        }
        PlainButton {
            id: cross
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            // The paddings of the row make the button easier to hit.
            leftPadding: 8
            rightPadding: 10
            verticalPadding: 7
            symbol: "xmark.circle.fill"
            symbolSize: Theme.symbolSize
            ink: Theme.quietSymbol
            fill: Theme.clear
            Accessible.name: Wording.removing(root.subject)
            onClicked: root.removed()
            // A double click on Undo ends here.
            onDoubleClicked: {}
        }
    }
}
