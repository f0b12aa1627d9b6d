import QtQuick
import Glimmet

UndoOffer {
    id: root

    implicitWidth: undo.implicitWidth

    UndoButton {
        id: undo
        anchors.fill: parent
        horizontalPadding: 8
        subject: root.subject
        font.pixelSize: Theme.smallSize
        font.weight: Theme.medium
        fill: Theme.clear
        onClicked: root.returned()

        contentItem: ChipFace {
            symbol: ""
            symbolSize: 0
            symbolColor: undo.ink
            label: undo.text
            labelFont: undo.font
            labelColor: undo.ink
        }
    }
}
