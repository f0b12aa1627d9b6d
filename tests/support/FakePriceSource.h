#pragma once

#include "prices/PriceSource.h"

#include <QHash>
#include <QStringList>

#include <vector>

namespace glimmet {

/// A source of prices that answers when the test says so: later, never, or at once.
class FakePriceSource final : public PriceSource {
public:
    void fetchPrice(const QString &symbol, Completion completion) override;

    /// The symbols asked for, in order.
    QStringList asked() const;
    /// Answers the request with this number (from 0).
    void answer(std::size_t request, const PriceResult &result);
    /// From now on requests for the price's symbol are answered within the call.
    void answerAtOnce(const CryptoPrice &price) { m_prices.insert(price.id, price); }

private:
    struct Request {
        QString symbol;
        Completion completion;
    };

    std::vector<Request> m_requests;
    QHash<QString, CryptoPrice> m_prices;
};

} // namespace glimmet
