import QtQuick
import Glimmet

Item {
    id: root

    signal settingsRequested

    implicitHeight: titles.height + 18 + 14

    Column {
        id: titles
        x: Theme.pageMargin
        y: 18
        spacing: 2

        InkText {
            text: "glimmet"
            font.pixelSize: 20
            font.weight: Theme.semibold
        }
        InkText {
            text: "menu bar utility"
            color: Theme.softText
            font.pixelSize: Theme.buttonSize
        }
    }
    LiveDot {
        anchors.left: titles.right
        anchors.leftMargin: 10
        anchors.verticalCenter: titles.verticalCenter
        running: root.visible && Theme.animates && Theme.isAttended
    }
    PlainButton {
        anchors.right: parent.right
        anchors.rightMargin: Theme.pageMargin
        anchors.verticalCenter: titles.verticalCenter
        leftPadding: 4
        rightPadding: 4
        topPadding: 4
        bottomPadding: 4
        symbol: "gearshape.fill"
        symbolSize: Theme.symbolSize
        ink: Theme.softText
        fill: Theme.clear
        Accessible.name: "Settings"
        onClicked: root.settingsRequested()
    }
}
