import QtQuick
import Glimmet

// Comes up around what the user is shown, and goes again.
RoundedBox {
    id: ring

    required property real cornerRadius

    radius: cornerRadius
    borderWidth: Theme.fieldBorderWidth
    borderColor: Theme.accent
    opacity: 0
    visible: opacity > 0

    SequentialAnimation {
        running: true

        NumberAnimation {
            target: ring
            property: "opacity"
            to: 1
            duration: Theme.borderDuration
        }
        PauseAnimation {
            duration: Theme.pointingDuration
        }
        NumberAnimation {
            target: ring
            property: "opacity"
            to: 0
            duration: Theme.listDuration
        }
    }
}
