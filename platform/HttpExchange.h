#pragma once

#include "platform/HttpClient.h"

#include <QNetworkReply>

class QNetworkAccessManager;

namespace glimmet {

/// One request and what follows from it until there is a result. Deletes itself after reporting that.
class HttpExchange final : public QObject {
    Q_OBJECT

public:
    using Finished = std::function<void(const HttpResult &)>;

    HttpExchange(
        QNetworkAccessManager &manager, const HttpSettings &settings, HttpRequest request, Finished finished);

private:
    void start(const QUrl &url);
    QNetworkRequest prepared(const QUrl &url) const;
    void collect();
    void conclude();
    HttpResult result() const;
    /// Where the answer sends to, if that is a place to follow to.
    std::optional<QUrl> redirection() const;
    void finish(const HttpResult &result);

    QNetworkAccessManager &m_manager;
    const HttpSettings &m_settings;
    HttpRequest m_request;
    Finished m_finished;
    QNetworkReply *m_reply = nullptr; ///< a child
    QByteArray m_body;
    int m_redirections = 0;
    bool m_isTrusted = true;
    bool m_isTooLong = false;
};

} // namespace glimmet
