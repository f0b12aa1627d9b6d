import QtQuick
import QtQuick.Templates as T
import Glimmet

T.RadioButton {
    id: card

    required property string label
    required property string symbol
    required property bool selected

    signal tapped

    property color symbolColor: selected ? Theme.background : Theme.cardSymbol
    property color labelColor: selected ? Theme.background : Theme.cardLabel

    text: label
    checked: selected
    implicitHeight: Math.ceil(implicitContentHeight) + topPadding + bottomPadding
    topPadding: 10
    bottomPadding: 10
    focusPolicy: Qt.TabFocus
    opacity: pressed ? Theme.pressedOpacity : 1
    onClicked: tapped()

    Accessible.role: Accessible.RadioButton
    Accessible.name: label
    Accessible.onPressAction: card.tapped()
    Accessible.onToggleAction: card.tapped()
    Keys.onReturnPressed: card.tapped()
    Keys.onEnterPressed: card.tapped()

    Behavior on symbolColor {
        ColorAnimation {
            duration: Theme.modeDuration
            easing.type: Theme.easeInOut
        }
    }
    Behavior on labelColor {
        ColorAnimation {
            duration: Theme.modeDuration
            easing.type: Theme.easeInOut
        }
    }

    background: RoundedBox {
        color: card.selected ? Theme.ink : Theme.buttonFill
        borderColor: card.selected ? Theme.clear : Theme.cardBorder
        borderWidth: Theme.hairline
        radius: Theme.cardRadius

        Behavior on color {
            ColorAnimation {
                duration: Theme.modeDuration
                easing.type: Theme.easeInOut
            }
        }
        Behavior on borderColor {
            ColorAnimation {
                duration: Theme.modeDuration
                easing.type: Theme.easeInOut
            }
        }

        FocusRing {
            cornerRadius: Theme.cardRadius
            visible: card.visualFocus
        }
    }
    contentItem: Column {
        spacing: 5

        SymbolImage {
            anchors.horizontalCenter: parent.horizontalCenter
            name: card.symbol
            size: Theme.symbolSize
            color: card.symbolColor
        }
        InkText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: card.label
            color: card.labelColor
            font.pixelSize: Theme.smallSize
            font.weight: card.selected ? Theme.semibold : Theme.regular
            Accessible.ignored: true
        }
    }
}
