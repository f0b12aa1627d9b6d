#pragma once

#include "prices/CryptoPrice.h"

#include <functional>
#include <optional>

namespace glimmet {

/// Answers with the current price of a symbol. Main thread.
class PriceSource {
public:
    using Completion = std::function<void(std::optional<CryptoPrice>)>;

    virtual ~PriceSource() = default;
    /// Ends with exactly one call of `completion` on the main thread; nothing on every kind of failure.
    virtual void fetchPrice(const QString &symbol, Completion completion) = 0;
};

} // namespace glimmet
