#include "platform/net/HttpClient.h"

#include "platform/net/HttpNetwork.h"

namespace glimmet {
namespace {

constexpr std::chrono::milliseconds patience = std::chrono::milliseconds(500);

} // namespace

HttpClient::HttpClient(HttpSettings settings, QObject *parent)
    : QObject(parent)
    , m_settings(std::move(settings))
    , m_thread(new QThread)
    , m_mailbox(new QObject)
{
    m_thread->setObjectName(QStringLiteral("http"));
}

HttpClient::~HttpClient()
{
    connect(m_thread, &QThread::finished, m_thread, &QObject::deleteLater);
    connect(m_thread, &QThread::finished, m_mailbox, &QObject::deleteLater);
    m_thread->quit();
    // What keeps the thread busy must not keep the program from ending, which ends the thread too.
    if (!m_thread->wait(patience))
        return;
    delete m_thread;
    delete m_mailbox; // with what was on its way
}

HttpNetwork &HttpClient::network()
{
    // With the first request: who never sends one has no second thread.
    if (m_network == nullptr) {
        m_network = new HttpNetwork(m_settings);
        m_network->moveToThread(m_thread);
        connect(m_thread, &QThread::finished, m_network, &QObject::deleteLater);
        m_thread->start();
    }
    return *m_network;
}

void HttpClient::send(const HttpRequest &request, QObject *receiver, Reader reader)
{
    const auto deliver = [client = QPointer(this), mailbox = m_mailbox, asker = QPointer(receiver),
                             reader = std::move(reader)](const HttpResult &result) {
        QMetaObject::invokeMethod(
            mailbox,
            [client, asker, delivery = reader(result)] {
                if (client && asker)
                    delivery();
            },
            Qt::QueuedConnection);
    };
    QMetaObject::invokeMethod(
        &network(), [&network = network(), request, deliver] { network.send(request, deliver); },
        Qt::QueuedConnection);
}

} // namespace glimmet
