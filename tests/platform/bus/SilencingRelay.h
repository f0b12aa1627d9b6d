#pragma once

#include "tests/support/HttpsServer.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <memory>

namespace glimmet {

/// Stands between a client and a server on loopback and passes on what they say, until it falls silent as a
/// network does that is gone: its connections stay, and nothing comes through them any more. Lives by the
/// events of its thread.
class SilencingRelay {
public:
    explicit SilencingRelay(quint16 serverPort)
    {
        QObject::connect(&m_listener, &QTcpServer::newConnection, &m_listener, [this, serverPort] {
            auto *client = m_listener.nextPendingConnection();
            auto *server = new QTcpSocket(client);
            server->connectToHost(QHostAddress::LocalHost, serverPort);
            passOn(client, server);
            passOn(server, client);
            ++m_connections;
        });
        m_listener.listen(QHostAddress::LocalHost);
    }

    QByteArray origin() const { return originAt(m_listener.serverPort()); }
    int connections() const { return m_connections; }
    /// From now on for every connection that is there; later ones work.
    void silence()
    {
        for (QTcpSocket *client :
            m_listener.findChildren<QTcpSocket *>(QString(), Qt::FindDirectChildrenOnly)) {
            client->disconnect();
            for (QTcpSocket *server : client->findChildren<QTcpSocket *>())
                server->disconnect();
        }
    }

private:
    static void passOn(QTcpSocket *from, QTcpSocket *to)
    {
        QObject::connect(from, &QTcpSocket::readyRead, to, [from, to] { to->write(from->readAll()); });
        QObject::connect(from, &QTcpSocket::disconnected, to, [to] { to->disconnectFromHost(); });
    }

    QTcpServer m_listener;
    int m_connections = 0;
};

} // namespace glimmet
