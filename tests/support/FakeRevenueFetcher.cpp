#include "tests/support/FakeRevenueFetcher.h"

namespace glimmet {

void FakeRevenueFetcher::fetch(const RevenueQuery &query, Completion completion)
{
    m_requests.push_back({ query, std::move(completion) });
}

void FakeRevenueFetcher::answer(std::size_t request, const QString &text)
{
    m_requests.at(request).completion({ text });
}

void FakeRevenueFetcher::failWithoutNetwork(std::size_t request)
{
    m_requests.at(request).completion({ QStringLiteral("⚠ the server cannot be found"), true });
}

} // namespace glimmet
