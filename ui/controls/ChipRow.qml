import QtQuick
import Glimmet

// Chips under their title, which a note may follow.
Column {
    id: root

    required property string title
    // What a screen reader says for the chips together.
    required property string group
    property string note
    default property alias chips: row.data

    spacing: Theme.rowSpacing

    Row {
        spacing: Theme.rowSpacing

        SectionLabel {
            id: label
            text: root.title
        }
        InkText {
            anchors.baseline: label.baseline
            text: root.note
            color: Theme.faintText
            font.pixelSize: 8
            visible: text.length > 0
            Accessible.ignored: !visible
        }
    }
    ChoiceGroup {
        name: root.group

        Row {
            id: row
            spacing: Theme.rowSpacing
        }
    }
}
