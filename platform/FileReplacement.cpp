#include "platform/FileReplacement.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace glimmet {
namespace {

// A name that only this file gives, so that clearing up never takes a "preferences.json.backup" for a
// leftover.
const QString temporaryInfix = QStringLiteral(".replacing-");

constexpr mode_t permissionBits = 07777;
constexpr mode_t forTheUserAlone = S_IRUSR | S_IWUSR;

/// Where the content is once every symbolic link on the last step is followed; the end need not exist.
QString linkEnd(QString path)
{
    constexpr int linksAtMost = 40; // As many as the kernel follows; a circle ends there.
    for (int link = 0; link < linksAtMost && QFileInfo(path).isSymLink(); ++link)
        path = QFileInfo(path).symLinkTarget();
    return path;
}

bool writeAll(int descriptor, const QByteArray &content)
{
    qsizetype done = 0;
    while (done < content.size()) {
        const ssize_t written =
            write(descriptor, content.constData() + done, static_cast<size_t>(content.size() - done));
        if (written < 0 && errno != EINTR)
            return false;
        done += std::max<ssize_t>(written, 0);
    }
    return true;
}

/// Fills the new file and waits for the disk: some file systems say only then that they are full.
bool fill(int descriptor, mode_t mode, const QByteArray &content)
{
    const bool isFilled =
        fchmod(descriptor, mode) == 0 && writeAll(descriptor, content) && fsync(descriptor) == 0;
    return close(descriptor) == 0 && isFilled;
}

} // namespace

bool replaceFile(const QString &path, const QByteArray &content)
{
    const QByteArray target = QFile::encodeName(linkEnd(path));
    struct stat old{};
    const bool exists = stat(target.constData(), &old) == 0;
    // A rename would pass over the protection that the user gave the file itself.
    if (exists && access(target.constData(), W_OK) != 0)
        return false;
    QByteArray temporary = target + QFile::encodeName(temporaryInfix) + "XXXXXX";
    const int descriptor = mkostemp(temporary.data(), O_CLOEXEC);
    if (descriptor < 0)
        return false;
    const bool isFilled = fill(descriptor, exists ? old.st_mode & permissionBits : forTheUserAlone, content);
    if (isFilled && rename(temporary.constData(), target.constData()) == 0)
        return true;
    unlink(temporary.constData());
    return false;
}

void removeReplacementLeftovers(const QString &path)
{
    const QFileInfo file(linkEnd(path));
    QDir folder = file.dir();
    for (const QString &name : folder.entryList(QDir::Files | QDir::Hidden)) {
        if (name.startsWith(file.fileName() + temporaryInfix))
            folder.remove(name);
    }
}

bool setAside(const QString &path)
{
    const QString stamp = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    const QString base = path + QStringLiteral(".unreadable-") + stamp;
    QString free = base;
    // renameat2 neither opens nor copies: a pipe in the file's place could not hold it up, and nothing is
    // replaced.
    for (int number = 2; renameat2(AT_FDCWD, QFile::encodeName(path).constData(), AT_FDCWD,
                             QFile::encodeName(free).constData(), RENAME_NOREPLACE)
        != 0;
        ++number) {
        if (errno != EEXIST)
            return false;
        free = base + u'-' + QString::number(number);
    }
    return true;
}

} // namespace glimmet
