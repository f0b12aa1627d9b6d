#include "tests/support/HttpConnection.h"

#include "tests/support/HttpMessage.h"

namespace glimmet {

using Ending = ServerAnswer::Ending;

HttpConnection::HttpConnection(
    qintptr descriptor, const QSslConfiguration &encryption, HttpsServer::Handler handler, QObject *parent)
    : QObject(parent)
    , m_handler(std::move(handler))
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &HttpConnection::sendPiece);
    connect(&m_socket, &QSslSocket::readyRead, this, &HttpConnection::read);
    connect(&m_socket, &QSslSocket::disconnected, this, &QObject::deleteLater);
    connect(&m_socket, &QSslSocket::errorOccurred, this, &QObject::deleteLater);
    // Queued: the socket is in the middle of its own work when it reports what it wrote.
    connect(&m_socket, &QSslSocket::encryptedBytesWritten, this, &HttpConnection::breakWhenAllIsOut,
        Qt::QueuedConnection);
    m_socket.setSslConfiguration(encryption);
    m_socket.setSocketDescriptor(descriptor);
    // A small answer does not wait until the client confirms what came before it.
    m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_socket.startServerEncryption();
}

HttpConnection::~HttpConnection()
{
    m_socket.disconnect(this);
    m_socket.abort();
}

void HttpConnection::read()
{
    m_received += m_socket.readAll();
    serveNext();
}

void HttpConnection::serveNext()
{
    if (m_isAnswering)
        return;
    if (const std::optional<ReceivedRequest> request = takeRequest(m_received))
        beginAnswer(*request, answerTo(*request));
}

ServerAnswer HttpConnection::answerTo(const ReceivedRequest &request) const
{
    if (request.method.isEmpty())
        return { .ending = Ending::CutBeforeAnswer };
    return m_handler(request);
}

void HttpConnection::beginAnswer(const ReceivedRequest &request, const ServerAnswer &answer)
{
    m_isAnswering = true;
    if (answer.ending == Ending::Silence)
        return;
    if (answer.ending != Ending::CutBeforeAnswer) {
        m_pieces = piecesOf(answer);
        if (answer.raw.isEmpty())
            m_pieces.first().prepend(headOf(answer));
    }
    m_pause = answer.pause;
    m_afterwards = answer.ending != Ending::Complete ? Afterwards::Break
        : endsConnection(request, answer)            ? Afterwards::End
                                                     : Afterwards::Keep;
    m_timer.start(answer.delay);
}

void HttpConnection::sendPiece()
{
    if (!m_pieces.isEmpty())
        m_socket.write(m_pieces.takeFirst());
    if (m_pieces.isEmpty())
        finishAnswer();
    else
        m_timer.start(m_pause);
}

void HttpConnection::finishAnswer()
{
    switch (m_afterwards) {
    case Afterwards::Keep:
        m_isAnswering = false;
        return serveNext();
    case Afterwards::End:
        return m_socket.disconnectFromHost();
    case Afterwards::Break:
        return breakWhenAllIsOut();
    }
}

void HttpConnection::breakWhenAllIsOut()
{
    if (m_afterwards != Afterwards::Break || m_timer.isActive() || !m_pieces.isEmpty())
        return;
    // Not disconnectFromHost: that would take leave properly, and a broken connection does not.
    if (m_socket.bytesToWrite() == 0 && m_socket.encryptedBytesToWrite() == 0)
        m_socket.abort();
}

} // namespace glimmet
