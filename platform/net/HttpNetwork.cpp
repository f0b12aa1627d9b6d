#include "platform/net/HttpNetwork.h"

#include <QNetworkAccessManager>
#include <QSslCertificate>

namespace glimmet {

HttpNetwork::HttpNetwork(HttpSettings settings)
    : m_settings(std::move(settings))
{
}

void HttpNetwork::send(const HttpRequest &request, const HttpExchange::Finished &finished)
{
    if (!m_manager)
        open();
    const auto conclude = [this, used = m_manager.get(), finished](const HttpResult &result) {
        // Silence may also mean a connection that is dead since the network changed or the machine slept: Qt
        // would go on using it for a quarter of an hour. What is still out ends over the old connections.
        if (result == HttpResult(TransportFailure::TimedOut) && m_manager.get() == used)
            m_manager.reset();
        finished(result);
    };
    auto *exchange = new HttpExchange(m_manager, m_trust, m_settings, conclude, this); // Deletes itself.
    connect(exchange, &HttpExchange::connectionMisread, this, [this, used = m_manager.get()] { lose(used); });
    exchange->send(request);
}

void HttpNetwork::lose(const QNetworkAccessManager *manager)
{
    // Which of the others shares the connection, Qt does not say.
    if (m_manager.get() == manager)
        m_manager.reset();
    for (HttpExchange *exchange : findChildren<HttpExchange *>())
        if (exchange->isUsing(manager))
            exchange->lose();
}

void HttpNetwork::open()
{
    m_manager = std::make_shared<QNetworkAccessManager>();
    m_trust = QSslConfiguration::defaultConfiguration();
    if (!m_settings.authorities.isEmpty())
        m_trust.setCaCertificates(QSslCertificate::fromData(m_settings.authorities, QSsl::Pem));
}

} // namespace glimmet
