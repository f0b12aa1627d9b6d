import QtQuick
import Glimmet

Chip {
    leftPadding: 7
    rightPadding: 7
    topPadding: 6
    bottomPadding: 6
    symbolSize: Theme.captionSize
    font.pixelSize: Theme.smallSize
    restingBorder: Theme.chipBorder
}
