import QtQuick
import Glimmet

// The size of a SymbolChip that is not built and not on show.
EntryExtent {
    role: "entry"
    font.family: Theme.family
    font.pixelSize: Theme.smallSize
    font.weight: Theme.medium
    horizontalPadding: 8 + 5 + 8 + 8
    verticalPadding: 2 * 5
}
