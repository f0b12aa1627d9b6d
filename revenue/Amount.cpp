#include "revenue/Amount.h"

#include "platform/CheckedInteger.h"
#include "platform/net/Json.h"

namespace glimmet {

Amount::Amount(const JsonValue &value)
{
    if (const auto integer = value.integer())
        m_value = *integer;
    else if (const auto number = value.number())
        m_value = *number;
}

qint64 Amount::truncated() const
{
    const auto *real = std::get_if<double>(&m_value);
    return real ? checkedTruncation(*real) : std::get<qint64>(m_value);
}

} // namespace glimmet
