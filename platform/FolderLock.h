#pragma once

#include <QString>

namespace glimmet {

/// Keeps other programs that take the same lock out of a folder while it lives. It is a lock on the folder
/// itself (flock(2)), so nothing is left behind, also by a kill.
class FolderLock {
public:
    /// Waits up to a second for the lock.
    explicit FolderLock(const QString &folder);
    ~FolderLock();
    Q_DISABLE_COPY_MOVE(FolderLock)

    /// False where another program kept the lock, or the folder cannot be opened.
    bool isHeld() const { return m_held; }

private:
    int m_descriptor = -1;
    bool m_held = false;
};

} // namespace glimmet
