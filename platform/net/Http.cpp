#include "platform/net/Http.h"

#include <QUrl>

#include <algorithm>

namespace glimmet {
namespace {

constexpr qsizetype longestAddress = qsizetype(16) << 10;

bool isVisibleAscii(char character)
{
    return character > ' ' && character <= '~';
}

bool isTokenCharacter(char character)
{
    return isVisibleAscii(character) && !QByteArrayView("\"(),/:;<=>?@[\\]{}").contains(character);
}

bool isSendableHeader(const std::pair<QByteArray, QByteArray> &header)
{
    const auto &[name, value] = header;
    return !name.isEmpty() && std::all_of(name.begin(), name.end(), isTokenCharacter)
        && isSendableValue(value);
}

} // namespace

QString describe(TransportFailure failure)
{
    switch (failure) {
    case TransportFailure::InvalidAddress:
        return QStringLiteral("the address is not valid");
    case TransportFailure::InvalidHeader:
        return QStringLiteral("key cannot be sent");
    case TransportFailure::TimedOut:
    case TransportFailure::ConnectingTimedOut:
        return QStringLiteral("the request timed out");
    case TransportFailure::ServerNotFound:
        return QStringLiteral("the server cannot be found");
    case TransportFailure::CannotConnect:
        return QStringLiteral("the server cannot be reached");
    case TransportFailure::ConnectionLost:
        return QStringLiteral("the connection was lost");
    case TransportFailure::NotSecure:
        return QStringLiteral("a secure connection cannot be made");
    case TransportFailure::ServerNotTrusted:
        return QStringLiteral("the server's identity cannot be verified");
    case TransportFailure::ProxyFailed:
    case TransportFailure::ProxyNotReached:
        return QStringLiteral("the proxy cannot be used");
    case TransportFailure::Failed:
        return QStringLiteral("the request failed");
    }
    Q_UNREACHABLE();
}

bool lacksNetwork(TransportFailure failure)
{
    switch (failure) {
    case TransportFailure::ConnectingTimedOut:
    case TransportFailure::ServerNotFound:
    case TransportFailure::CannotConnect:
    case TransportFailure::ProxyNotReached:
        return true;
    case TransportFailure::InvalidAddress:
    case TransportFailure::InvalidHeader:
    case TransportFailure::TimedOut:
    case TransportFailure::ConnectionLost:
    case TransportFailure::NotSecure:
    case TransportFailure::ServerNotTrusted:
    case TransportFailure::ProxyFailed:
    case TransportFailure::Failed:
        return false;
    }
    Q_UNREACHABLE();
}

bool isSendableAddress(const QByteArray &address)
{
    if (address.size() > longestAddress || !std::all_of(address.begin(), address.end(), isVisibleAscii))
        return false;
    const QUrl url = QUrl::fromEncoded(address, QUrl::StrictMode);
    return url.isValid() && url.scheme() == u"https" && !url.host().isEmpty() && url.userInfo().isEmpty();
}

bool isSendableValue(const QByteArray &value)
{
    const auto breaksTheLine = [](char c) { return c == '\r' || c == '\n' || c == '\0'; };
    return std::none_of(value.begin(), value.end(), breaksTheLine);
}

bool areSendableHeaders(const QList<std::pair<QByteArray, QByteArray>> &headers)
{
    return std::all_of(headers.begin(), headers.end(), isSendableHeader);
}

} // namespace glimmet
