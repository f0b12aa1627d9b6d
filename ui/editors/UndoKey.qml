import QtQuick
import Glimmet

// Undoes what was removed in an editor by the usual keys, where they are not a text field's, and has a screen
// reader say that this can be done.
Item {
    id: root

    required property Undo undo
    // What the news is of.
    required property Item told

    Shortcut {
        sequences: ["Ctrl+Z"]
        // Not below a sheet.
        enabled: root.enabled && root.undo.canUndo
        onActivated: root.undo.undo()
    }
    Announcement {
        item: root.told
        text: root.undo.news
        // Nobody can wait for it as long as for what changes by itself.
        rest: 300
        gap: 2000
    }
}
