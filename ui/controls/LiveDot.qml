import QtQuick
import Glimmet

// Breathes to say that the text is alive.
Item {
    id: dot

    required property bool running

    property real breath
    readonly property real depth: running ? breath : 0
    readonly property real growth: 1 + 0.35 * depth

    implicitWidth: 8
    implicitHeight: 8
    opacity: 1 - 0.4 * depth

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

    // Painted anew as it grows: the painter scales pictures without smoothing them.
    RoundedBox {
        anchors.centerIn: parent
        width: 12
        height: width
        margin: (width - dot.width * dot.growth) / 2
        radius: dot.width
        color: Theme.accent
    }
}
