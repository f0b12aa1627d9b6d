#include "tests/support/HttpsServer.h"

#include "tests/support/HttpsListener.h"
#include "tests/support/TestCertificates.h"

#include <QMutex>
#include <QThread>

namespace glimmet {

QByteArray originAt(quint16 port)
{
    return "https://127.0.0.1:" + QByteArray::number(port);
}

class HttpsServer::Impl {
public:
    Impl(Handler handler, Certificate certificate);
    ~Impl();
    Q_DISABLE_COPY_MOVE(Impl)

    const HttpsListener &listener() const { return *m_listener; }
    quint16 port() const { return m_port; }
    QList<ReceivedRequest> requests() const;

    void open();
    void close();

private:
    template <typename Work> void onThread(Work work);
    ServerAnswer serve(const ReceivedRequest &request);

    Handler m_handler;
    mutable QMutex m_mutex; // for m_requests
    QList<ReceivedRequest> m_requests;
    QThread m_thread;
    std::unique_ptr<HttpsListener> m_listener;
    quint16 m_port = 0;
};

HttpsServer::Impl::Impl(Handler handler, Certificate certificate)
    : m_handler(std::move(handler))
    , m_listener(std::make_unique<HttpsListener>(
          encryptionWith(certificate), [this](const ReceivedRequest &request) { return serve(request); }))
{
    m_listener->moveToThread(&m_thread);
    m_thread.start();
    open();
}

HttpsServer::Impl::~Impl()
{
    // The listener and its sockets go where they live, at the latest when that thread ends.
    m_listener.release()->deleteLater();
    m_thread.quit();
    m_thread.wait();
}

QList<ReceivedRequest> HttpsServer::Impl::requests() const
{
    const QMutexLocker lock(&m_mutex);
    return m_requests;
}

void HttpsServer::Impl::open()
{
    onThread([this] {
        m_listener->open();
        m_port = m_listener->serverPort();
    });
}

void HttpsServer::Impl::close()
{
    onThread([this] { m_listener->end(); });
}

template <typename Work> void HttpsServer::Impl::onThread(Work work)
{
    QMetaObject::invokeMethod(m_listener.get(), std::move(work), Qt::BlockingQueuedConnection);
}

ServerAnswer HttpsServer::Impl::serve(const ReceivedRequest &request)
{
    {
        const QMutexLocker lock(&m_mutex);
        m_requests.append(request);
    }
    return m_handler(request);
}

HttpsServer::HttpsServer(Handler handler, Certificate certificate)
    : m_impl(std::make_unique<Impl>(std::move(handler), certificate))
{
}

HttpsServer::~HttpsServer() = default;

QByteArray HttpsServer::origin() const
{
    return originAt(port());
}

quint16 HttpsServer::port() const
{
    return m_impl->port();
}

QList<ReceivedRequest> HttpsServer::requests() const
{
    return m_impl->requests();
}

int HttpsServer::connections() const
{
    return m_impl->listener().accepted();
}

void HttpsServer::close()
{
    m_impl->close();
}

void HttpsServer::reopen()
{
    m_impl->open();
}

QByteArray HttpsServer::authority()
{
    return testAuthority();
}

} // namespace glimmet
