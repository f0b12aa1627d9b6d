import QtQuick
import Glimmet

Chip {
    horizontalPadding: 7
    verticalPadding: 6
    symbolSize: Theme.captionSize
    font.pixelSize: Theme.smallSize
    restingBorder: Theme.chipBorder
}
