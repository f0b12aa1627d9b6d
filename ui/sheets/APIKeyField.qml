import QtQuick
import Glimmet

// A credential under its caption, hidden until its button reveals it. Caption and hint are paragraphs for screen
// readers, which say all the labels of a dialog when it comes up; of these the field tells when it is its turn.
Column {
    id: root

    required property string caption
    required property string placeholder
    required property string hint
    // What a screen reader says for the field.
    required property string name
    required property string value
    // Whether it is saved, or what keeps it from being saved.
    property string status
    // It has the keyboard when its page comes up.
    property bool startsHere: false

    property bool isRevealed: false

    // The user turns to it, and away from it.
    signal entered
    signal exited
    signal edited(string text)

    function takeKeyboard() {
        entry.forceActiveFocus(Qt.OtherFocusReason);
    }

    spacing: Theme.captionGap

    Row {
        spacing: Theme.symbolSpacing

        SymbolImage {
            anchors.verticalCenter: parent.verticalCenter
            name: "key.fill"
            size: Theme.smallSize
            color: Theme.softText
        }
        InkText {
            anchors.verticalCenter: parent.verticalCenter
            text: root.caption
            color: Theme.softText
            font.pixelSize: Theme.captionSize
            font.letterSpacing: Theme.captionSpacing
            Accessible.role: Accessible.Paragraph
        }
    }
    Item {
        width: root.width
        height: entry.height

        SecretField {
            id: entry
            width: root.width
            rightPadding: reveal.width
            placeholderText: root.placeholder
            value: root.value
            isRevealed: root.isRevealed
            name: root.name
            description: Wording.sentences([root.hint, root.status])
            focus: root.startsHere
            onFocusChanged: {
                if (focus)
                    root.entered();
                else
                    root.exited();
            }
            onEdited: text => root.edited(text)
        }
        // Beside the field, not in it: what is in a field no assistive program is told.
        PlainButton {
            id: reveal
            anchors.right: parent.right
            height: parent.height
            leftPadding: 8
            rightPadding: 12
            symbol: root.isRevealed ? "eye" : "eye.slash"
            symbolSize: Theme.buttonSize
            ink: Theme.helpText
            fill: Theme.clear
            cornerRadius: Theme.rowRadius
            Accessible.name: root.isRevealed ? "Hide key" : "Show key"
            Accessible.description: root.name
            onClicked: root.isRevealed = !root.isRevealed
        }
    }
    InkText {
        width: root.width
        text: root.hint
        color: Theme.helpText
        font.pixelSize: Theme.smallSize
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Paragraph
    }
}
