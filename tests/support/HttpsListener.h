#pragma once

#include "tests/support/HttpsServer.h"

#include <QSslConfiguration>
#include <QTcpServer>
#include <QTcpSocket>

#include <atomic>

namespace glimmet {

/// The listening socket and the connections that came of it, all on the thread it lives on.
class HttpsListener final : public QTcpServer {
public:
    HttpsListener(QSslConfiguration encryption, HttpsServer::Handler handler);

    /// Listens: the first time at a free port, from then on at the same one.
    void open();
    /// Breaks every connection and refuses further ones.
    void end();
    /// Connections accepted so far; may be asked on any thread.
    int accepted() const { return m_accepted; }

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    void reservePort();

    QSslConfiguration m_encryption;
    HttpsServer::Handler m_handler;
    quint16 m_port = 0; // 0: any that is free
    std::atomic<int> m_accepted = 0;
    std::unique_ptr<QTcpSocket> m_reservation;
};

} // namespace glimmet
