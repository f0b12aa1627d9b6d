import QtQuick
import Glimmet

// Says whether there is a key, or what keeps it from being saved, with a way out beside it.
Item {
    id: root

    required property string value
    property string trouble
    property string remedy

    readonly property bool isInTrouble: trouble.length > 0
    readonly property bool isSaved: !isInTrouble && value.length > 0
    readonly property color quietInk: isInTrouble ? Theme.choiceInk : Theme.faintText

    signal remedyChosen

    implicitWidth: line.width
    implicitHeight: line.height

    Row {
        id: line
        spacing: 5

        RoundedBox {
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.dotSize
            height: width
            radius: width / 2
            color: root.isSaved ? Theme.accent : root.quietInk
        }
        InkText {
            id: words
            text: root.isInTrouble ? root.trouble : CredentialLabels.status(root.isSaved)
            color: root.isSaved ? Theme.savedText : root.quietInk
            font.pixelSize: Theme.smallSize
            // Screen readers say the labels of a dialog when it comes up: only what is wrong is worth that.
            Accessible.role: root.isInTrouble ? Accessible.StaticText : Accessible.Paragraph
        }
    }
    Announcement {
        item: words
        text: words.text
    }
    // Taller than the line, which keeps its height.
    PlainButton {
        anchors.right: parent.right
        anchors.verticalCenter: line.verticalCenter
        horizontalPadding: Theme.buttonPadding
        verticalPadding: 4
        text: root.remedy
        font.pixelSize: Theme.smallSize
        visible: root.remedy.length > 0
        Accessible.description: root.trouble
        Accessible.ignored: !visible || !(parent?.enabled ?? true)
        onClicked: root.remedyChosen()
    }
}
