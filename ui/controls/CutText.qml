import QtQuick
import Glimmet

// A text that is cut where there is no room for it, and shown as a whole beside the pointer.
InkText {
    id: root

    maximumLineCount: 1
    elide: Text.ElideRight

    HoverHandler {
        id: hover
    }
    TipPlace {
        words: root.text
        wanted: hover.hovered && root.truncated
    }
}
