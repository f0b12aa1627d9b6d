import QtQuick
import Glimmet

Item {
    id: root

    required property PanelHost host

    implicitHeight: divider.height + quit.height + 2 * 10

    Rectangle {
        id: divider
        width: root.width
        height: Theme.hairline
        color: Theme.divider
    }
    InkText {
        x: 16
        anchors.verticalCenter: quit.verticalCenter
        text: Wording.version(root.host.version)
        color: Theme.faintestText
        font.pixelSize: Theme.smallSize
    }
    PlainButton {
        id: quit
        anchors.right: parent.right
        anchors.rightMargin: 16
        y: divider.height + 10
        horizontalPadding: 8
        verticalPadding: 5
        text: "Quit"
        ink: Theme.softText
        cursorShape: Qt.PointingHandCursor
        onClicked: root.host.quitRequested()
    }
}
