import QtQuick
import Glimmet

// A choice of one line.
Choice {
    id: chip

    required property real symbolSize

    font.family: Theme.family

    contentItem: ChipFace {
        symbol: chip.symbol
        symbolSize: chip.symbolSize
        symbolColor: chip.symbolColor
        label: chip.label
        labelFont: chip.font
        labelColor: chip.labelColor
    }
}
