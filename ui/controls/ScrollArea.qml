import QtQuick
import Glimmet

// Scrolls what is higher than itself by wheel, touchpad and touch, and brings into view what gets the keyboard. The
// mouse drags nothing: a press that moves a little still means the control below it.
Flickable {
    id: area

    readonly property Item focusedItem: Window.activeFocusItem
    // Is in view at first, until the user scrolls or the keyboard leads elsewhere.
    property Item opensAt: null

    function reveal(item: Item) {
        contentY = Geometry.offsetRevealing(item, contentItem, contentY, height);
    }

    function revealWhole() {
        reveal(opensAt);
        reveal(Geometry.wholeAround(focusedItem));
    }

    onFocusedItemChanged: {
        const whole = Geometry.wholeAround(focusedItem);
        if (whole !== null && whole !== opensAt)
            opensAt = null;
        revealWhole();
        reveal(focusedItem);
    }
    // What drops down gets its place, and the room for it, only after it got the keyboard.
    onContentHeightChanged: revealWhole()
    onHeightChanged: revealWhole()
    onMovementStarted: opensAt = null

    clip: true
    contentWidth: width
    contentHeight: contentItem.childrenRect.height
    boundsBehavior: Flickable.StopAtBounds
    interactive: !mouse.active

    // Beside the page, not in it.
    children: [
        // Over the page: below it, a control would have taken the press before.
        Item {
            anchors.fill: parent

            PointHandler {
                id: mouse
                acceptedDevices: PointerDevice.Mouse
            }
        },
        SoftEdge {
            width: area.width
            isAbove: true
            beyond: area.contentY
        },
        SoftEdge {
            // Beside the round corners that the panel may have here, through which the desktop is seen.
            x: Theme.panelRadius
            y: area.height - height
            width: area.width - 2 * x
            isAbove: false
            beyond: area.contentHeight - area.height - area.contentY
        }
    ]
}
