import QtQuick
import QtQuick.Templates as T
import Glimmet

// Where a field's menu comes up. There is no menu before it is asked for.
Loader {
    id: place

    required property T.TextField field

    readonly property FieldMenu menu: item as FieldMenu
    readonly property bool isOpen: menu !== null && menu.visible

    function open(x: real, y: real) {
        if (menu === null)
            setSource("FieldMenu.qml", {
                field: field
            });
        menu.x = x;
        menu.y = y;
        menu.current = -1;
        menu.open();
    }
}
