#pragma once

#include "platform/net/HttpBody.h"
#include "platform/net/HttpClient.h"

#include <QNetworkReply>
#include <QSslConfiguration>

#include <memory>
#include <optional>

class QNetworkAccessManager;

namespace glimmet {

/// One request and what follows from it until there is a result. Deletes itself after reporting that.
class HttpExchange final : public QObject {
    Q_OBJECT

public:
    using Finished = std::function<void(const HttpResult &)>;

    HttpExchange(std::shared_ptr<QNetworkAccessManager> manager, const QSslConfiguration &trust,
        HttpSettings settings, Finished finished, QObject *parent);

    /// To be called once. What cannot be sent has its result within this call.
    void send(const HttpRequest &request);
    /// Ends it: what comes over its connection is not to be trusted any more.
    void lose();
    bool isUsing(const QNetworkAccessManager *manager) const { return m_manager.get() == manager; }

signals:
    /// Qt took an interim answer for the answer: whatever comes over the connection from now on is the answer
    /// to another request than Qt says. The exchange is still to be ended.
    void connectionMisread();

private:
    void start(const QUrl &url);
    QNetworkRequest prepared(const QUrl &url) const;
    /// Takes what has come of the body; false where that is no good or too much.
    bool collect();
    void conclude();
    HttpResult result() const;
    /// Whether the end is that of an interim answer (1xx), which Qt takes for the answer itself.
    bool isInterim() const;
    /// Whether as much came of the body as was announced, if anything was.
    bool hasWholeLength() const;
    void finish(const HttpResult &result);

    std::shared_ptr<QNetworkAccessManager> m_manager;
    QSslConfiguration m_trust;
    HttpSettings m_settings;
    Finished m_finished;
    HttpRequest m_request;
    std::unique_ptr<QNetworkReply> m_reply; ///< goes before its manager
    std::optional<HttpBody> m_body; ///< from the first byte on
    qint64 m_received = 0; ///< bytes of the body as they came
    int m_redirections = 0;
    bool m_isTrusted = true;
    bool m_isFinished = false;
};

} // namespace glimmet
