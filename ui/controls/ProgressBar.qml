import QtQuick
import Glimmet

// How far something is; below zero, that it goes on.
RoundedBox {
    id: bar

    required property string label
    required property real value

    // By these names screen readers find the value.
    readonly property real minimumValue: 0
    readonly property real maximumValue: 1
    readonly property bool isKnown: value >= 0
    property real wandering
    readonly property real place: Theme.animates ? wandering : 0.5

    implicitHeight: 6
    radius: height / 2
    color: Theme.progressTrack

    Accessible.role: Accessible.ProgressBar
    Accessible.name: label
    Accessible.ignored: !visible

    NumberAnimation on wandering {
        running: bar.visible && !bar.isKnown && Theme.animates
        loops: Animation.Infinite
        from: 0
        to: 1
        duration: 2 * Theme.pulseDuration
    }
    RoundedBox {
        x: bar.isKnown ? 0 : bar.place * (bar.width - width)
        width: bar.isKnown ? Math.max(height, bar.value * bar.width) : bar.width / 4
        height: bar.height
        radius: height / 2
        color: Theme.accent
    }
}
