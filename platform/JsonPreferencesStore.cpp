#include "platform/JsonPreferencesStore.h"

#include "platform/ConfigFolder.h"
#include "platform/DiagnosticLog.h"
#include "platform/FileReplacement.h"
#include "platform/FolderLock.h"
#include "platform/PreferencesFile.h"
#include "platform/RepeatingTimer.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace glimmet {

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds patienceWithOthers = 1s;
// What runs beside the user's work does not hold it up: one look at the lock.
constexpr std::chrono::milliseconds noPatience = 0ms;
constexpr std::chrono::milliseconds betweenTries = 10s;

const QString waits = QStringLiteral("settings: not saved yet, trying again");
const QString nothingWaits = QStringLiteral("settings: nothing left to save");
const QString isLost = QStringLiteral("settings: could not be saved");

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

JsonPreferencesStore::JsonPreferencesStore(QString path, Timers &timers, DiagnosticLog &log)
    : m_path(std::move(path))
    , m_timers(timers)
    , m_log(log)
{
}

JsonPreferencesStore::~JsonPreferencesStore()
{
    if (m_waiting.empty())
        return;
    writeWaiting(patienceWithOthers, {});
    m_log.line(m_waiting.empty() ? nothingWaits : isLost);
}

QString JsonPreferencesStore::defaultPath()
{
    return configFolder() + QStringLiteral("/me.kerno.glimmet/preferences.json");
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
    const auto waiting = m_waiting.find(key);
    return waiting != m_waiting.end() ? waiting->second : readPreferencesFile(m_path).values.value(key);
}

bool JsonPreferencesStore::setValue(const QString &key, const QJsonValue &value)
{
    m_waiting.insert_or_assign(key, value);
    writeWaiting(patienceWithOthers, key);
    tryAgainWhileAnyWaits();
    return !m_waiting.contains(key);
}

void JsonPreferencesStore::writeWaiting(std::chrono::milliseconds patience, const QString &justSet)
{
    using State = PreferencesFile::State;
    const QString folder = QFileInfo(m_path).path();
    QDir().mkpath(folder);
    const FolderLock lock(folder, patience);
    const PreferencesFile file = readPreferencesFile(m_path);
    if (file.state == State::readable)
        dropWhatNeedsNoWrite(file.values, justSet);
    if (m_waiting.empty() || !lock.isHeld() || file.state == State::unavailable)
        return;
    if (file.state == State::unreadable && !setAside(m_path))
        return;
    removeReplacementLeftovers(m_path);
    writeInto(file.values);
}

void JsonPreferencesStore::dropWhatNeedsNoWrite(const QJsonObject &stored, const QString &justSet)
{
    // What is stored already costs no write: a start-up that assigns what it loaded leaves the disk in peace.
    // And where a folder comes late, the start-up assigned what stands in for the user's lists in it.
    std::erase_if(m_waiting, [&](const auto &waiting) {
        const auto &[key, value] = waiting;
        const bool givesWay = !m_knowsFile && key != justSet && stored.contains(key);
        return givesWay || stored.value(key) == value;
    });
    m_knowsFile = true;
}

void JsonPreferencesStore::writeInto(QJsonObject stored)
{
    QJsonObject all = stored;
    for (const auto &[key, value] : m_waiting)
        all.insert(key, value);
    if (replaceBy(all))
        m_waiting.clear();
    if (m_waiting.size() < 2)
        return;
    // A value for which there is room is not kept out by one for which there is none.
    std::erase_if(m_waiting, [&](const auto &waiting) {
        QJsonObject more = stored;
        more.insert(waiting.first, waiting.second);
        const bool isWritten = replaceBy(more);
        if (isWritten)
            stored = more;
        return isWritten;
    });
}

bool JsonPreferencesStore::replaceBy(const QJsonObject &values)
{
    const bool isReplaced = replaceFile(m_path, QJsonDocument(values).toJson());
    m_knowsFile |= isReplaced;
    return isReplaced;
}

void JsonPreferencesStore::tryAgainWhileAnyWaits()
{
    if (m_waiting.empty() == (m_timer == nullptr))
        return;
    m_log.line(m_waiting.empty() ? nothingWaits : waits);
    if (m_waiting.empty()) {
        m_timer.reset();
        return;
    }
    m_timer = m_timers.repeating(betweenTries, [this] {
        writeWaiting(noPatience, {});
        tryAgainWhileAnyWaits();
    });
}

} // namespace glimmet
