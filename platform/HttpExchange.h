#pragma once

#include "platform/HttpBody.h"
#include "platform/HttpClient.h"

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

private:
    void start(const QUrl &url);
    QNetworkRequest prepared(const QUrl &url) const;
    /// Takes what has come of the body; false where that is no good or too much.
    bool collect();
    void conclude();
    HttpResult result() const;
    void finish(const HttpResult &result);

    std::shared_ptr<QNetworkAccessManager> m_manager;
    QSslConfiguration m_trust;
    HttpSettings m_settings;
    Finished m_finished;
    HttpRequest m_request;
    std::unique_ptr<QNetworkReply> m_reply; ///< goes before its manager
    std::optional<HttpBody> m_body; ///< from the first byte on
    int m_redirections = 0;
    bool m_isTrusted = true;
};

} // namespace glimmet
