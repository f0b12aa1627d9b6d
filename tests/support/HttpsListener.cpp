#include "tests/support/HttpsListener.h"

#include "platform/Fatal.h"
#include "tests/support/HttpConnection.h"

namespace glimmet {

HttpsListener::HttpsListener(QSslConfiguration encryption, HttpsServer::Handler handler)
    : m_encryption(std::move(encryption))
    , m_handler(std::move(handler))
{
    // Many connections may arrive in one moment; what the default of 50 has no room for tries again a second
    // later.
    setListenBacklogSize(1024);
}

void HttpsListener::open()
{
    m_reservation.reset();
    if (!isListening() && !listen(QHostAddress::LocalHost, m_port))
        fatal("the tests' server cannot listen");
    m_port = serverPort();
}

void HttpsListener::end()
{
    close();
    reservePort();
    qDeleteAll(findChildren<HttpConnection *>(QString(), Qt::FindDirectChildrenOnly));
}

void HttpsListener::incomingConnection(qintptr descriptor)
{
    ++m_accepted;
    new HttpConnection(descriptor, m_encryption, m_handler, this);
}

void HttpsListener::reservePort()
{
    // A socket that is bound and does not listen refuses connections and keeps the port from other programs.
    m_reservation = std::make_unique<QTcpSocket>();
    if (!m_reservation->bind(QHostAddress::LocalHost, m_port, QAbstractSocket::ReuseAddressHint))
        fatal("the tests' server cannot keep its port");
}

} // namespace glimmet
