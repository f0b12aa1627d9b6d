#pragma once

#include <QString>
#include <QTemporaryDir>

namespace glimmet {

/// Moves the process into a mount namespace of its own, in which it may mount: as root directly, else as the
/// root of a new user namespace. Where the machine allows neither, what needs mounts fails and says so.
void enterPrivateMounts();

/// A file system in memory that holds `bytes` and no more, mounted while it lives.
class TinyDisk {
public:
    explicit TinyDisk(int bytes);
    ~TinyDisk();
    Q_DISABLE_COPY_MOVE(TinyDisk)

    /// False with the reason on standard error where mounting is not allowed.
    bool isMounted() const { return m_isMounted; }
    QString path() const { return m_folder.path(); }
    /// Leaves not a single byte free.
    void fillUp() const;
    void removeFill() const;
    void makeReadOnly() const;

private:
    QString fillPath() const { return path() + QStringLiteral("/fill"); }

    QTemporaryDir m_folder;
    bool m_isMounted = false;
};

} // namespace glimmet
