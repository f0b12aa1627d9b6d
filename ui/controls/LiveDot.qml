import QtQuick
import Glimmet

// Breathes to say that the text is alive: in few steps, since the desktop draws each of them.
Item {
    id: dot

    required property bool running

    // Each way, which makes less than eight a second.
    readonly property int steps: 7
    property int step: 0
    readonly property real breath: 1 - Math.abs(step / steps - 1)
    // The theme's easing.
    readonly property real depth: breath < 0.5 ? 2 * breath * breath : 1 - 2 * (1 - breath) * (1 - breath)
    readonly property real growth: 1 + 0.35 * depth

    implicitWidth: 8
    implicitHeight: 8
    opacity: 1 - 0.4 * depth

    onRunningChanged: step = 0

    Timer {
        interval: Theme.pulseDuration / dot.steps
        repeat: true
        running: dot.running
        onTriggered: dot.step = (dot.step + 1) % (2 * dot.steps)
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
