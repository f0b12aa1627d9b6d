import QtQuick
import Glimmet

Chip {
    required property int provider

    leftPadding: 9
    rightPadding: 9
    topPadding: 7
    bottomPadding: 7
    label: RevenueFaces.providerLabel(provider)
    symbol: RevenueFaces.providerSymbol(provider)
    symbolSize: Theme.smallSize
    font.pixelSize: Theme.buttonSize
}
