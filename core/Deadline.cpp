#include "core/Deadline.h"

#include "platform/CheckedInteger.h"
#include "platform/StoredJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cctype>
#include <cmath>

namespace glimmet {
namespace {

constexpr qint64 minute = 60;
constexpr qint64 hour = 60 * minute;
constexpr qint64 day = 24 * hour;

/// QUuid also takes braces and forms without hyphens; a stored identity has neither.
bool isCanonicalUuid(const QString &text)
{
    constexpr int length = 36;
    if (text.size() != length)
        return false;
    for (int i = 0; i < length; ++i) {
        const bool isHyphen = i == 8 || i == 13 || i == 18 || i == 23;
        const char16_t unit = text.at(i).unicode();
        const bool isHex = unit < 128 && std::isxdigit(static_cast<unsigned char>(unit)) != 0;
        if (isHyphen ? unit != u'-' : !isHex)
            return false;
    }
    return true;
}

QJsonObject toJson(const Deadline &deadline)
{
    return {
        { QStringLiteral("id"), deadline.id.toString(QUuid::WithoutBraces).toUpper() },
        { QStringLiteral("title"), deadline.title },
        { QStringLiteral("date"), deadline.date.secondsSince2001 },
    };
}

std::optional<Deadline> fromJson(const QJsonValue &value)
{
    const QJsonObject object = value.toObject();
    const QJsonValue id = object.value(u"id");
    const QJsonValue title = object.value(u"title");
    const QJsonValue date = object.value(u"date");
    if (!isCanonicalUuid(id.toString()) || !title.isString() || !date.isDouble())
        return std::nullopt;
    return Deadline{ QUuid(id.toString()), title.toString(), Instant{ date.toDouble() } };
}

} // namespace

QString Deadline::formatInterval(double seconds)
{
    const qint64 whole = checkedTruncation(seconds);
    const QString days = QString::number(whole / day);
    const QString hours = QString::number(whole % day / hour);
    const QString minutes = QString::number(whole % hour / minute);
    if (whole >= day)
        return days + QStringLiteral("d ") + hours + u'h';
    if (whole >= hour)
        return hours + QStringLiteral("h ") + minutes + u'm';
    return minutes + u'm';
}

std::optional<QByteArray> deadlinesToJson(const QList<Deadline> &deadlines)
{
    QJsonArray array;
    for (const Deadline &deadline : deadlines) {
        if (!std::isfinite(deadline.date.secondsSince2001))
            return std::nullopt;
        array.append(toJson(deadline));
    }
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::optional<QList<Deadline>> deadlinesFromJson(const QByteArray &json)
{
    const QJsonDocument document = documentOf(json);
    if (!document.isArray())
        return std::nullopt;
    QList<Deadline> deadlines;
    for (const QJsonValue value : document.array()) {
        const auto deadline = fromJson(value);
        if (!deadline)
            return std::nullopt;
        deadlines.append(*deadline);
    }
    return deadlines;
}

QList<Deadline> deadlinesByDate(QList<Deadline> deadlines)
{
    std::stable_sort(deadlines.begin(), deadlines.end(),
        [](const Deadline &a, const Deadline &b) { return a.date < b.date; });
    return deadlines;
}

} // namespace glimmet
