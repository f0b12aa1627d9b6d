#include "ui/editors/DeadlineForm.h"

#include "platform/Text.h"

namespace glimmet {

void DeadlineForm::setTicker(TickerViewModel *ticker)
{
    m_ticker = ticker;
    m_date.setTicker(ticker);
    emit tickerChanged();
}

void DeadlineForm::setTitle(const QString &title)
{
    if (title == m_title)
        return;
    m_title = title;
    emit titleChanged();
}

bool DeadlineForm::canAdd() const
{
    return !trimmedBlanks(m_title).isEmpty();
}

void DeadlineForm::add()
{
    if (!canAdd())
        return;
    m_ticker->addDeadline(m_title, m_date.settledMoment());
    setTitle({});
    m_date.reset();
}

void DeadlineForm::begin(const QString &id)
{
    m_id = QUuid(id);
    for (const Deadline &deadline : m_ticker->deadlines()) {
        if (deadline.id != m_id)
            continue;
        setTitle(deadline.title);
        m_date.begin(deadline.date);
        // The first of that identity, as it is the one that is replaced.
        return;
    }
}

void DeadlineForm::save()
{
    m_ticker->replaceDeadline(m_id, m_title, m_date.settledMoment());
}

} // namespace glimmet
