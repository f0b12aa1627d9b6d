import QtQuick
import Glimmet

// Breathes to say that the text is alive.
Rectangle {
    id: dot

    required property bool running

    property real breath

    implicitWidth: 8
    implicitHeight: 8
    radius: 4
    color: Theme.accent
    scale: 1 + 0.35 * breath
    opacity: 1 - 0.4 * breath

    SequentialAnimation on breath {
        running: dot.running
        loops: Animation.Infinite

        NumberAnimation {
            to: 1
            duration: Theme.pulseDuration
            easing.type: Theme.easeInOut
        }
        NumberAnimation {
            to: 0
            duration: Theme.pulseDuration
            easing.type: Theme.easeInOut
        }
    }
}
