#pragma once

#include "prices/CryptoPrice.h"

#include <variant>

namespace glimmet {

/// Why there is no price.
enum class PriceFailure {
    NoNetwork, ///< nobody was reached
    NoAnswer, ///< somebody was reached, but no whole answer came
    NotFound, ///< the service knows no such symbol
    Unreadable, ///< an answer that holds no price
};

using PriceResult = std::variant<CryptoPrice, PriceFailure>;

} // namespace glimmet
