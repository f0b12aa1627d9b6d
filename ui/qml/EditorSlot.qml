import QtQuick
import Glimmet

// Holds an editor while it is shown; it comes in from the top edge and leaves the same way.
Loader {
    id: slot

    required property TickerViewModel ticker
    required property url editor
    required property bool shown

    property real presence: shown ? 1 : 0

    active: shown || presence > 0
    enabled: shown
    opacity: presence
    y: (presence - 1) * height
    Component.onCompleted: setSource(editor, {
        ticker: ticker
    })

    Behavior on presence {
        NumberAnimation {
            duration: Theme.editorDuration
            easing.type: Theme.easeInOut
        }
    }
}
