import QtQuick
import Glimmet

// Holds an editor while it is shown; it comes in from the top edge and leaves the same way. One that is
// longer than the panel comes from near: all of a long list would rush by otherwise, and have to be built for it.
EditorLoader {
    id: slot

    required property bool shown

    property real presence: shown ? 1 : 0

    active: shown || presence > 0
    enabled: shown
    opacity: presence
    // A loader keeps the height of what it has held.
    height: active ? implicitHeight : 0
    y: (presence - 1) * (height > Theme.panelHeight ? Theme.longEditorTravel : height)

    Behavior on presence {
        NumberAnimation {
            duration: Theme.editorDuration
            easing.type: Theme.easeInOut
        }
    }
}
