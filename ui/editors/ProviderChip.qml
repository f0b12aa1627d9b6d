import QtQuick
import Glimmet

Chip {
    required property int provider

    horizontalPadding: 9
    verticalPadding: 7
    label: RevenueFaces.providerLabel(provider)
    symbol: RevenueFaces.providerSymbol(provider)
    symbolSize: Theme.smallSize
    font.pixelSize: Theme.buttonSize
}
