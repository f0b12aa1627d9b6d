#pragma once

#include <QString>

#include <chrono>

namespace glimmet {

/// Keeps other programs that take the same lock out of a folder while it lives. It is a lock on the folder
/// itself (flock(2)), so nothing is left behind, also by a kill.
class FolderLock {
public:
    /// Waits for the lock no longer than `patience`.
    explicit FolderLock(const QString &folder, std::chrono::milliseconds patience = std::chrono::seconds(1));
    ~FolderLock();
    Q_DISABLE_COPY_MOVE(FolderLock)

    /// False where another program kept the lock, or the folder cannot be opened.
    bool isHeld() const { return m_held; }

private:
    int m_descriptor = -1;
    bool m_held = false;
};

} // namespace glimmet
