#include "core/Deadlines.h"

#include "core/PreferencesKeys.h"
#include "platform/Clock.h"
#include "platform/PreferencesStore.h"
#include "platform/Publish.h"
#include "platform/Text.h"

#include <algorithm>

namespace glimmet {
namespace {

constexpr qint64 rotateInterval = 8; // ticks

} // namespace

Deadlines::Deadlines(PreferencesStore &preferences, const Clock &clock, QObject *parent)
    : QObject(parent)
    , m_preferences(preferences)
    , m_clock(clock)
{
}

void Deadlines::load()
{
    const auto stored = m_preferences.data(PreferencesKeys::deadlines);
    if (!stored)
        return;
    if (const auto deadlines = deadlinesFromJson(*stored))
        setAll(*deadlines);
}

void Deadlines::setAll(const QList<Deadline> &deadlines)
{
    m_byDate = deadlinesByDate(deadlines);
    publish(*this, m_all, deadlines, &Deadlines::changed);
    if (const auto json = deadlinesToJson(m_all))
        m_preferences.setData(PreferencesKeys::deadlines, *json);
}

qsizetype Deadlines::firstUpcoming() const
{
    const Instant now = m_clock.now();
    const auto first = std::partition_point(
        m_byDate.cbegin(), m_byDate.cend(), [now](const Deadline &deadline) { return deadline.date <= now; });
    return first - m_byDate.cbegin();
}

QList<Deadline> Deadlines::upcoming() const
{
    return m_byDate.mid(firstUpcoming());
}

void Deadlines::add(const Deadline &deadline)
{
    setAll(m_all + QList<Deadline>{ deadline });
    setAll(deadlinesByDate(m_all));
}

void Deadlines::add(const QString &title, Instant date)
{
    const QString trimmed = trimmedBlanks(title);
    if (trimmed.isEmpty())
        return;
    add(Deadline{ QUuid::createUuid(), trimmed, date });
}

void Deadlines::replace(const QUuid &id, const QString &title, Instant date)
{
    QList<Deadline> deadlines = m_all;
    const auto found = std::find_if(
        deadlines.begin(), deadlines.end(), [&id](const Deadline &deadline) { return deadline.id == id; });
    const Deadline replacement{ id, trimmedBlanks(title), date };
    if (found == deadlines.end() || replacement.title.isEmpty() || *found == replacement)
        return;
    const bool staysInPlace = found->date == date;
    *found = replacement;
    setAll(staysInPlace ? deadlines : deadlinesByDate(deadlines));
}

void Deadlines::remove(const QUuid &id)
{
    QList<Deadline> remaining = m_all;
    remaining.removeIf([&id](const Deadline &deadline) { return deadline.id == id; });
    setAll(remaining);
}

void Deadlines::clear()
{
    setAll({});
}

void Deadlines::tick()
{
    if (m_rotation.tick(rotateInterval))
        m_rotation.setIndex(m_rotation.next(m_byDate.size() - firstUpcoming()));
}

QString Deadlines::display() const
{
    const qsizetype first = firstUpcoming();
    if (first == m_byDate.size())
        return QStringLiteral("no deadlines");
    const Deadline &deadline = m_byDate.at(first + m_rotation.among(m_byDate.size() - first));
    const double secondsLeft = deadline.date.secondsSince2001 - m_clock.now().secondsSince2001;
    // The deadline may have fallen due since it was found to be upcoming.
    const QString left = secondsLeft > 0 ? Deadline::formatInterval(secondsLeft) : QStringLiteral("passed");
    return deadline.title + QStringLiteral(": ") + left;
}

} // namespace glimmet
