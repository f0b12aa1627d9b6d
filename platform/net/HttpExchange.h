#pragma once

#include "platform/net/HttpBody.h"
#include "platform/net/HttpClient.h"
#include "platform/net/HttpHead.h"
#include "platform/net/SocketWatch.h"
#include "platform/net/TlsWatch.h"

#include <QUrl>

#include <array>
#include <chrono>
#include <curl/curl.h>
#include <functional>
#include <memory>
#include <optional>

namespace glimmet {

/// One request and what follows from it until there is a result: redirections, and a second try where a kept
/// connection turned out to be none. What is sent at once is a step; the connections that it goes over are
/// another's business. The client's thread.
class HttpExchange {
public:
    using Finished = std::function<void(const HttpResult &)>;
    using Moment = std::chrono::steady_clock::time_point;

    /// Of a request that may be sent as it is.
    HttpExchange(HttpSettings settings, HttpRequest request, Finished finished);
    Q_DISABLE_COPY_MOVE(HttpExchange)

    /// The server and its port: what its connections are kept by.
    QByteArray origin() const;
    /// Sets `handle` up for the next step; the exchange stays where it is until that step is over. `proxy`
    /// leads there; empty: none does. `sockets` and `tls` watch the connections that it may go over.
    void prepare(CURL *handle, const QByteArray &proxy, SocketWatch &sockets, TlsWatch &tls);
    /// What has come of the step, which `code` ended; its handle is still as it was. Nothing: there is
    /// another step.
    std::optional<HttpResult> conclude(CURLcode code);
    void finish(const HttpResult &result) { m_finished(result); }

    /// When it has waited for too long for its first step.
    Moment endOfWaiting() const { return m_asked + m_settings.longestWait; }
    /// When the step that is under way has been silent for too long.
    Moment endOfSilence() const { return m_lastProgress + m_settings.idleTimeout; }
    /// Whether the step that is under way has a connection and asked its question there.
    bool wasSent() const { return m_wasSent; }
    /// When the answer as a whole has taken too long.
    Moment endOfAll() const { return m_begun.value_or(m_asked) + m_settings.longestAnswer; }
    /// Whether more came in this step than an answer may be, whatever became of it: what is around a body's
    /// chunks has no end of its own.
    bool isFlooded() const;

private:
    static int aboutToSend(void *exchange, char *, char *, int, int localPort);
    static size_t takeLine(char *line, size_t size, size_t count, void *exchange);
    static size_t takeBody(char *piece, size_t size, size_t count, void *exchange);

    void beginStep();
    void setAddress();
    void setTrust() const;
    void setCallbacks();
    bool read(QByteArrayView line);
    bool collect(QByteArrayView piece);
    bool shallBeRepeated(CURLcode code) const;
    HttpResult result(CURLcode code) const;
    bool isWhole() const;

    HttpSettings m_settings;
    HttpRequest m_request;
    Finished m_finished;
    Moment m_asked;
    std::optional<Moment> m_begun; ///< its first step
    Moment m_lastProgress;

    struct ListDeleter {
        void operator()(curl_slist *list) const;
    };
    QUrl m_url;
    std::unique_ptr<curl_slist, ListDeleter> m_headers;
    int m_redirections = 0;
    bool m_isRepeated = false;

    // Of the step:
    std::array<char, CURL_ERROR_SIZE> m_errorText{};
    CURL *m_handle = nullptr;
    SocketWatch *m_sockets = nullptr;
    TlsWatch *m_tls = nullptr;
    TlsWatch::Connection m_connection = nullptr;
    qint64 m_receivedBefore = 0; ///< over that connection
    bool m_usesProxy = false;
    bool m_wasSent = false;
    bool m_isRefused = false; ///< by this side: what comes is no good
    HttpHead m_head;
    std::optional<HttpBody> m_body; ///< from the first byte on
};

} // namespace glimmet
