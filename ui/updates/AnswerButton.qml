import QtQuick
import Glimmet

// A button at the foot of a window.
PlainButton {
    leftPadding: 16
    rightPadding: 16
    topPadding: 7
    bottomPadding: 7
    font.pixelSize: Theme.fieldSize
    font.weight: Theme.medium
    visible: text.length > 0
    Accessible.ignored: !visible
}
