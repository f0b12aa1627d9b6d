pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import org.kde.kirigami as Kirigami
import org.kde.plasma.components as PlasmaComponents
import org.kde.plasma.core as PlasmaCore
import org.kde.plasma.plasmoid
import org.kde.plasma.workspace.dbus as DBus

// glimmet's text in a panel of Plasma's, and nothing else; a click opens glimmet's own panel beside it.
PlasmoidItem {
    id: root

    readonly property string programName: "me.kerno.glimmet"
    // Held for as long as this is there, by which glimmet knows that the text is here.
    readonly property string extensionName: "me.kerno.glimmet.TopBar"
    readonly property bool isHeard: program.registered && extension.registered
    property string text: ""
    property bool isPanelOpen: false
    property string toldPlace: ""
    // The call that is answered with the next change. Plasma's import lets go of a call that nobody keeps.
    property DBus.DBusPendingReply change: null

    function call(service, path, iface, member, signature, values) {
        const message = {
            "service": service,
            "path": path,
            "iface": iface,
            "member": member,
            "signature": signature,
            "arguments": values
        };
        return DBus.SessionBus.asyncCall(message);
    }

    function callBus(member, signature, values) {
        call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", member, signature, values);
    }

    function callProgram(member, signature = "", values = []) {
        return call(programName, "/me/kerno/glimmet/TopBar", "me.kerno.glimmet.TopBar1", member, signature, values);
    }

    function claim() {
        const doNotQueue = 4;
        callBus("RequestName", "(su)", [extensionName, doNotQueue]);
    }

    // Plasma 6.3 hears no signals of the bus in QML.
    function awaitChange() {
        const reply = callProgram("AwaitChange", "(sb)", [text, isPanelOpen]);
        change = reply;
        reply.finished.connect(() => {
            if (reply === change)
                handleChange(reply);
        });
    }

    function handleChange(reply) {
        if (reply.isError) {
            again.start();
            return;
        }
        // Each is an object around its value, so that even one around false would count as true.
        [text, isPanelOpen] = reply.values.map(each => each.value ?? each);
        awaitChange();
    }

    // The edge of the item that faces the inside of the screen.
    function place(item) {
        const corner = item.mapToGlobal(0, 0);
        switch (Plasmoid.location) {
        case PlasmaCore.Types.LeftEdge:
            return Qt.rect(corner.x + item.width, corner.y + item.height / 2, 0, 0);
        case PlasmaCore.Types.RightEdge:
            return Qt.rect(corner.x, corner.y + item.height / 2, 0, 0);
        case PlasmaCore.Types.BottomEdge:
            return Qt.rect(corner.x, corner.y, item.width, 0);
        default:
            return Qt.rect(corner.x, corner.y, item.width, item.height);
        }
    }

    // Native pixels under X11; under Wayland the compositor's, with the size of all its screens together.
    function placeArguments(item) {
        const {x, y, width, height} = place(item);
        if (Qt.platform.pluginName === "wayland") {
            const screens = Application.screens;
            const right = Math.max(...screens.map(screen => screen.virtualX + screen.width));
            const bottom = Math.max(...screens.map(screen => screen.virtualY + screen.height));
            return [x, y, width, height, right, bottom].map(Math.round);
        }
        const {virtualX, virtualY, devicePixelRatio} = item.Screen;
        const scaled = [x - virtualX, y - virtualY, width, height].map(length => length * devicePixelRatio);
        return [virtualX + scaled[0], virtualY + scaled[1], scaled[2], scaled[3], 0, 0].map(Math.round);
    }

    function tellPlace(item) {
        const here = placeArguments(item);
        if (!isHeard || here.join() === toldPlace)
            return;
        toldPlace = here.join();
        callProgram("Place", "(iiiiii)", here);
    }

    function toggle(item) {
        if (isHeard)
            callProgram("Toggle", "(iiiiii)", placeArguments(item));
    }

    preferredRepresentation: fullRepresentation
    toolTipMainText: ""
    toolTipSubText: ""
    // The whole thickness of the panel can be pressed, to the screen's edge.
    Plasmoid.constraintHints: Plasmoid.CanFillArea
    // Without a text only who edits the panel sees it, by its name.
    Plasmoid.status: text !== "" ? PlasmaCore.Types.ActiveStatus : PlasmaCore.Types.HiddenStatus

    Component.onCompleted: claim()
    Component.onDestruction: callBus("ReleaseName", "(s)", [extensionName])

    onIsHeardChanged: {
        change = null;
        text = "";
        isPanelOpen = false;
        toldPlace = "";
        again.stop();
        if (isHeard)
            awaitChange();
    }

    DBus.DBusServiceWatcher {
        id: program

        watchedService: root.programName
    }

    DBus.DBusServiceWatcher {
        id: extension

        watchedService: root.extensionName
        // Another one of these was removed, or a shell replaced.
        onRegisteredChanged: {
            if (!registered)
                root.claim();
        }
    }

    // After an error: glimmet is just starting, stands still, or is of an older version.
    Timer {
        id: again

        interval: 2000
        onTriggered: root.awaitChange()
    }

    fullRepresentation: MouseArea {
        id: button

        readonly property bool isVertical: Plasmoid.formFactor === PlasmaCore.Types.Vertical
        readonly property real length: Math.min(label.implicitWidth + 2 * Kirigami.Units.smallSpacing,
                                                Kirigami.Units.gridUnit * 24)

        Layout.minimumWidth: isVertical ? 0 : length
        Layout.maximumWidth: isVertical ? Infinity : length
        Layout.minimumHeight: isVertical ? length : 0
        Layout.maximumHeight: isVertical ? length : Infinity
        acceptedButtons: Qt.LeftButton | Qt.MiddleButton
        activeFocusOnTab: true
        Accessible.role: Accessible.Button
        Accessible.name: label.text
        Accessible.onPressAction: root.toggle(button)
        Keys.onSpacePressed: root.toggle(button)
        Keys.onReturnPressed: root.toggle(button)
        Keys.onEnterPressed: root.toggle(button)
        onClicked: root.toggle(button)

        PlasmaComponents.Label {
            id: label

            anchors.centerIn: parent
            width: (button.isVertical ? button.height : button.width) - 2 * Kirigami.Units.smallSpacing
            // Along the panel, with its foot towards the screen's edge.
            rotation: !button.isVertical ? 0 : Plasmoid.location === PlasmaCore.Types.RightEdge ? -90 : 90
            text: root.text || "glimmet"
            textFormat: Text.PlainText
            // Digits of one width, so that a clock keeps what is beside it where it is.
            font.features: ({ "tnum": 1 })
            elide: Text.ElideRight
            maximumLineCount: 1
            horizontalAlignment: Text.AlignHCenter
        }

        // Under Wayland the panel's own window alone sees this, and it takes no keyboard from anybody.
        PointHandler {
            parent: button.Window.contentItem
            enabled: root.isPanelOpen
            acceptedButtons: Qt.AllButtons
            onActiveChanged: {
                if (active && !button.contains(button.mapFromItem(parent, point.position)))
                    root.callProgram("PressElsewhere");
            }
        }

        Connections {
            target: Plasmoid

            function onActivated() {
                root.toggle(button);
            }
        }

        Connections {
            target: root

            // A launch opens the panel without any press, and nothing tells that what is around the text has moved it.
            function onTextChanged() {
                Qt.callLater(root.tellPlace, button);
            }
        }
    }
}
