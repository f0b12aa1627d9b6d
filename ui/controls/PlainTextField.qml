import QtQuick
import Glimmet

Column {
    id: root

    required property string caption
    required property string placeholder
    required property string text
    property string help

    signal edited(string text)

    spacing: Theme.captionGap

    InkText {
        text: root.caption
        color: Theme.softText
        font.pixelSize: Theme.captionSize
        font.weight: Theme.semibold
        font.letterSpacing: Theme.captionSpacing
    }
    BorderedField {
        width: root.width
        font.family: Theme.monospacedFamily
        placeholderText: root.placeholder
        value: root.text
        onEdited: text => root.edited(text)
        name: root.caption
    }
    InkText {
        width: root.width
        text: root.help
        color: Theme.helpText
        font.pixelSize: Theme.smallSize
        wrapMode: Text.Wrap
        visible: text.length > 0
    }
}
