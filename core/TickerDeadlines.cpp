#include "core/PreferencesKeys.h"
#include "core/TickerViewModel.h"
#include "platform/CheckedInteger.h"
#include "platform/Clock.h"
#include "platform/PreferencesStore.h"
#include "platform/Text.h"

/// The deadlines of the TickerViewModel and their rotation.
namespace glimmet {
namespace {

constexpr qint64 deadlineRotateInterval = 8; // ticks

} // namespace

QList<Deadline> TickerViewModel::upcomingDeadlines() const
{
    QList<Deadline> upcoming;
    for (const Deadline &deadline : m_deadlines) {
        if (deadline.date > m_world.clock.now())
            upcoming.append(deadline);
    }
    return deadlinesByDate(std::move(upcoming));
}

QString TickerViewModel::deadlineDisplay() const
{
    const QList<Deadline> upcoming = upcomingDeadlines();
    if (upcoming.isEmpty())
        return QStringLiteral("no deadlines");
    const Deadline &deadline = upcoming.at(wrapped(m_currentDeadlineIndex, upcoming.size()));
    const double secondsLeft = deadline.date.secondsSince2001 - m_world.clock.now().secondsSince2001;
    // The deadline may have fallen due since it was found to be upcoming.
    const QString left = secondsLeft > 0 ? Deadline::formatInterval(secondsLeft) : QStringLiteral("passed");
    return deadline.title + QStringLiteral(": ") + left;
}

void TickerViewModel::handleDeadlineRotation()
{
    if (m_mode != TickerMode::Deadline)
        return;
    m_deadlineRotateCount = checkedSum(m_deadlineRotateCount, 1);
    if (m_deadlineRotateCount < deadlineRotateInterval)
        return;
    m_deadlineRotateCount = 0;
    const qsizetype count = upcomingDeadlines().size();
    if (count < 2)
        return;
    m_currentDeadlineIndex = wrapped(checkedSum(m_currentDeadlineIndex, 1), count);
}

void TickerViewModel::setDeadlines(const QList<Deadline> &deadlines)
{
    publish(m_deadlines, deadlines, &TickerViewModel::deadlinesChanged);
    saveDeadlines();
}

void TickerViewModel::addDeadline(const Deadline &deadline)
{
    setDeadlines(m_deadlines + QList<Deadline>{ deadline });
    setDeadlines(deadlinesByDate(m_deadlines));
}

void TickerViewModel::addDeadline(const QString &title, Instant date)
{
    const QString trimmed = trimmedBlanks(title);
    if (trimmed.isEmpty())
        return;
    addDeadline(Deadline{ QUuid::createUuid(), trimmed, date });
}

void TickerViewModel::removeDeadline(const QUuid &id)
{
    QList<Deadline> remaining = m_deadlines;
    remaining.removeIf([&id](const Deadline &deadline) { return deadline.id == id; });
    setDeadlines(remaining);
}

void TickerViewModel::removeDeadline(const QString &id)
{
    removeDeadline(QUuid(id));
}

void TickerViewModel::clearDeadlines()
{
    setDeadlines({});
}

void TickerViewModel::loadDeadlines()
{
    const auto stored = m_world.preferences.data(PreferencesKeys::deadlines);
    if (!stored)
        return;
    if (const auto deadlines = deadlinesFromJson(*stored))
        setDeadlines(*deadlines);
}

void TickerViewModel::saveDeadlines()
{
    if (const auto json = deadlinesToJson(m_deadlines))
        m_world.preferences.setData(PreferencesKeys::deadlines, *json);
}

} // namespace glimmet
