import QtQuick
import Glimmet

// Fades out what is cut off at an edge, so that it is seen to go on there.
Rectangle {
    id: edge

    required property bool isAbove
    // How much of the page lies beyond the edge.
    required property real beyond

    height: Theme.softEdge
    opacity: Math.min(1, beyond / height)
    visible: beyond > 0

    gradient: Gradient {
        GradientStop {
            position: edge.isAbove ? 0 : 1
            color: Theme.background
        }
        GradientStop {
            position: edge.isAbove ? 1 : 0
            color: Qt.alpha(Theme.background, 0)
        }
    }
}
