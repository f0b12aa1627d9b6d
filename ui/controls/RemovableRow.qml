import QtQuick
import Glimmet

// A row of a list, whose button stands at its end. It can be edited: by a double click, which its list tells, or by Return
// or F2 where it has the keyboard.
RemovableBox {
    id: root

    default property alias content: room.data
    // What a screen reader says of it besides its subject.
    property string details
    // The RowEditor that stands in the row while it is edited, and what it requires.
    required property url editor
    required property var editorInputs

    // Where the row's own room ends.
    readonly property real contentEnd: cross.x
    readonly property real editorHeight: place.implicitHeight
    property bool isEditing: false
    // Not by a press, after which the pointer shows what there is to see.
    readonly property bool wasReachedByKeyboard: handle.activeFocus && !handle.wasPressed

    // By a pointer, on its way to a double click.
    signal pressed
    // The editor is about to go, and what is entered in it shall count; whether the row has the keyboard now.
    signal edited(editor: RowEditor, keepsKeyboard: bool)

    function edit() {
        isEditing = true;
        place.setSource(editor, editorInputs);
        (place.item as RowEditor).begin();
    }

    // The keyboard comes back from the editor, if it is still there.
    function leaveEditor(): bool {
        const hadKeyboard = place.activeFocus;
        isEditing = false;
        if (hadKeyboard)
            takeKeyboard();
        return hadKeyboard;
    }

    function finishEditing() {
        if (!isEditing)
            return;
        const keepsKeyboard = leaveEditor();
        edited(place.item as RowEditor, keepsKeyboard);
        place.source = "";
    }

    function cancelEditing() {
        leaveEditor();
        place.source = "";
    }

    keyboardStop: handle
    hasKeyboard: body.activeFocus || place.activeFocus || offerHasKeyboard
    offer: "RowOffer.qml"
    radius: Theme.rowRadius
    color: Theme.rowFill

    FocusScope {
        id: body
        anchors.fill: parent
        enabled: !root.isRemoved && !root.isEditing
        visible: !root.isRemoved && !root.isEditing

        Item {
            id: handle

            property bool wasPressed: false

            anchors.fill: parent
            activeFocusOnTab: true
            onActiveFocusChanged: {
                if (!activeFocus)
                    wasPressed = false;
            }
            Accessible.role: Accessible.ListItem
            Accessible.ignored: !parent.enabled
            Accessible.name: root.subject
            Accessible.description: Wording.sentences([root.position, root.details + "Return edits it, Delete removes it."])
            Accessible.focusable: true
            Accessible.focused: activeFocus
            Accessible.onPressAction: root.edit()
            Keys.onReturnPressed: root.edit()
            Keys.onEnterPressed: root.edit()
            Keys.onPressed: event => {
                event.accepted = event.key === Qt.Key_F2;
                if (event.accepted)
                    root.edit();
            }
            Keys.onDeletePressed: root.removed()

            HeldKeyFilter {
                target: handle
            }
            MouseArea {
                anchors.fill: parent
                onPressed: {
                    root.pressed();
                    handle.wasPressed = true;
                    handle.forceActiveFocus(Qt.MouseFocusReason);
                }
            }
        }
        // Before the button, as it is read.
        Item {
            id: room
            anchors.fill: parent
        }
        PlainButton {
            id: cross
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            // The paddings of the row make the button easier to hit.
            leftPadding: 8
            rightPadding: 10
            verticalPadding: 7
            symbol: "xmark.circle.fill"
            symbolSize: Theme.symbolSize
            ink: Theme.quietSymbol
            fill: Theme.clear
            // The row has the keyboard for it.
            focusPolicy: Qt.NoFocus
            Accessible.name: Wording.removing(root.subject)
            onClicked: root.removed()
            // A double click on Undo ends here.
            onDoubleClicked: {}
        }
        FocusRing {
            cornerRadius: root.radius
            visible: body.activeFocus
        }
    }
    Loader {
        id: place
        anchors.fill: parent
        onLoaded: (item as RowEditor).finished.connect(root.finishEditing)
        onActiveFocusChanged: {
            if (!activeFocus)
                root.finishEditing();
        }

        // The panel closes on the same key.
        Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Escape
        Keys.onEscapePressed: root.cancelEditing()
    }
}
