#include "ui/editors/FetchProblemText.h"

#include "platform/DateTimeText.h"
#include "platform/Publish.h"
#include "ui/panel/Wording.h"

namespace glimmet {

void FetchProblemText::watch(TickerViewModel &ticker)
{
    connect(&ticker, &TickerViewModel::fetchProblemsChanged, this, &FetchProblemText::follow);
    watchDay(ticker);
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
    if (!ticker())
        return {};
    const FetchProblems problems = ticker()->fetchProblems();
    const auto problem = problems.constFind(m_provider);
    if (problem == problems.cend())
        return {};
    return Wording::problem(
        problem->text, recentTimeText(problem->when, ticker()->now(), ticker()->region()));
}

void FetchProblemText::follow()
{
    publish(*this, m_text, wording(), &FetchProblemText::textChanged);
}

} // namespace glimmet
