#include "platform/HttpNetwork.h"

#include <QNetworkAccessManager>

namespace glimmet {

HttpNetwork::HttpNetwork(HttpSettings settings)
    : m_settings(std::move(settings))
{
}

void HttpNetwork::send(const HttpRequest &request, const HttpExchange::Finished &finished)
{
    if (!m_manager)
        m_manager = std::make_shared<QNetworkAccessManager>();
    const auto conclude = [this, used = m_manager.get(), finished](const HttpResult &result) {
        // Silence may also mean a connection that is dead since the network changed or the machine slept: Qt
        // would go on using it for a quarter of an hour. What is still out ends over the old connections.
        if (result == HttpResult(TransportFailure::TimedOut) && m_manager.get() == used)
            m_manager.reset();
        finished(result);
    };
    auto *exchange = new HttpExchange(m_manager, m_settings, conclude, this); // Deletes itself.
    exchange->send(request);
}

} // namespace glimmet
