import QtQuick
import Glimmet

// A symbol, if there is one, beside a label, in the middle of whatever room there is.
Item {
    id: face

    required property string symbol
    required property real symbolSize
    required property color symbolColor
    required property string label
    required property font labelFont
    required property color labelColor

    implicitWidth: line.implicitWidth
    implicitHeight: line.implicitHeight

    Row {
        id: line
        anchors.centerIn: parent
        spacing: Theme.symbolSpacing

        SymbolImage {
            anchors.verticalCenter: parent.verticalCenter
            name: face.symbol
            size: face.symbolSize
            color: face.symbolColor
            visible: name.length > 0
        }
        InkText {
            anchors.verticalCenter: parent.verticalCenter
            text: face.label
            font: face.labelFont
            color: face.labelColor
            Accessible.ignored: true
        }
    }
}
