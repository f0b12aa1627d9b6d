import QtQuick
import Glimmet

// The size of a QuoteRow that is not built.
EntryExtent {
    required property real width

    role: "entry"
    font.family: Theme.family
    font.pixelSize: Theme.buttonSize
    wrapWidth: width - 10 - 8 - Theme.symbolSize - 10
    leastHeight: Theme.symbolSize
    verticalPadding: 2 * 7
}
