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
    // The UndoOffer that stands in the place of a removed entry.
    required property url offer

    readonly property real offerWidth: place.implicitWidth
    readonly property bool offerHasKeyboard: place.activeFocus
    property bool hasKeyboard: keyboardStop.activeFocus || offerHasKeyboard

    signal removed
    signal returned

    function takeKeyboard() {
        keyboardStop.forceActiveFocus(Qt.TabFocusReason);
    }

    function makeOffer() {
        place.setSource(offer, {
            subject: subject
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

    Loader {
        id: place
        anchors.fill: parent
        onLoaded: (item as UndoOffer).returned.connect(root.returned)
    }
}
