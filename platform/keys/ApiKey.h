#pragma once

#include "platform/Secret.h"

namespace glimmet {

/// A credential. It compares and copies like any value, but nothing prints it, and the last copy that goes
/// overwrites it.
class ApiKey {
public:
    ApiKey() = default;
    explicit ApiKey(QString key)
        : m_key(std::move(key))
    {
    }

    /// For what must have the characters themselves: the header that carries them, the mask that hides them.
    const QString &characters() const { return *m_key; }
    bool isBlank() const;

    friend bool operator==(const ApiKey &, const ApiKey &) = default;
    friend QDebug operator<<(QDebug, const ApiKey &) = delete;

private:
    SecretText m_key;
};

} // namespace glimmet
