#include "platform/HttpClient.h"

#include "platform/HttpExchange.h"

#include <QNetworkAccessManager>

namespace glimmet {

HttpClient::HttpClient(HttpSettings settings, QObject *parent)
    : QObject(parent)
    , m_settings(std::move(settings))
{
    m_thread.setObjectName(QStringLiteral("http"));
}

HttpClient::~HttpClient()
{
    m_thread.quit();
    m_thread.wait();
}

QNetworkAccessManager &HttpClient::manager()
{
    // With the first request: who never sends one has no second thread.
    if (m_manager == nullptr) {
        m_manager = new QNetworkAccessManager;
        m_manager->moveToThread(&m_thread);
        connect(&m_thread, &QThread::finished, m_manager, &QObject::deleteLater);
        m_thread.start();
    }
    return *m_manager;
}

void HttpClient::send(HttpRequest request, QObject *receiver, Reader reader)
{
    const auto deliver = [this, asker = QPointer(receiver), reader = std::move(reader)](
                             const HttpResult &result) {
        QMetaObject::invokeMethod(
            this,
            [asker, delivery = reader(result)] {
                if (asker)
                    delivery();
            },
            Qt::QueuedConnection);
    };
    QNetworkAccessManager &network = manager();
    QMetaObject::invokeMethod(
        &network,
        [this, &network, request = std::move(request), deliver] {
            new HttpExchange(
                network, m_settings, request, deliver); // Deletes itself, or goes with the network.
        },
        Qt::QueuedConnection);
}

} // namespace glimmet
