import QtQuick
import Glimmet

// The credentials of one platform, outlined while the platform is the chosen one.
RoundedBox {
    id: root

    required property string title
    required property bool selected
    // Of the key that the section is about.
    required property string value
    // Why the key store does not hold it, and what the user may do about that.
    property string trouble
    property string remedy
    // The last error of the platform.
    property string problem
    default property alias content: fields.data

    signal remedyChosen

    // Scrolled into view with all that belongs to the field that has the keyboard.
    readonly property bool revealedWhole: true
    readonly property real contentWidth: width - 2 * Theme.cardPadding

    implicitHeight: column.height + 2 * Theme.cardPadding
    radius: Theme.cardRadius
    borderWidth: Theme.fieldBorderWidth
    borderColor: selected ? Theme.accent : Theme.cardBorder

    Column {
        id: column
        x: Theme.cardPadding
        y: Theme.cardPadding
        width: root.contentWidth
        spacing: Theme.sectionSpacing

        SectionLabel {
            text: root.title
        }
        Column {
            id: fields
            width: root.contentWidth
            spacing: Theme.sectionSpacing
        }
        KeyStatusBadge {
            width: root.contentWidth
            value: root.value
            trouble: root.trouble
            remedy: root.remedy
            onRemedyChosen: root.remedyChosen()
        }
        InkText {
            width: root.contentWidth
            text: root.problem
            color: Theme.choiceInk
            font.pixelSize: Theme.smallSize
            wrapMode: Text.Wrap
            visible: text.length > 0
        }
    }
}
