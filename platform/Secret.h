#pragma once

#include <QByteArray>
#include <QDebug>
#include <QString>

#include <memory>
#include <utility>

#include <string.h>

namespace glimmet {

/// Overwrites the characters of `text`, in a way that the compiler does not leave out, and empties it. What
/// others share of it stays as it is: the last of them is to do the same.
template <typename Text> void wipe(Text &text)
{
    if (text.isDetached())
        explicit_bzero(text.data(), static_cast<size_t>(text.size()) * sizeof(*text.data()));
    text.clear();
}

/// A text that is overwritten before its memory is given back. Copies share it, on any thread, and the last
/// one overwrites it. It compares like any value, but nothing prints it. Who keeps a copy of the text itself
/// (`*secret`, implicitly shared) for longer than the secret keeps it from being overwritten.
template <typename Text> class Secret {
public:
    Secret() = default;
    /// Takes `text` over, or a copy of its own where others share it: they are not to be written into.
    explicit Secret(Text text)
        : m_held(std::make_shared<const Held>(std::move(text)))
    {
    }

    const Text &operator*() const
    {
        static const Text none;
        return m_held ? m_held->text : none;
    }
    const Text *operator->() const { return &**this; }

    friend bool operator==(const Secret &one, const Secret &other) { return *one == *other; }
    friend QDebug operator<<(QDebug, const Secret &) = delete;

private:
    struct Held {
        explicit Held(Text taken)
            : text(std::move(taken))
        {
            text.detach();
        }
        ~Held() { wipe(text); }
        Q_DISABLE_COPY_MOVE(Held)

        Text text;
    };

    std::shared_ptr<const Held> m_held; ///< none: an empty text
};

using SecretBytes = Secret<QByteArray>;
using SecretText = Secret<QString>;

} // namespace glimmet
