import QtQuick
import Glimmet

// A symbol of the user's list. The one on show is marked by a fill and a dot.
RemovableBox {
    id: root

    required property string symbol
    required property bool shown
    required property real maximumWidth
    // Why it gives no price; empty where it gives one.
    property string trouble

    readonly property real dimness: shown ? Theme.shownWithoutPriceOpacity : Theme.withoutPriceOpacity
    readonly property real presence: trouble.length > 0 ? dimness : 1

    property color ink: shown ? Theme.background : Theme.ink

    subject: symbol
    keyboardStop: cross
    offer: "ChipOffer.qml"
    implicitWidth: Math.max(label.x + label.width + cross.width, offerWidth)
    implicitHeight: Math.ceil(label.implicitHeight) + 2 * 5
    radius: Theme.buttonRadius
    color: shown ? Theme.strongFill : Theme.chipFill

    Behavior on ink {
        ColorAnimation {
            duration: Theme.chipDuration
            easing.type: Theme.easeInOut
        }
    }
    Behavior on color {
        ColorAnimation {
            duration: Theme.chipDuration
            easing.type: Theme.easeInOut
        }
    }

    Item {
        anchors.fill: parent
        enabled: !root.isRemoved
        visible: !root.isRemoved

        RoundedBox {
            id: dot
            x: 8
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.dotSize
            height: width
            radius: width / 2
            color: Theme.accentOnInk
            opacity: root.presence
            visible: root.shown
        }
        InkText {
            id: label
            x: dot.visible ? dot.x + dot.width + Theme.symbolSpacing : dot.x
            width: Math.min(Math.ceil(implicitWidth), root.maximumWidth - x - cross.width)
            anchors.verticalCenter: parent.verticalCenter
            text: Wording.oneLine(root.symbol)
            color: root.ink
            opacity: root.presence
            font.pixelSize: Theme.smallSize
            font.weight: Theme.medium
            elide: Text.ElideRight
            Accessible.description: Wording.sentences([root.position, root.trouble])
            Accessible.selectable: true
            Accessible.selected: root.shown
        }
        HoverHandler {
            id: hover
        }
        TipPlace {
            id: tip
            words: Wording.sentences([label.truncated ? label.text : "", root.trouble])
            wanted: (hover.hovered && !cross.hovered) || cross.visualFocus
        }
        PlainButton {
            id: cross
            x: label.x + label.width
            height: root.height
            // The paddings of the chip make the button easier to hit.
            leftPadding: 5
            rightPadding: 8
            symbol: "xmark"
            symbolSize: 8
            ink: root.ink
            // One tip at a time: what the chip has to say comes first.
            tipsKeyboard: tip.words.length === 0
            // The whole chip shows the keyboard: around the symbol alone the ring would lie over the text.
            background: RoundedBox {
                radius: root.radius
                color: Theme.answering(Qt.alpha(root.ink, 0), cross.hovered, cross.pressed)
                visible: cross.hovered || cross.pressed
            }
            Accessible.name: Wording.removing(root.symbol)
            // The keyboard comes to nothing else of the chip.
            Accessible.description: Wording.sentences([root.position, root.trouble])
            onClicked: root.removed()
            // A double click on Undo ends here.
            onDoubleClicked: {}
        }
        FocusRing {
            cornerRadius: root.radius
            visible: root.hasKeyboard
        }
    }
}
