#pragma once

#include "prices/CryptoPrice.h"

#include <functional>
#include <variant>

namespace glimmet {

/// Why there is no price.
enum class PriceFailure {
    NoNetwork, ///< nothing was asked
    NoPrice, ///< an answer without one, or none
};

using PriceResult = std::variant<CryptoPrice, PriceFailure>;

/// Answers with the current price of a symbol. Main thread.
class PriceSource {
public:
    using Completion = std::function<void(const PriceResult &)>;

    virtual ~PriceSource() = default;
    /// Ends with exactly one call of `completion` on the main thread.
    virtual void fetchPrice(const QString &symbol, Completion completion) = 0;
};

} // namespace glimmet
