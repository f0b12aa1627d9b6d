#include "platform/net/HttpExchange.h"

#include "platform/net/HttpRedirection.h"

#include <QNetworkAccessManager>

namespace glimmet {
namespace {

constexpr int mostRedirections = 10;
constexpr qint64 pieceSize = qint64(64) << 10;

/// Whether an answer came to its end: Qt reports a bad status as an error too.
bool isComplete(int status, QNetworkReply::NetworkError error)
{
    if (error == QNetworkReply::NoError)
        return status > 0;
    const bool isAboutTheStatus = error == QNetworkReply::ProtocolInvalidOperationError
        || error == QNetworkReply::ProxyAuthenticationRequiredError
        || (error >= QNetworkReply::ContentAccessDenied && error <= QNetworkReply::UnknownContentError)
        || error >= QNetworkReply::InternalServerError;
    return status >= 400 && isAboutTheStatus;
}

TransportFailure transportFailure(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::TimeoutError:
    case QNetworkReply::OperationCanceledError: // what Qt makes of its own time-out
        return TransportFailure::TimedOut;
    case QNetworkReply::HostNotFoundError:
        return TransportFailure::ServerNotFound;
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::UnknownNetworkError: // the network is unreachable
        return TransportFailure::CannotConnect;
    case QNetworkReply::RemoteHostClosedError:
    case QNetworkReply::ProtocolFailure: // a stream of HTTP/2 that the server ends
        return TransportFailure::ConnectionLost;
    case QNetworkReply::SslHandshakeFailedError:
        return TransportFailure::NotSecure;
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyConnectionClosedError:
    case QNetworkReply::ProxyNotFoundError:
    case QNetworkReply::ProxyTimeoutError:
    case QNetworkReply::ProxyAuthenticationRequiredError:
    case QNetworkReply::UnknownProxyError:
        return TransportFailure::ProxyFailed;
    default:
        return TransportFailure::Failed;
    }
}

} // namespace

HttpExchange::HttpExchange(std::shared_ptr<QNetworkAccessManager> manager, const QSslConfiguration &trust,
    HttpSettings settings, Finished finished, QObject *parent)
    : QObject(parent)
    , m_manager(std::move(manager))
    , m_trust(trust)
    , m_settings(std::move(settings))
    , m_finished(std::move(finished))
{
}

void HttpExchange::send(const HttpRequest &request)
{
    m_request = request;
    if (!isSendableAddress(m_request.address))
        finish(TransportFailure::InvalidAddress);
    else if (!areSendableHeaders(m_request.headers))
        finish(TransportFailure::InvalidHeader);
    else
        start(QUrl::fromEncoded(m_request.address, QUrl::StrictMode));
}

QNetworkRequest HttpExchange::prepared(const QUrl &url) const
{
    QNetworkRequest request(url);
    request.setSslConfiguration(m_trust);
    request.setTransferTimeout(static_cast<int>(m_settings.idleTimeout.count()));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    // Asked for by name, it is not unpacked by Qt (see HttpBody).
    request.setRawHeader("Accept-Encoding", "gzip");
    for (const auto &[name, value] : m_request.headers)
        request.setRawHeader(name, value);
    return request;
}

void HttpExchange::start(const QUrl &url)
{
    m_body.reset();
    m_received = 0;
    m_reply.reset(m_manager->get(prepared(url)));
    connect(m_reply.get(), &QNetworkReply::sslErrors, this, [this] { m_isTrusted = false; });
    connect(m_reply.get(), &QNetworkReply::readyRead, this, [this] {
        if (!collect())
            finish(TransportFailure::ConnectionLost);
    });
    connect(m_reply.get(), &QNetworkReply::finished, this, &HttpExchange::conclude);
}

bool HttpExchange::collect()
{
    if (!m_body && m_reply->bytesAvailable() > 0)
        m_body.emplace(m_reply->rawHeader("Content-Encoding"), m_settings.largestBody);
    // Piece by piece: what comes in is not to be kept twice.
    while (m_reply->bytesAvailable() > 0) {
        const QByteArray piece = m_reply->read(pieceSize);
        m_received += piece.size();
        // What is packed may also unpack to nothing, for ever.
        if (piece.isEmpty() || m_received > m_settings.largestBody || !m_body->append(piece))
            return false;
    }
    return true;
}

void HttpExchange::conclude()
{
    if (!collect())
        return finish(TransportFailure::ConnectionLost);
    if (isInterim())
        return emit connectionMisread();
    const HttpResult ending = result();
    const auto *answer = std::get_if<HttpAnswer>(&ending);
    const auto next =
        answer ? redirection(m_reply->url(), answer->status, m_reply->rawHeader("Location")) : std::nullopt;
    if (!next || m_redirections == mostRedirections)
        return finish(ending);
    ++m_redirections;
    m_reply->disconnect(this);
    m_reply.release()->deleteLater(); // It is in the middle of reporting.
    start(*next);
}

HttpResult HttpExchange::result() const
{
    const QNetworkReply::NetworkError error = m_reply->error();
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (!m_isTrusted)
        return TransportFailure::ServerNotTrusted;
    if (!isComplete(status, error))
        return transportFailure(error);
    if (!hasWholeLength())
        return TransportFailure::ConnectionLost;
    if (!m_body)
        return HttpAnswer{ status, {} };
    if (!m_body->isWhole())
        return TransportFailure::ConnectionLost;
    return HttpAnswer{ status, m_body->bytes() };
}

bool HttpExchange::isInterim() const
{
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    return status >= 100 && status < 200;
}

bool HttpExchange::hasWholeLength() const
{
    // Over HTTP/2 Qt lets a body be shorter or longer than announced.
    bool isNumber = false;
    const qint64 announced = m_reply->rawHeader("Content-Length").toLongLong(&isNumber);
    // RFC 9112, 6.3: chunks take precedence.
    if (!isNumber || m_reply->hasRawHeader("Transfer-Encoding"))
        return true;
    return m_received == 0 || m_received == announced;
}

void HttpExchange::lose()
{
    finish(TransportFailure::ConnectionLost);
}

void HttpExchange::finish(const HttpResult &result)
{
    if (m_isFinished)
        return;
    m_isFinished = true;
    if (m_reply)
        m_reply->disconnect(this);
    m_finished(result);
    deleteLater();
}

} // namespace glimmet
