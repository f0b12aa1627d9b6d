import QtQuick
import Glimmet

// Whether the desktop's own shell shows the text in its top bar. It shows what the shell says when it is made, and from
// then on where the user puts it.
GlimmetToggle {
    id: root

    required property PanelHost host

    visible: host.offersTopBar
    label: "Show in the top bar as text"
    on: host.isShownInTopBar
    bottomPadding: topPadding + (note.visible ? note.height : 0)
    onToggled: host.setShownInTopBar(checked)
    Component.onCompleted: {
        if (host.offersTopBar)
            host.lookAtTopBar();
    }

    Accessible.description: note.text

    InkText {
        id: note
        x: root.leftPadding
        y: root.height - root.topPadding - height
        visible: text !== ""
        text: root.host.topBarWaitsForLogin ? "after the next login" : ""
        color: Theme.softText
        font.pixelSize: Theme.smallSize
        Accessible.ignored: true
    }
}
