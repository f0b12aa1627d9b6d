#include "platform/JsonPreferencesStore.h"

#include "platform/FileReplacement.h"
#include "platform/FolderLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>

#include <algorithm>

namespace glimmet {
namespace {

/// `unavailable` may hold good values, which this moment does not give (too many open files, a failing disk).
enum class FileState { absent, readable, unreadable, unavailable };

struct FileContent {
    FileState state = FileState::absent;
    QJsonObject values;
};

FileContent readFile(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists()) // Nor is there anything behind a link whose target is still to be written.
        return {};
    QFile file(path);
    // Anything but a regular file is not opened: a pipe would never end.
    if (!info.isFile())
        return { FileState::unreadable, {} };
    if (!file.open(QIODevice::ReadOnly))
        return { file.error() == QFile::ResourceError ? FileState::unavailable : FileState::unreadable, {} };
    const QByteArray content = file.readAll();
    if (file.error() != QFile::NoError)
        return { FileState::unavailable, {} };
    const QJsonDocument document = QJsonDocument::fromJson(content);
    if (!document.isObject())
        return { FileState::unreadable, {} };
    return { FileState::readable, document.object() };
}

QStringList stringsOf(const QJsonArray &array)
{
    QStringList list;
    for (const QJsonValue element : array)
        list.append(element.toString());
    return list;
}

bool holdsOnlyStrings(const QJsonArray &array)
{
    return std::all_of(
        array.begin(), array.end(), [](const QJsonValue &element) { return element.isString(); });
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
    return setValue(key, QJsonObject{ { QStringLiteral("data"), QString::fromLatin1(value.toBase64()) } });
}

QJsonValue JsonPreferencesStore::value(const QString &key) const
{
    return readFile(m_path).values.value(key);
}

bool JsonPreferencesStore::setValue(const QString &key, const QJsonValue &value)
{
    const QString folder = QFileInfo(m_path).path();
    if (!QDir().mkpath(folder))
        return false;
    const FolderLock lock(folder);
    if (!lock.isHeld())
        return false;
    FileContent content = readFile(m_path);
    // What is stored already costs no write: a start-up that assigns what it loaded leaves the disk in peace.
    if (content.state == FileState::readable && content.values.value(key) == value)
        return true;
    if (content.state == FileState::unavailable)
        return false;
    if (content.state == FileState::unreadable && !setAside(m_path))
        return false;
    content.values.insert(key, value);
    removeReplacementLeftovers(m_path);
    return replaceFile(m_path, QJsonDocument(content.values).toJson());
}

} // namespace glimmet
