import QtQuick
import Glimmet

// Holds an editor while it is shown; it comes in from the top edge and leaves the same way.
EditorLoader {
    id: slot

    required property bool shown

    property real presence: shown ? 1 : 0

    active: shown || presence > 0
    enabled: shown
    opacity: presence
    y: (presence - 1) * height

    Behavior on presence {
        NumberAnimation {
            duration: Theme.editorDuration
            easing.type: Theme.easeInOut
        }
    }
}
