#include "platform/net/HttpRedirection.h"

#include "platform/net/Http.h"

#include <algorithm>

namespace glimmet {
namespace {

bool isRedirection(int status)
{
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

/// Whether `reference` says where to in visible ASCII characters; QUrl would mend what is wrong about it.
bool isStrictReference(const QByteArray &reference)
{
    const auto isVisible = [](char character) { return character > ' ' && character <= '~'; };
    return !reference.isEmpty() && std::all_of(reference.begin(), reference.end(), isVisible)
        && QUrl::fromEncoded(reference, QUrl::StrictMode).isValid();
}

bool haveSameOrigin(const QUrl &one, const QUrl &other)
{
    return one.scheme() == other.scheme() && one.host() == other.host() && one.port(443) == other.port(443);
}

} // namespace

std::optional<QUrl> redirection(const QUrl &asked, int status, const QByteArray &location)
{
    if (!isRedirection(status) || !isStrictReference(location))
        return std::nullopt;
    QUrl target = asked.resolved(QUrl::fromEncoded(location, QUrl::StrictMode));
    target.setFragment({});
    if (!isSendableAddress(target.toEncoded()) || !haveSameOrigin(asked, target))
        return std::nullopt;
    return target;
}

} // namespace glimmet
