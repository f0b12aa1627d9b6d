import QtQuick
import Glimmet

// Scrolls what is higher than itself, and brings into view what gets the keyboard.
Flickable {
    id: area

    readonly property Item focusedItem: Window.activeFocusItem

    onFocusedItemChanged: contentY = Geometry.offsetRevealing(focusedItem, contentItem, contentY, height)

    clip: true
    contentWidth: width
    contentHeight: contentItem.childrenRect.height
    boundsBehavior: Flickable.StopAtBounds
}
