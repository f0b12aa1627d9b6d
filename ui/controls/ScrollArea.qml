import QtQuick
import Glimmet

// Scrolls what is higher than itself, and brings into view what gets the keyboard.
Flickable {
    id: area

    readonly property Item focusedItem: Window.activeFocusItem

    function reveal(item: Item) {
        contentY = Geometry.offsetRevealing(item, contentItem, contentY, height);
    }

    onFocusedItemChanged: {
        reveal(Geometry.wholeAround(focusedItem));
        reveal(focusedItem);
    }
    // What drops down gets its place, and the room for it, only after it got the keyboard.
    onContentHeightChanged: reveal(Geometry.wholeAround(focusedItem))

    clip: true
    contentWidth: width
    contentHeight: contentItem.childrenRect.height
    boundsBehavior: Flickable.StopAtBounds
}
