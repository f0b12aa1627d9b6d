import QtQuick
import Glimmet

UndoOffer {
    id: root

    InkText {
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        text: "Removed"
        color: Theme.softText
        font.pixelSize: Theme.buttonSize
    }
    UndoButton {
        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        horizontalPadding: Theme.buttonPadding
        verticalPadding: 5
        subject: root.subject
        onClicked: root.returned()
    }
}
