import QtQuick
import Glimmet

// Shows where the keyboard is, around its parent.
RoundedBox {
    required property real cornerRadius

    readonly property real gap: Theme.focusRingWidth + 1

    anchors.fill: parent
    anchors.margins: -gap
    radius: cornerRadius + gap
    borderWidth: Theme.focusRingWidth
    borderColor: Theme.accent
}
