#pragma once

#include <QtGlobal>

#include <variant>

namespace glimmet {

class JsonValue;

/// A number as a service wrote it: integers stay exact, and a float becomes one only when it is counted,
/// since one that does not fit ends the process and an order that does not count must not.
class Amount {
public:
    Amount() = default;
    /// What `value` holds; 0 where that is no number. An integer beyond 64 bits with a sign is a float.
    explicit Amount(const JsonValue &value);

    /// The number without its fraction. A float that 64 bits cannot hold ends the process.
    qint64 truncated() const;

private:
    std::variant<qint64, double> m_value = qint64(0);
};

} // namespace glimmet
