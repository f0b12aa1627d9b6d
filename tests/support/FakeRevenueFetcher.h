#pragma once

#include "revenue/RevenueFetcher.h"

#include <QString>

#include <vector>

namespace glimmet {

/// A fetcher of figures that answers when the test says so, or never.
class FakeRevenueFetcher final : public RevenueFetcher {
public:
    void fetch(const RevenueQuery &query, Completion completion) override;

    std::size_t count() const { return m_requests.size(); }
    const RevenueQuery &query(std::size_t request) const { return m_requests.at(request).query; }
    /// Answers the request with this number (from 0).
    void answer(std::size_t request, const QString &text);
    /// The same with the error of one that found no network.
    void failWithoutNetwork(std::size_t request);

private:
    struct Request {
        RevenueQuery query;
        Completion completion;
    };

    std::vector<Request> m_requests;
};

} // namespace glimmet
