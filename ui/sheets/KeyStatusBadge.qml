import QtQuick
import Glimmet

// Says whether there is a key.
Row {
    id: root

    required property string value

    readonly property bool isSaved: value.length > 0

    spacing: 5

    RoundedBox {
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.dotSize
        height: width
        radius: width / 2
        color: root.isSaved ? Theme.accent : Theme.faintText
    }
    InkText {
        text: CredentialLabels.status(root.isSaved)
        color: root.isSaved ? Theme.savedText : Theme.faintText
        font.pixelSize: Theme.smallSize
    }
}
