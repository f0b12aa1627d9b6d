import QtQuick
import Glimmet

// A choice of one line: its symbol, if it has one, beside its label.
Choice {
    id: chip

    required property real symbolSize

    font.family: Theme.family

    contentItem: Item {
        implicitWidth: childrenRect.width
        implicitHeight: childrenRect.height

        Row {
            anchors.centerIn: parent
            spacing: 4

            SymbolImage {
                anchors.verticalCenter: parent.verticalCenter
                name: chip.symbol
                size: chip.symbolSize
                color: chip.symbolColor
                visible: name.length > 0
            }
            InkText {
                anchors.verticalCenter: parent.verticalCenter
                text: chip.label
                font: chip.font
                color: chip.labelColor
                Accessible.ignored: true
            }
        }
    }
}
