import QtQuick
import Glimmet

// A page over the panel: its title, a button that closes it, and what it is about. Made lower than it is by
// itself, what it is about scrolls.
FocusScope {
    id: root

    required property string symbol
    required property string title
    default property alias content: column.data
    property alias spacing: column.spacing
    // What of it is in view at first.
    property alias opensAt: area.opensAt

    signal dismissed

    implicitWidth: Theme.panelWidth
    implicitHeight: area.y + column.height

    Accessible.role: Accessible.Dialog
    Accessible.name: title

    Item {
        id: header
        x: Theme.sheetMargin
        y: Theme.sheetMargin
        width: root.width - 2 * x
        height: Math.max(Math.ceil(label.implicitHeight), close.height)

        SymbolImage {
            id: mark
            anchors.verticalCenter: parent.verticalCenter
            name: root.symbol
            size: Theme.symbolSize
            color: Theme.accent
        }
        InkText {
            id: label
            anchors.left: mark.right
            anchors.leftMargin: 8
            anchors.right: close.left
            anchors.verticalCenter: parent.verticalCenter
            text: root.title
            font.pixelSize: Theme.sheetTitleSize
            elide: Text.ElideRight
        }
        PlainButton {
            id: close
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            padding: 4
            symbol: "xmark"
            symbolSize: Theme.rowSize
            ink: Theme.faintText
            fill: Theme.circleFill
            cornerRadius: height / 2
            Accessible.name: "Close"
            onClicked: root.dismissed()
        }
    }
    ScrollArea {
        id: area
        anchors.top: header.bottom
        // As far from the title as from one another.
        anchors.topMargin: column.spacing - column.topPadding
        anchors.bottom: parent.bottom
        width: root.width

        Column {
            id: column
            leftPadding: Theme.sheetMargin
            rightPadding: Theme.sheetMargin
            topPadding: 4
            bottomPadding: Theme.sheetMargin
            width: area.width
            spacing: Theme.editorSpacing
        }
    }
}
