import QtQuick
import Glimmet

// Whether the program starts at login. It shows what the system says when it is made, and from then on where the user
// puts it.
GlimmetToggle {
    id: root

    required property PanelHost host

    property bool launches: false

    label: "Launch on startup"
    on: launches
    onToggled: {
        launches = checked;
        host.setLaunchesAtLogin(checked);
    }
    Component.onCompleted: launches = host.launchesAtLogin()
}
