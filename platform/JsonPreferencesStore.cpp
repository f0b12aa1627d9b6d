#include "platform/JsonPreferencesStore.h"

#include "platform/FolderLock.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>
#include <QStandardPaths>

namespace glimmet {
namespace {

enum class FileState { absent, readable, unreadable };

struct FileContent {
    FileState state = FileState::absent;
    QJsonObject values;
};

FileContent readFile(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists() && !info.isSymLink())
        return {};
    QFile file(path);
    // Anything but a regular file is not opened: a pipe would never end.
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        return {FileState::unreadable, {}};
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    if (!document.isObject())
        return {FileState::unreadable, {}};
    return {FileState::readable, document.object()};
}

/// Moves the file to a name that is free, so that a later look can still rescue what the user had in it.
bool setAside(const QString &path)
{
    const QString stamp = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    const QString base = path + QStringLiteral(".unreadable-") + stamp;
    QString target = base;
    for (int number = 2; QFileInfo::exists(target); ++number)
        target = base + u'-' + QString::number(number);
    return QFile::rename(path, target);
}

/// Removes what a killed writer left behind. Every writer holds the folder's lock, so no other can be at work.
void removeLeftovers(const QFileInfo &file)
{
    QDir folder = file.dir();
    for (const QString &name : folder.entryList({file.fileName() + QStringLiteral(".??????")}, QDir::Files))
        folder.remove(name);
}

/// QSaveFile's buffered writes report success on a full disk and then replace the file by an empty one; unbuffered
/// ones report the failure.
bool replaceFile(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    const bool isNew = !QFileInfo::exists(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    if (isNew)
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

QStringList stringsOf(const QJsonArray &array)
{
    QStringList list;
    for (const QJsonValue &element : array)
        list.append(element.toString());
    return list;
}

bool holdsOnlyStrings(const QJsonArray &array)
{
    return std::all_of(array.begin(), array.end(), [](const QJsonValue &element) { return element.isString(); });
}

} // namespace

JsonPreferencesStore::JsonPreferencesStore(QString path)
    : m_path(std::move(path))
{
}

QString JsonPreferencesStore::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/me.kerno.glimmet/preferences.json");
}

std::optional<QStringList> JsonPreferencesStore::stringList(const QString &key) const
{
    const QJsonValue stored = value(key);
    if (!stored.isArray() || !holdsOnlyStrings(stored.toArray()))
        return std::nullopt;
    return stringsOf(stored.toArray());
}

std::optional<QByteArray> JsonPreferencesStore::data(const QString &key) const
{
    const QJsonObject stored = value(key).toObject();
    const QJsonValue text = stored.value(u"data");
    if (stored.size() != 1 || !text.isString())
        return std::nullopt;
    const auto decoded = QByteArray::fromBase64Encoding(
        text.toString().toUtf8(), QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return std::nullopt;
    return *decoded;
}

bool JsonPreferencesStore::setStringList(const QString &key, const QStringList &value)
{
    return setValue(key, QJsonArray::fromStringList(value));
}

bool JsonPreferencesStore::setData(const QString &key, const QByteArray &value)
{
    return setValue(key, QJsonObject {{QStringLiteral("data"), QString::fromLatin1(value.toBase64())}});
}

QJsonValue JsonPreferencesStore::value(const QString &key) const
{
    return readFile(m_path).values.value(key);
}

bool JsonPreferencesStore::setValue(const QString &key, const QJsonValue &value)
{
    const QFileInfo file(m_path);
    if (!QDir().mkpath(file.path()))
        return false;
    const FolderLock lock(file.path());
    if (!lock.isHeld())
        return false;
    FileContent content = readFile(m_path);
    // What is stored already costs no write: a start-up that assigns what it loaded leaves the disk in peace.
    if (content.state == FileState::readable && content.values.value(key) == value)
        return true;
    if (content.state == FileState::unreadable && !setAside(m_path))
        return false;
    content.values.insert(key, value);
    removeLeftovers(file);
    return replaceFile(m_path, QJsonDocument(content.values).toJson());
}

} // namespace glimmet
