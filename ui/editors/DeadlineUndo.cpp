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
    for (const Deadline &deadline : ticker()->deadlines()) {
        keys.append(keyOf(deadline));
        m_known.insert(keys.last(), deadline);
    }
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
    const QList<Deadline> inList = ticker()->deadlines();
    QList<Deadline> written;
    qsizetype next = 0;
    for (const ShownEntry &entry : entries) {
        if (entry.removal == ShownEntry::inList)
            written.append(inList.at(next++));
        else if (entry.removal == returning)
            written.append(m_known.value(entry.key));
    }
    // What was added meanwhile has its place by its date, and so has what comes back.
    ticker()->setDeadlines(m_goesByDate ? deadlinesByDate(written) : written);
}

QString DeadlineUndo::nameOf(const QString &key) const
{
    return Wording::oneLine(m_known.value(key).title);
}

QList<Deadline> DeadlineUndo::shownDeadlines() const
{
    const QList<Deadline> inList = ticker()->deadlines();
    QList<Deadline> deadlines;
    qsizetype next = 0;
    for (const ShownEntry &entry : entries()) {
        if (entry.removal == ShownEntry::inList)
            deadlines.append(inList.at(next++));
        else if (isShown(entry))
            deadlines.append(m_known.value(entry.key));
    }
    return deadlines;
}

} // namespace glimmet
