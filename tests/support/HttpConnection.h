#pragma once

#include "tests/support/HttpsServer.h"

#include <QObject>
#include <QSslSocket>
#include <QTimer>

namespace glimmet {

/// The server's end of one connection: reads requests and sends the handler's answers in their own time,
/// without ever waiting. Deletes itself when the connection is over; deleting it breaks the connection.
class HttpConnection final : public QObject {
    Q_OBJECT

public:
    /// Takes `descriptor`, a socket just accepted, over.
    HttpConnection(qintptr descriptor, const QSslConfiguration &encryption, HttpsServer::Handler handler,
        QObject *parent);
    ~HttpConnection() override;
    Q_DISABLE_COPY_MOVE(HttpConnection)

private:
    enum class Afterwards { Keep, End, Break };

    void read();
    void serveNext();
    ServerAnswer answerTo(const ReceivedRequest &request) const;
    void beginAnswer(const ReceivedRequest &request, const ServerAnswer &answer);
    void sendPiece();
    void finishAnswer();
    void breakWhenAllIsOut();

    HttpsServer::Handler m_handler;
    QSslSocket m_socket;
    QTimer m_timer; // to the next piece
    QByteArray m_received;
    bool m_isAnswering = false;
    QList<QByteArray> m_pieces; // still to be sent
    std::chrono::milliseconds m_pause{ 0 };
    Afterwards m_afterwards = Afterwards::Keep;
};

} // namespace glimmet
