import QtQuick
import QtQuick.Templates as T
import Glimmet

// A button of a text, a symbol or both, on a rounded fill.
T.AbstractButton {
    id: button

    property string symbol
    property real symbolSize: font.pixelSize
    property color ink: Theme.ink
    property color fill: Theme.buttonFill
    property real cornerRadius: Theme.buttonRadius
    property alias cursorShape: hover.cursorShape
    // Whether its tip comes up for the keyboard too.
    property bool tipsKeyboard: true
    readonly property bool isOutOfUse: !enabled && (parent?.enabled ?? true)

    implicitWidth: Math.ceil(implicitContentWidth) + leftPadding + rightPadding
    implicitHeight: Math.ceil(implicitContentHeight) + topPadding + bottomPadding
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    // Below a sheet the whole page is out of use, and dimmed as a whole.
    containmentMask: TargetMask {
        target: button
    }
    opacity: isOutOfUse ? Theme.disabledOpacity : (pressed ? Theme.pressedOpacity : 1)
    font.family: Theme.family
    font.pixelSize: Theme.buttonSize

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.ignored: !(parent?.enabled ?? true)
    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()

    background: RoundedBox {
        color: Theme.answering(button.fill, button.hovered, button.pressed)
        radius: button.cornerRadius

        FocusRing {
            cornerRadius: button.cornerRadius
            visible: button.visualFocus
        }
    }
    contentItem: Row {
        spacing: Theme.symbolSpacing

        SymbolImage {
            anchors.verticalCenter: parent.verticalCenter
            name: button.symbol
            size: button.symbolSize
            color: button.ink
            visible: name.length > 0
        }
        InkText {
            anchors.verticalCenter: parent.verticalCenter
            text: button.text
            font: button.font
            color: button.ink
            visible: text.length > 0
            Accessible.ignored: true
        }
    }

    HeldKeyFilter {
        target: button
    }
    HoverHandler {
        id: hover
    }
    // A symbol alone does not say what it does.
    TipPlace {
        words: button.text.length > 0 ? "" : button.Accessible.name
        wanted: (button.hovered || (button.visualFocus && button.tipsKeyboard)) && !button.pressed
    }
}
