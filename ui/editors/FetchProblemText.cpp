#include "ui/editors/FetchProblemText.h"

#include "platform/DateTimeText.h"
#include "platform/Publish.h"
#include "ui/panel/Wording.h"

namespace glimmet {

void FetchProblemText::setTicker(TickerViewModel *ticker)
{
    if (m_ticker == ticker)
        return;
    if (m_ticker)
        m_ticker->disconnect(this);
    m_ticker = ticker;
    if (m_ticker) {
        connect(m_ticker, &TickerViewModel::fetchProblemsChanged, this, &FetchProblemText::follow);
        connect(m_ticker, &TickerViewModel::ticked, this, &FetchProblemText::followDay);
    }
    emit tickerChanged();
    follow();
}

void FetchProblemText::setProvider(int provider)
{
    if (provider == this->provider())
        return;
    m_provider = static_cast<RevenueProvider>(provider);
    emit providerChanged();
    follow();
}

QString FetchProblemText::wording() const
{
    if (!m_ticker)
        return {};
    const FetchProblems problems = m_ticker->fetchProblems();
    const auto problem = problems.constFind(m_provider);
    if (problem == problems.cend())
        return {};
    return Wording::problem(
        problem->text, recentTimeText(problem->when, m_ticker->now(), m_ticker->region()));
}

void FetchProblemText::follow()
{
    if (m_ticker)
        m_day = UsersDay::of(*m_ticker);
    publish(*this, m_text, wording(), &FetchProblemText::textChanged);
}

void FetchProblemText::followDay()
{
    if (!m_text.isEmpty() && m_day != UsersDay::of(*m_ticker))
        follow();
}

} // namespace glimmet
