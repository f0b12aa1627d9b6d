#pragma once

#include <QByteArray>
#include <QString>

namespace glimmet {

/// Replaces the content of a file as a whole or not at all: whatever happens on the way (a kill, a full disk,
/// a folder without leave to write), the old content stays until the new one is on the disk. A symbolic link
/// stays one and its target is replaced; a file keeps its mode, a new one is the user's alone. False where it
/// was not replaced.
bool replaceFile(const QString &path, const QByteArray &content);

/// Removes what killed calls of replaceFile left beside the file. No other program may be replacing it
/// meanwhile.
void removeReplacementLeftovers(const QString &path);

/// Moves whatever is at `path` to a name beside it that is free. False where it could not be moved.
bool setAside(const QString &path);

} // namespace glimmet
