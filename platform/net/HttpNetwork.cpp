#include "platform/net/HttpNetwork.h"

#include "platform/net/Json.h"

#include <malloc.h>

namespace glimmet {
namespace {

/// What is sent after this time has the proxies asked for again; what is sent just then goes by the old one.
constexpr std::chrono::minutes proxyHolds{ 1 };
/// Requests come in bursts.
constexpr std::chrono::seconds beforeRest{ 2 };

} // namespace

HttpNetwork::HttpNetwork(HttpSettings settings)
    : m_settings(std::move(settings))
{
    m_rest.setSingleShot(true);
    connect(&m_rest, &QTimer::timeout, this, &HttpNetwork::giveMemoryBack);
}

HttpNetwork::~HttpNetwork()
{
    // They tell of nothing any more.
    for (HttpConnections *connections : findChildren<HttpConnections *>())
        connections->disconnect(this);
}

void HttpNetwork::send(const HttpRequest &request, const HttpExchange::Finished &finished)
{
    if (!isSendableAddress(request.address))
        return finished(TransportFailure::InvalidAddress);
    if (!areSendableHeaders(request.headers))
        return finished(TransportFailure::InvalidHeader);
    auto exchange = std::make_unique<HttpExchange>(m_settings, request, finished);
    const QByteArray origin = exchange->origin();
    add(origin, std::move(exchange));
}

void HttpNetwork::add(const QByteArray &origin, std::unique_ptr<HttpExchange> exchange)
{
    m_rest.stop();
    Server &server = m_servers[origin];
    if (server.connections == nullptr)
        server.connections = opened(origin);
    server.connections->add(std::move(exchange));
    const auto now = std::chrono::steady_clock::now();
    if (!server.proxyAsked || now - *server.proxyAsked >= proxyHolds) {
        server.proxyAsked = now;
        askForProxy(origin);
    }
}

HttpConnections *HttpNetwork::opened(const QByteArray &origin)
{
    auto *connections = new HttpConnections(m_settings);
    connections->setParent(this);
    connect(connections, &HttpConnections::fellSilent, this,
        [this, origin, connections] { replace(origin, connections); });
    connect(connections, &HttpConnections::cameToRest, &m_rest, [this] { m_rest.start(beforeRest); });
    connect(connections, &HttpConnections::ended, this,
        [this, origin, connections] { close(origin, connections); });
    return connections;
}

void HttpNetwork::askForProxy(const QByteArray &origin)
{
    if (!m_proxies)
        m_proxies = std::make_unique<ProxySettings>();
    m_proxies->find("https://" + origin + '/', this, [this, origin](const QByteArray &proxy) {
        const auto server = m_servers.find(origin);
        if (server != m_servers.end() && server->second.connections != nullptr)
            server->second.connections->setProxy(proxy);
    });
}

void HttpNetwork::replace(const QByteArray &origin, HttpConnections *connections)
{
    const auto server = m_servers.find(origin);
    if (server == m_servers.end() || server->second.connections != connections)
        return;
    m_servers.erase(server);
    for (auto &exchange : connections->retire())
        add(origin, std::move(exchange));
}

void HttpNetwork::close(const QByteArray &origin, HttpConnections *connections)
{
    const auto server = m_servers.find(origin);
    if (server != m_servers.end() && server->second.connections == connections)
        m_servers.erase(server);
    connections->deleteLater();
}

void HttpNetwork::giveMemoryBack()
{
    // What a page took is not needed until the next one comes, minutes later.
    JsonDocument::dropBuffers();
    malloc_trim(0);
}

} // namespace glimmet
