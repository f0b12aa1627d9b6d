import QtQuick
import Glimmet

// An entry of a list, with a button of its own that removes it. What was removed holds its place for as long
// as it can be put back.
RoundedBox {
    id: root

    // What the entry is called.
    required property string subject
    // What has the keyboard where the entry has it.
    required property Item keyboardStop
    property bool isRemoved: false
    // What a screen reader says of its place in the list, where it cannot count the entries itself.
    property string position
    // The UndoOffer that stands in the place of a removed entry.
    required property url offer

    readonly property real offerWidth: place.implicitWidth
    readonly property bool offerHasKeyboard: place.activeFocus
    property bool hasKeyboard: keyboardStop.activeFocus || offerHasKeyboard

    signal removed
    signal returned

    // Of what was removed, the offer to put it back takes it.
    function takeKeyboard() {
        const stop = isRemoved ? place : keyboardStop;
        stop.forceActiveFocus(Qt.TabFocusReason);
    }

    function makeOffer() {
        place.setSource(offer, {
            subject: subject
        });
    }

    // Shows the user where it is.
    function point() {
        for (let around = parent; around !== null; around = around.parent) {
            if (around instanceof ScrollArea)
                (around as ScrollArea).reveal(root);
        }
        pointer.source = "";
        pointer.setSource("PointingRing.qml", {
            cornerRadius: radius
        });
    }

    // The keyboard comes back with the entry.
    function takeOfferBack() {
        const hadKeyboard = place.activeFocus;
        place.source = "";
        if (hadKeyboard)
            takeKeyboard();
    }

    onIsRemovedChanged: isRemoved ? makeOffer() : takeOfferBack()

    // Nothing of it is there before, for there are many entries.
    Loader {
        id: pointer
        anchors.fill: parent
        z: 1
    }
    Loader {
        id: place
        anchors.fill: parent
        onLoaded: (item as UndoOffer).returned.connect(root.returned)
    }
}
