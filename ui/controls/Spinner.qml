import QtQuick
import Glimmet

// Turns while something is under way. It keeps the room of its natural size whatever it is scaled to.
Item {
    id: spinner

    required property bool running
    required property real factor

    implicitWidth: 16
    implicitHeight: 16

    // Drawn in its final size: the painter scales pictures without smoothing them.
    SymbolImage {
        anchors.centerIn: parent
        name: "progress.indicator"
        size: Math.round(spinner.factor * spinner.implicitWidth)
        color: Theme.ink

        NumberAnimation on turn {
            running: spinner.running && Theme.animates
            loops: Animation.Infinite
            to: 360
            duration: Theme.pulseDuration
        }
    }
}
