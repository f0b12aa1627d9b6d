#include "platform/FolderLock.h"

#include <QFile>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace glimmet {
namespace {

// Short pauses: a program that writes without end frees the lock for moments only.
constexpr std::chrono::milliseconds pause{ 1 };

bool lockWithin(std::chrono::milliseconds patience, int descriptor)
{
    for (auto waited = std::chrono::milliseconds::zero(); waited <= patience; waited += pause) {
        if (flock(descriptor, LOCK_EX | LOCK_NB) == 0)
            return true;
        // A file system without locks still has the atomic replacement of the file.
        if (errno != EWOULDBLOCK && errno != EINTR)
            return true;
        QThread::msleep(pause.count());
    }
    return false;
}

} // namespace

FolderLock::FolderLock(const QString &folder, std::chrono::milliseconds patience)
    : m_descriptor(open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    , m_held(m_descriptor >= 0 && lockWithin(patience, m_descriptor))
{
}

FolderLock::~FolderLock()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

} // namespace glimmet
