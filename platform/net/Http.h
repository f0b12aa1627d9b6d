#pragma once

#include "platform/Secret.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <utility>
#include <variant>

namespace glimmet {

/// The longest body of an answer that is one figure, and of one that is a page of a list, in bytes, unpacked.
/// They bound what reading it takes: simdjson's buffers are up to some eighteen times as long.
inline constexpr qint64 longestFigure = qint64(4) << 20;
inline constexpr qint64 longestPage = qint64(16) << 20;

/// What to ask a server for: always a GET, always over https.
struct HttpRequest {
    QByteArray address; ///< absolute, percent-encoded
    QList<std::pair<QByteArray, QByteArray>> headers = {}; ///< names and values as they are sent
    qint64 largestBody = longestFigure; ///< bytes, unpacked; a longer one is lost
    SecretBytes authorization = {}; ///< one more header's value; empty: there is no such header
};

/// A complete answer, whatever its status says.
struct HttpAnswer {
    int status = 0;
    QByteArray body; ///< unpacked

    friend bool operator==(const HttpAnswer &, const HttpAnswer &) = default;
};

/// Why there is no complete answer.
enum class TransportFailure {
    InvalidAddress, ///< nothing was sent
    InvalidHeader, ///< nothing was sent
    TimedOut,
    ConnectingTimedOut, ///< before there was a connection to the server
    ServerNotFound,
    CannotConnect,
    ConnectionLost, ///< also a body that is too long
    NotSecure, ///< no common way to encrypt
    ServerNotTrusted,
    ProxyFailed,
    ProxyNotReached, ///< not found, or no connection to it
    Failed,
};

using HttpResult = std::variant<HttpAnswer, TransportFailure>;

/// The failure in the user's words: short, without addresses, such as "the request timed out".
QString describe(TransportFailure failure);

/// Whether the request came to nobody, as where there is no network, or none yet.
bool lacksNetwork(TransportFailure failure);

/// Whether `address` may go out as it is: https with a host, no user name, valid by RFC 3986 read strictly,
/// of visible ASCII characters only, and no longer than 16 kB.
bool isSendableAddress(const QByteArray &address);
/// Whether `value` may be a header's: no line break and no NUL is in it.
bool isSendableValue(const QByteArray &value);
/// Whether every header is one line: a token as its name and such a value.
bool areSendableHeaders(const QList<std::pair<QByteArray, QByteArray>> &headers);

} // namespace glimmet
