import QtQuick
import Glimmet

Item {
    id: root

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
        running: root.visible && Theme.animates
    }
}
