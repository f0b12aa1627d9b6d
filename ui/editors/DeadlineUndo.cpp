#include "ui/editors/DeadlineUndo.h"

#include "ui/panel/Wording.h"

#include <utility>

namespace glimmet {

namespace {

bool goesByDate(const QList<Deadline> &deadlines)
{
    return deadlinesByDate(deadlines) == deadlines;
}

} // namespace

QString DeadlineUndo::keyOf(const Deadline &deadline)
{
    return deadline.id.toString(QUuid::WithoutBraces);
}

void DeadlineUndo::watch(TickerViewModel &ticker)
{
    connect(&ticker, &TickerViewModel::deadlinesChanged, this, &DeadlineUndo::follow);
}

QStringList DeadlineUndo::readList()
{
    QStringList keys;
    QHash<QString, QList<Deadline>> found;
    for (const Deadline &deadline : ticker()->deadlines()) {
        keys.append(keyOf(deadline));
        found[keys.last()].append(deadline);
    }
    m_known.insert(found);
    return keys;
}

void DeadlineUndo::removeFromList(const QString &key)
{
    m_goesByDate = goesByDate(ticker()->deadlines());
    ticker()->removeDeadline(key);
}

void DeadlineUndo::clearList()
{
    m_goesByDate = goesByDate(ticker()->deadlines());
    ticker()->clearDeadlines();
}

void DeadlineUndo::writeList(const QList<ShownEntry> &entries, int returning)
{
    const QList<Deadline> written = deadlinesOf(entries, [returning](const ShownEntry &entry) {
        return entry.removal == ShownEntry::inList || entry.removal == returning;
    });
    // What was added meanwhile has its place by its date, and so has what comes back.
    ticker()->setDeadlines(m_goesByDate ? deadlinesByDate(written) : written);
}

QString DeadlineUndo::nameOf(const QString &key) const
{
    return Wording::oneLine(m_known.value(key).value(0).title);
}

QList<Deadline> DeadlineUndo::shownDeadlines() const
{
    return deadlinesOf(entries(), [this](const ShownEntry &entry) { return isShown(entry); });
}

QList<Deadline> DeadlineUndo::deadlinesOf(
    const QList<ShownEntry> &entries, const std::function<bool(const ShownEntry &)> &isWanted) const
{
    QList<Deadline> deadlines;
    QHash<QString, qsizetype> seen;
    for (const ShownEntry &entry : entries) {
        const Deadline deadline = m_known.value(entry.key).value(seen[entry.key]++);
        if (isWanted(entry))
            deadlines.append(deadline);
    }
    return deadlines;
}

} // namespace glimmet
