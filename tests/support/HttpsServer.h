#pragma once

#include <QByteArray>
#include <QList>
#include <QtGlobal>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

namespace glimmet {

using HttpHeaders = QList<std::pair<QByteArray, QByteArray>>;

/// A request as it arrived.
struct ReceivedRequest {
    QByteArray method;
    QByteArray target; ///< path and query, byte for byte
    HttpHeaders headers;

    /// The header's value; the name in any case. Empty where it is missing.
    QByteArray header(const QByteArray &name) const;
};

/// What the server does about a request.
struct ServerAnswer {
    enum class Ending {
        Complete,
        CutInBody, ///< the headers promise the whole body, half of it comes, then the connection breaks
        CutBeforeAnswer, ///< the connection breaks without a byte
        Silence, ///< nothing comes, the connection stays
    };

    int status = 200;
    QByteArray body = {}; ///< as it is sent: packed by the caller where a header says so
    HttpHeaders headers = {}; ///< besides Content-Length; "Connection: close" is obeyed
    Ending ending = Ending::Complete;
    std::chrono::milliseconds delay{ 0 }; ///< before the first byte
    int pieces = 1; ///< what comes of the body goes out in so many pieces, the first with the headers,
    std::chrono::milliseconds pause{ 0 }; ///< so long apart
    QByteArray raw = {}; ///< sent as it is, in the place of status, headers and body
};

/// Where a server of the tests is that listens at 127.0.0.1: "https://127.0.0.1:PORT". By a name,
/// "localhost", it would be another matter on each machine: the name has one address here and two there, and
/// at the other one the machine refuses.
QByteArray originAt(quint16 port);

/// A real HTTPS server on loopback (127.0.0.1), HTTP/1.1 with kept connections, on a thread of its own. Its
/// certificate is for "localhost" and 127.0.0.1, from an authority that only the tests know.
/// It serves requests without a body; a connection's further requests wait for the answer to its first.
class HttpsServer {
public:
    /// Called on the server's thread, one request at a time. All connections wait while it runs: an answer
    /// that shall take its time says so by `delay` and `pause`. It must not close, reopen or destroy the
    /// server.
    using Handler = std::function<ServerAnswer(const ReceivedRequest &)>;
    /// OtherHost is for elsewhere.example only.
    enum class Certificate { Good, OtherHost, Expired, UnknownAuthority };

    /// Listens when it is made. Ends the process where the machine has no port to give.
    explicit HttpsServer(Handler handler, Certificate certificate = Certificate::Good);
    /// Ends every connection.
    ~HttpsServer();
    Q_DISABLE_COPY_MOVE(HttpsServer)

    QByteArray origin() const;
    quint16 port() const;
    /// All requests so far, in the order of arrival; each is here before the handler sees it.
    QList<ReceivedRequest> requests() const;
    /// Connections accepted so far, also those whose encryption failed.
    int connections() const;
    /// Ends every connection and listens no more: further connections are refused.
    void close();
    /// Listens again at the same port.
    void reopen();

    /// The tests' own authority (PEM), for the client's settings.
    static QByteArray authority();

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace glimmet
