#include "platform/net/HttpNetwork.h"

#include "platform/net/Json.h"

#include <algorithm>
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
    if (!isSendableValue(*request.authorization) || !areSendableHeaders(request.headers))
        return finished(TransportFailure::InvalidHeader);
    auto exchange = std::make_unique<HttpExchange>(m_settings, request, finished);
    const QByteArray origin = exchange->origin();
    add(origin, std::move(exchange));
}

void HttpNetwork::add(const QByteArray &origin, std::unique_ptr<HttpExchange> exchange)
{
    m_rest.stop();
    Server &server = m_servers[origin];
    if (server.connections != nullptr && server.connections->haveSlept())
        replace(origin, server.connections);
    if (server.connections == nullptr)
        server.connections = opened(origin, server);
    server.connections->add(std::move(exchange));
    const auto now = std::chrono::steady_clock::now();
    if (!server.proxyAsked || now - *server.proxyAsked >= proxyHolds) {
        server.proxyAsked = now;
        askForProxy(origin);
    }
}

HttpConnections *HttpNetwork::opened(const QByteArray &origin, const Server &server)
{
    auto *connections = new HttpConnections(m_settings, server.underWay);
    connections->setParent(this);
    connect(connections, &HttpConnections::fellSilent, this,
        [this, origin, connections] { replace(origin, connections); });
    connect(connections, &HttpConnections::cameFree, this, [this, origin] { proceed(origin); });
    connect(connections, &HttpConnections::cameToRest, this, &HttpNetwork::rest);
    connect(connections, &HttpConnections::ended, this,
        [this, origin, connections] { close(origin, connections); });
    return connections;
}

void HttpNetwork::askForProxy(const QByteArray &origin)
{
    if (!m_proxies)
        m_proxies = std::make_unique<ProxySettings>();
    if (!m_unansweredForProxy.insert(origin).second)
        return;
    m_proxies->find("https://" + origin + '/', this, [this, origin](const QByteArray &proxy) {
        m_unansweredForProxy.erase(origin);
        if (HttpConnections *connections = m_servers[origin].connections)
            connections->setProxy(proxy);
    });
}

void HttpNetwork::replace(const QByteArray &origin, HttpConnections *connections)
{
    if (!giveUp(origin, connections))
        return;
    for (auto &exchange : connections->retire())
        add(origin, std::move(exchange));
}

void HttpNetwork::close(const QByteArray &origin, HttpConnections *connections)
{
    giveUp(origin, connections);
    connections->deleteLater();
}

bool HttpNetwork::giveUp(const QByteArray &origin, const HttpConnections *connections)
{
    Server &server = m_servers[origin];
    if (server.connections != connections)
        return false;
    server.connections = nullptr;
    server.proxyAsked.reset();
    return true;
}

void HttpNetwork::proceed(const QByteArray &origin)
{
    HttpConnections *connections = m_servers[origin].connections;
    if (connections == nullptr)
        return;
    if (connections->haveSlept())
        replace(origin, connections);
    else
        connections->startNext();
}

void HttpNetwork::rest()
{
    const auto all = findChildren<HttpConnections *>();
    if (std::all_of(all.begin(), all.end(), [](const auto *connections) { return connections->isAtRest(); }))
        m_rest.start(beforeRest);
}

void HttpNetwork::giveMemoryBack()
{
    // What a page took is not needed until the next one comes, minutes later.
    JsonDocument::dropBuffers();
    malloc_trim(0);
}

} // namespace glimmet
