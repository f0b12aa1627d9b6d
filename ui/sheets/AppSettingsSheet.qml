import QtQuick
import Glimmet

// What concerns the program as a whole.
Sheet {
    id: root

    required property PanelHost host

    readonly property real contentWidth: width - 2 * Theme.sheetMargin

    symbol: "gearshape.fill"
    title: "Settings"
    spacing: Theme.sectionSpacing

    LaunchAtLoginToggle {
        width: root.contentWidth
        host: root.host
    }
    RoundedBox {
        width: root.contentWidth
        implicitHeight: check.height + 2 * 9
        radius: Theme.rowRadius
        color: Theme.rowFill

        InkText {
            x: 12
            width: check.x - x
            anchors.verticalCenter: parent.verticalCenter
            text: "App Updates"
            font.pixelSize: Theme.rowSize
            elide: Text.ElideRight
        }
        PlainButton {
            id: check
            anchors.right: parent.right
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            leftPadding: 10
            rightPadding: 10
            topPadding: 6
            bottomPadding: 6
            text: "Check for Updates"
            // The sheet goes first: what the check has to say comes in a window of its own.
            onClicked: {
                root.dismissed();
                root.host.updateCheckRequested();
            }
        }
    }
    TopBarToggle {
        width: root.contentWidth
        host: root.host
    }
}
