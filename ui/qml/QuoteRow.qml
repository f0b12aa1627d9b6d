import QtQuick
import Glimmet

RoundedBox {
    id: root

    required property string quote

    readonly property bool hasKeyboard: removeButton.visualFocus

    signal removed

    function takeKeyboard() {
        removeButton.forceActiveFocus(Qt.TabFocusReason);
    }

    implicitHeight: Math.ceil(Math.max(label.implicitHeight, Theme.symbolSize)) + 2 * 7
    radius: Theme.rowRadius
    color: Theme.rowFill

    InkText {
        id: label
        x: 10
        width: root.width - x - removeButton.width
        anchors.verticalCenter: parent.verticalCenter
        text: root.quote
        font.pixelSize: Theme.buttonSize
        wrapMode: Text.Wrap
    }
    PlainButton {
        id: removeButton
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        // The paddings of the row make the button easier to hit.
        leftPadding: 8
        rightPadding: 10
        topPadding: 7
        bottomPadding: 7
        symbol: "xmark.circle.fill"
        symbolSize: Theme.symbolSize
        ink: Theme.quietSymbol
        fill: Theme.clear
        Accessible.name: Wording.removing(root.quote)
        onClicked: root.removed()
    }
}
