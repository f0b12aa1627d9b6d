#pragma once

#include "app/ItemFace.h"

#include <QByteArray>
#include <QByteArrayList>

namespace glimmet {

/// Who shows items here, as far as it can be told.
struct ItemWatcher {
    QByteArray program; ///< the file name of the program that owns the watcher's name; empty where not known
    bool isShell = false; ///< GNOME's, with the AppIndicator extension
};

struct ItemManner {
    ItemFace::Manner face;
    bool isTextShown = true; ///< in one way or another, even as a tooltip
};

/// How items are shown by that watcher's panel. `desktops`: the names of the desktop in capitals.
ItemManner mannerOf(const ItemWatcher &watcher, const QByteArrayList &desktops);

} // namespace glimmet
