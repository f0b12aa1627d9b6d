#pragma once

#include "platform/net/HttpExchange.h"

#include <QObject>
#include <QTimer>

#include <deque>
#include <unordered_map>
#include <vector>

class QSocketNotifier;

namespace glimmet {

/// Connections to one server, what goes over them, and what waits for one of them in the order in which it
/// came. The client's thread; curl works in that thread's events.
class HttpConnections final : public QObject {
    Q_OBJECT

public:
    /// `underWay` counts what goes over all connections to that server, which may be more than these.
    HttpConnections(HttpSettings settings, std::shared_ptr<size_t> underWay);
    /// Drops what is under way.
    ~HttpConnections() override;

    void add(std::unique_ptr<HttpExchange> exchange);
    /// The proxy that leads there, for what is sent from now on; empty: none. Nothing is sent before the
    /// first call.
    void setProxy(const QByteArray &proxy);
    /// Begins what waits and may begin now.
    void startNext();
    /// Gives away those that wait. Nothing is to be added any more; what is under way comes to its end.
    std::deque<std::unique_ptr<HttpExchange>> retire();
    /// Nothing is under way, and nothing waits.
    bool isAtRest() const { return m_waiting.empty() && m_running.empty(); }
    /// Whether the machine has slept since they were made: servers do not wait for that, and what says so
    /// came to a machine that did not listen.
    bool haveSlept() const;

signals:
    /// A request was not answered in time. Connections that are dead since the network changed are silent
    /// like that, and TCP would keep them for a quarter of an hour.
    void fellSilent();
    /// One less is under way.
    void cameFree();
    /// Nothing is under way any more, and nothing waits.
    void cameToRest();
    /// They are of no use any more: nothing went over them for long, or they are retired and at rest.
    void ended();

private:
    struct Running {
        CURL *handle;
        std::unique_ptr<HttpExchange> exchange;
    };
    struct Watched {
        std::unique_ptr<QSocketNotifier> reading;
        std::unique_ptr<QSocketNotifier> writing;
    };
    using Moment = HttpExchange::Moment;

    static int watchSocket(CURL *, curl_socket_t socket, int what, void *connections, void *);
    static int setTimer(CURLM *, long milliseconds, void *connections);

    void watch(curl_socket_t socket, int what);
    void unwatch(curl_socket_t socket);
    void act(curl_socket_t socket, int events);
    void takeResults();
    void conclude(CURL *handle, CURLcode code);
    void start(std::unique_ptr<HttpExchange> exchange, CURL *handle);
    CURL *spareHandle();
    /// Ends what has waited or been silent for too long, and what has no end.
    void checkTimes();
    void endWaiting(Moment now);
    void endOverdue(Moment now);
    void checkTimesLater();
    Moment nextEnd() const;
    void rest();

    HttpSettings m_settings;
    std::shared_ptr<size_t> m_underWay;
    std::chrono::milliseconds m_asleepBefore;
    SocketWatch m_openSockets;
    TlsWatch m_tls;
    CURLM *m_multi;
    QTimer m_curlTimer;
    QTimer m_timeCheck;
    QTimer m_restTimer;
    std::unordered_map<curl_socket_t, Watched> m_watched;
    std::optional<QByteArray> m_proxy;
    std::deque<std::unique_ptr<HttpExchange>> m_waiting;
    std::vector<Running> m_running;
    std::vector<CURL *> m_spareHandles;
    bool m_isRetired = false;
};

} // namespace glimmet
