import QtQuick
import Glimmet

// A field with the button that takes what is typed in it, as Return does.
Row {
    id: root

    required property string buttonText
    property string fieldName: placeholderText
    property int verticalPadding: 7
    readonly property alias field: field
    property alias value: field.value
    property alias text: field.text
    property alias placeholderText: field.placeholderText
    property alias fontFamily: field.font.family

    signal entered(text: string)

    function clear() {
        field.clear();
    }

    function leaveKeyboard() {
        field.focus = false;
    }

    spacing: Theme.rowSpacing

    BorderedField {
        id: field
        width: root.width - button.width - root.spacing
        horizontalPadding: Theme.buttonPadding
        verticalPadding: root.verticalPadding
        cornerRadius: Theme.buttonRadius
        name: root.fieldName
        onAccepted: root.entered(text)
    }
    PlainButton {
        id: button
        height: field.height
        horizontalPadding: Theme.buttonPadding
        verticalPadding: root.verticalPadding
        text: root.buttonText
        onClicked: root.entered(field.text)
    }
}
