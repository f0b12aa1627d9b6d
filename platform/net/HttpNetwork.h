#pragma once

#include "platform/net/HttpExchange.h"

namespace glimmet {

/// A client's connections and what goes over them. Made on the client's main thread, at work on its other
/// one.
class HttpNetwork final : public QObject {
    Q_OBJECT

public:
    explicit HttpNetwork(HttpSettings settings);

    /// Sends `request`; `finished` is called once, on this thread, possibly within this call.
    void send(const HttpRequest &request, const HttpExchange::Finished &finished);

private:
    void open();
    /// Ends everything that is out over these connections, and lets them go.
    void lose(const QNetworkAccessManager *manager);

    HttpSettings m_settings;
    QSslConfiguration m_trust; ///< read once: certificates take longer to read than an answer
    std::shared_ptr<QNetworkAccessManager> m_manager; ///< shared with the exchanges that use it
};

} // namespace glimmet
