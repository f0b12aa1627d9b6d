import QtQuick
import Glimmet

// A text that is cut where there is no room for it, and shown as a whole beside the pointer, and where what it stands in
// has the keyboard.
InkText {
    id: root

    property bool hasKeyboard: false

    maximumLineCount: 1
    elide: Text.ElideRight

    HoverHandler {
        id: hover
    }
    TipPlace {
        words: root.text
        wanted: (hover.hovered || root.hasKeyboard) && root.truncated
    }
}
