#include "platform/desktop/AutostartLoginItem.h"

#include "platform/ConfigFolder.h"
#include "platform/FileReplacement.h"
#include "platform/ProgramName.h"
#include "platform/desktop/AutostartEntry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>
#include <cstring>

namespace glimmet {
namespace {

// No entry that a person or a desktop writes comes near it.
constexpr qint64 largestEntry = 65'536;

bool isExecutable(const QString &program)
{
    if (!program.contains(u'/'))
        return !QStandardPaths::findExecutable(program).isEmpty();
    const QFileInfo file(program);
    return file.isAbsolute() && file.isFile() && file.isExecutable();
}

std::optional<QString> failure(const QString &what, const QString &path)
{
    return what + u' ' + path + QStringLiteral(": ") + QString::fromLocal8Bit(std::strerror(errno));
}

} // namespace

AutostartLoginItem::AutostartLoginItem(const QString &folder, QString executable)
    : m_path(folder + u'/' + programName + QStringLiteral(".desktop"))
    , m_executable(std::move(executable))
{
}

QString AutostartLoginItem::defaultFolder()
{
    return configFolder() + QStringLiteral("/autostart");
}

LoginItemStatus AutostartLoginItem::status() const
{
    const QFileInfo info(m_path);
    if (!info.exists() && !info.isSymLink())
        return LoginItemStatus::NotRegistered;
    QFile file(m_path);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        return LoginItemStatus::NotFound;
    return statusOfAutostartEntry(file.read(largestEntry), isExecutable);
}

void AutostartLoginItem::registerItem(const Completion &completion)
{
    // Else a folder that cannot be made is reported as a file that is not there.
    const QString folder = QFileInfo(m_path).path();
    errno = 0;
    if (!QDir().mkpath(folder))
        return completion(failure(QStringLiteral("cannot make"), folder));
    // What a link leads to is no entry of ours: one of the menu, or a file of the system's.
    if (QFileInfo(m_path).isSymLink())
        QFile::remove(m_path);
    if (!replaceFile(m_path, autostartEntry(m_executable)))
        return completion(failure(QStringLiteral("cannot write"), m_path));
    completion(std::nullopt);
}

void AutostartLoginItem::unregisterItem(const Completion &completion)
{
    QFile file(m_path);
    errno = 0;
    if (!file.remove() && status() != LoginItemStatus::NotRegistered)
        return completion(failure(QStringLiteral("cannot remove"), m_path));
    completion(std::nullopt);
}

} // namespace glimmet
