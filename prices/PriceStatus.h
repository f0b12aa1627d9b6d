#pragma once

#include "platform/Instant.h"
#include "prices/PriceResult.h"

#include <algorithm>
#include <optional>

namespace glimmet {

/// How asking for one symbol's price goes, beside the price itself, which a failure leaves as it is.
class PriceStatus {
public:
    /// So many failures in a row are a trouble that is told; a single one mostly mends itself.
    static constexpr int toldFrom = 2;

    void noteFailure(PriceFailure reason)
    {
        m_failures = std::min(m_failures + 1, toldFrom);
        m_reason = reason;
    }
    void notePrice(Instant now)
    {
        m_failures = 0;
        m_reason = {};
        m_cameAt = now;
    }

    /// Why there was no price, where there was none the last two times.
    std::optional<PriceFailure> trouble() const
    {
        return m_failures < toldFrom ? std::nullopt : std::optional(m_reason);
    }
    /// When the last price came.
    std::optional<Instant> cameAt() const { return m_cameAt; }

    friend bool operator==(const PriceStatus &, const PriceStatus &) = default;

private:
    int m_failures = 0; ///< since the last price; no more than are told
    PriceFailure m_reason{}; ///< of the last one
    std::optional<Instant> m_cameAt;
};

} // namespace glimmet
