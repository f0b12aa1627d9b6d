#include "platform/HttpExchange.h"

#include <QNetworkAccessManager>
#include <QSslCertificate>
#include <QSslConfiguration>

namespace glimmet {
namespace {

constexpr int mostRedirections = 10;
constexpr qint64 pieceSize = qint64(64) << 10;

bool isRedirection(int status)
{
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

bool haveSameOrigin(const QUrl &one, const QUrl &other)
{
    return one.scheme() == other.scheme() && one.host() == other.host() && one.port(443) == other.port(443);
}

/// Whether the answer is whole: Qt reports a bad status as an error too, and uses the same errors for a body
/// that cannot be unpacked.
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
    case QNetworkReply::UnknownContentError: // an answer that cannot be unpacked
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

QSslConfiguration trusting(const QByteArray &authorities)
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    if (!authorities.isEmpty())
        configuration.setCaCertificates(QSslCertificate::fromData(authorities, QSsl::Pem));
    return configuration;
}

} // namespace

HttpExchange::HttpExchange(
    QNetworkAccessManager &manager, const HttpSettings &settings, HttpRequest request, Finished finished)
    : QObject(&manager)
    , m_manager(manager)
    , m_settings(settings)
    , m_request(std::move(request))
    , m_finished(std::move(finished))
{
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
    request.setSslConfiguration(trusting(m_settings.authorities));
    request.setTransferTimeout(static_cast<int>(m_settings.idleTimeout.count()));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    // The own limit on bodies is exact; Qt's guards against packed ones by their ratio.
    request.setDecompressedSafetyCheckThreshold(-1);
    for (const auto &[name, value] : m_request.headers)
        request.setRawHeader(name, value);
    return request;
}

void HttpExchange::start(const QUrl &url)
{
    m_body.clear();
    m_reply = m_manager.get(prepared(url));
    m_reply->setParent(this);
    connect(m_reply, &QNetworkReply::sslErrors, this, [this] { m_isTrusted = false; });
    connect(m_reply, &QNetworkReply::readyRead, this, &HttpExchange::collect);
    connect(m_reply, &QNetworkReply::finished, this, &HttpExchange::conclude);
}

void HttpExchange::collect()
{
    // Piece by piece: a small packed answer may unpack to any size.
    for (QByteArray piece = m_reply->read(pieceSize); !piece.isEmpty(); piece = m_reply->read(pieceSize)) {
        m_body += piece;
        m_isTooLong = m_body.size() > m_settings.largestBody;
        if (m_isTooLong)
            return m_reply->abort();
    }
}

void HttpExchange::conclude()
{
    if (!m_isTooLong)
        collect();
    const std::optional<QUrl> next = redirection();
    if (!next)
        return finish(result());
    ++m_redirections;
    m_reply->deleteLater();
    start(*next);
}

HttpResult HttpExchange::result() const
{
    const QNetworkReply::NetworkError error = m_reply->error();
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (m_isTooLong)
        return TransportFailure::ConnectionLost;
    if (!m_isTrusted)
        return TransportFailure::ServerNotTrusted;
    if (isComplete(status, error))
        return HttpAnswer{ status, m_body };
    return transportFailure(error);
}

std::optional<QUrl> HttpExchange::redirection() const
{
    const HttpResult answer = result();
    const auto *redirecting = std::get_if<HttpAnswer>(&answer);
    if (redirecting == nullptr || !isRedirection(redirecting->status) || m_redirections == mostRedirections)
        return std::nullopt;
    const QByteArray location = m_reply->rawHeader("Location");
    QUrl target = m_reply->url().resolved(QUrl::fromEncoded(location, QUrl::StrictMode));
    target.setFragment({});
    if (location.isEmpty() || !isSendableAddress(target.toEncoded())
        || !haveSameOrigin(m_reply->url(), target))
        return std::nullopt;
    return target;
}

void HttpExchange::finish(const HttpResult &result)
{
    m_finished(result);
    deleteLater();
}

} // namespace glimmet
