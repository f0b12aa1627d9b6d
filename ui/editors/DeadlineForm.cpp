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

} // namespace glimmet
