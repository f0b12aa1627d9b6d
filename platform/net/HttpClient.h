#pragma once

#include "platform/TimeAsleep.h"
#include "platform/net/Http.h"

#include <QObject>
#include <QPointer>
#include <QThread>

#include <chrono>
#include <functional>

namespace glimmet {

class HttpNetwork;

/// How the client speaks to servers; the defaults are the program's.
struct HttpSettings {
    std::chrono::milliseconds idleTimeout = std::chrono::seconds(15); ///< without any progress
    std::chrono::milliseconds longestAnswer = std::chrono::minutes(5); ///< from its first step to its end
    std::chrono::milliseconds longestWait = std::chrono::minutes(1); ///< before its first step
    std::chrono::milliseconds connectionsKept = std::chrono::minutes(2); ///< after the last answer
    /// How long the machine has slept. The client's thread.
    std::function<std::chrono::milliseconds()> timeAsleep = glimmet::timeAsleep;
    /// Whom to trust: these authorities (PEM) instead of the system's, where there are any.
    QByteArray authorities = {};
};

/// The one HTTP client of the program: HTTP/1.1 over TLS. Requests run side by side on a thread of its own,
/// at most six to a server, whose others wait in their order; connections are kept and shared until one falls
/// silent or the machine sleeps, packed answers are unpacked. Proxies are those of the environment and of the
/// desktop. No cookies, no cache, no credentials but the headers of the request. Redirects are followed only
/// within the same https origin, at most ten; any other is an answer like all others. A request whose kept
/// connection breaks before the answer's status is sent once more.
///
/// Lives on the main thread. Destroying it drops what is still out.
class HttpClient final : public QObject {
    Q_OBJECT

public:
    explicit HttpClient(HttpSettings settings = {}, QObject *parent = nullptr);
    ~HttpClient() override;

    /// Sends `request`. `read` turns the result into a value on the client's thread, where it must touch
    /// nothing but its arguments; `done` then gets that value on the main thread, unless `receiver` is gone
    /// by then. Exactly one call of each, never within this call.
    template <typename Read, typename Done>
    void get(const HttpRequest &request, QObject *receiver, Read read, Done done)
    {
        send(request, receiver,
            [read = std::move(read), done = std::move(done)](const HttpResult &result) -> Delivery {
                return [done, value = read(result)]() mutable { done(std::move(value)); };
            });
    }

private:
    using Delivery = std::function<void()>;
    using Reader = std::function<Delivery(const HttpResult &)>;

    void send(const HttpRequest &request, QObject *receiver, Reader reader);
    HttpNetwork &network();

    HttpSettings m_settings;
    QThread *m_thread; ///< own; left behind where it does not end, with what it may still use:
    QObject *m_mailbox; ///< where results reach the main thread
    HttpNetwork *m_network = nullptr; ///< lives on the thread and ends with it
};

} // namespace glimmet
