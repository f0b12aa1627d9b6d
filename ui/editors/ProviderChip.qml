import QtQuick
import Glimmet

Chip {
    required property int provider

    horizontalPadding: 9
    verticalPadding: 7
    label: RevenueLabels.providerLabel(provider)
    symbol: RevenueLabels.providerSymbol(provider)
    symbolSize: Theme.smallSize
    font.pixelSize: Theme.buttonSize
}
