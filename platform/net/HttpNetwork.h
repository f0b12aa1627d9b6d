#pragma once

#include "platform/net/HttpConnections.h"
#include "platform/net/ProxySettings.h"

#include <map>
#include <set>

namespace glimmet {

/// The connections of a client, by the server that they lead to. Made on the client's main thread, at work on
/// its other one.
class HttpNetwork final : public QObject {
    Q_OBJECT

public:
    explicit HttpNetwork(HttpSettings settings);
    ~HttpNetwork() override;

    /// Sends `request`; `finished` is called once, on this thread, possibly within this call.
    void send(const HttpRequest &request, const HttpExchange::Finished &finished);

private:
    /// What is in use for one server.
    struct Server {
        HttpConnections *connections = nullptr; ///< a child of this object; null: none yet, or none any more
        std::shared_ptr<size_t> underWay = std::make_shared<size_t>(0); ///< over these and retired ones
        std::optional<std::chrono::steady_clock::time_point> proxyAsked;
    };

    void add(const QByteArray &origin, std::unique_ptr<HttpExchange> exchange);
    HttpConnections *opened(const QByteArray &origin, const Server &server);
    void askForProxy(const QByteArray &origin);
    /// Has everything that is not under way yet go over connections of its own.
    void replace(const QByteArray &origin, HttpConnections *connections);
    void close(const QByteArray &origin, HttpConnections *connections);
    /// Forgets `connections`; false where others lead there by now.
    bool giveUp(const QByteArray &origin, const HttpConnections *connections);
    void proceed(const QByteArray &origin);
    void rest();
    void giveMemoryBack();

    HttpSettings m_settings;
    QTimer m_rest{ this };
    std::unique_ptr<ProxySettings> m_proxies; ///< from the first request on
    std::set<QByteArray> m_unansweredForProxy; ///< origins that are asked about
    std::map<QByteArray, Server> m_servers;
};

} // namespace glimmet
