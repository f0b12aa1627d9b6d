import QtQuick
import QtQuick.Templates as T
import Glimmet

// A line of text to edit, in a border that takes the accent while it has the focus.
T.TextField {
    id: field

    property real cornerRadius: Theme.rowRadius
    property real horizontalPadding: Theme.cardPadding
    property real verticalPadding: 9
    // What is shown until it is edited, and again whenever it changes.
    property string value
    // What a screen reader says for it, and what it adds.
    property string name: placeholderText
    property string description: placeholderText
    readonly property string line: Wording.fieldText(value)

    // By the user or by an assistive program.
    signal edited(string text)

    text: line
    onTextChanged: {
        if (text !== line)
            edited(text);
    }
    validator: LineInput {
        target: field
    }

    implicitWidth: 120
    maximumLength: 2147483647
    leftPadding: horizontalPadding
    rightPadding: horizontalPadding
    topPadding: verticalPadding
    bottomPadding: verticalPadding
    implicitHeight: Math.ceil(contentHeight) + topPadding + bottomPadding
    color: Theme.ink
    selectionColor: Theme.accent
    selectedTextColor: Theme.background
    font.family: Theme.family
    font.pixelSize: Theme.fieldSize
    verticalAlignment: TextInput.AlignVCenter

    // Held, a key takes what is typed once, and not what it found already pressed.
    Keys.onReturnPressed: event => event.accepted = event.isAutoRepeat
    Keys.onEnterPressed: event => event.accepted = event.isAutoRepeat

    Accessible.role: Accessible.EditableText
    Accessible.name: name
    Accessible.description: description
    Accessible.ignored: !(parent?.enabled ?? true)

    Keys.priority: Keys.BeforeItem
    Keys.onShortcutOverride: event => event.accepted = menuPlace.isOpen && event.key === Qt.Key_Escape
    Keys.onPressed: event => {
        const asksForMenu = event.key === Qt.Key_Menu
            || (event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier);
        if (menuPlace.isOpen)
            event.accepted = menuPlace.menu.press(event.key);
        else if (asksForMenu) {
            event.accepted = true;
            menuPlace.open(field.cursorRectangle.x, field.cursorRectangle.y + field.cursorRectangle.height);
        }
    }

    TapHandler {
        acceptedButtons: Qt.RightButton
        acceptedDevices: PointerDevice.Mouse
        onPressedChanged: {
            if (!pressed)
                return;
            field.forceActiveFocus(Qt.MouseFocusReason);
            menuPlace.open(point.position.x, point.position.y);
        }
    }
    FieldMenuPlace {
        id: menuPlace
        field: field
    }

    background: RoundedBox {
        color: Theme.fieldFill
        borderColor: field.activeFocus ? Theme.accent : Theme.fieldBorder
        borderWidth: Theme.fieldBorderWidth
        radius: field.cornerRadius

        Behavior on borderColor {
            ColorAnimation {
                duration: Theme.borderDuration
                easing.type: Theme.easeInOut
            }
        }
    }

    InkText {
        x: field.leftPadding
        width: field.width - field.leftPadding - field.rightPadding
        height: field.height
        verticalAlignment: Text.AlignVCenter
        text: field.placeholderText
        font: field.font
        color: Theme.helpText
        elide: Text.ElideRight
        visible: field.length === 0 && field.preeditText.length === 0
        Accessible.ignored: true
    }
}
