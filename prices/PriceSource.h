#pragma once

#include "prices/PriceResult.h"

#include <functional>

namespace glimmet {

/// Answers with the current price of a symbol. Main thread.
class PriceSource {
public:
    using Completion = std::function<void(const PriceResult &)>;

    virtual ~PriceSource() = default;
    /// Ends with exactly one call of `completion` on the main thread.
    virtual void fetchPrice(const QString &symbol, Completion completion) = 0;
};

} // namespace glimmet
