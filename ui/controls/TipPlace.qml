import QtQuick
import Glimmet

// Has words appear beside its parent while they are wanted. There is nothing of them before.
Loader {
    id: place

    required property string words
    required property bool wanted

    anchors.fill: parent
    active: wanted && words.length > 0
    Component.onCompleted: setSource("Tip.qml", {
        place: place
    })
}
