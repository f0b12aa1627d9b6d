import QtQuick
import Glimmet

UndoOffer {
    id: root

    CutText {
        x: 10
        width: undo.x - 8 - x
        anchors.verticalCenter: parent.verticalCenter
        text: "Removed " + Wording.oneLine(root.subject)
        hasKeyboard: undo.visualFocus
        horizontalAlignment: Text.AlignLeft
        color: Theme.softText
        font.pixelSize: Theme.buttonSize
    }
    UndoButton {
        id: undo
        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        horizontalPadding: Theme.buttonPadding
        verticalPadding: 5
        subject: root.subject
        onClicked: root.returned()
    }
}
