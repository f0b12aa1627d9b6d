#pragma once

#include <QByteArray>

#include <memory>

struct z_stream_s;

namespace glimmet {

/// The body of an answer as it arrives: unpacked, and no longer than it may be.
///
/// Unpacking is not left to the library that brings it, which takes a packed body that is cut for a whole
/// one.
class HttpBody {
public:
    /// `encoding` as the answer's header has it; all but gzip (RFC 1952) is taken as it is. `longest` is in
    /// bytes, unpacked; twice as many may come.
    HttpBody(const QByteArray &encoding, qint64 longest);
    ~HttpBody();
    Q_DISABLE_COPY_MOVE(HttpBody)

    /// Takes what comes next. False where it is not what the encoding says or the body becomes too long;
    /// nothing is to be appended after that.
    bool append(QByteArrayView piece);
    /// Whether the body may end here: nothing that is packed is missing.
    bool isWhole() const { return m_isWhole; }
    /// As they came, in bytes.
    qint64 received() const { return m_received; }
    const QByteArray &bytes() const { return m_bytes; }

private:
    bool keep(QByteArrayView bytes);
    bool unpack(QByteArrayView piece);
    bool unpackNext();

    qint64 m_longest;
    qint64 m_received = 0;
    std::unique_ptr<z_stream_s> m_gzip; // none where nothing is packed
    bool m_isWhole = true;
    QByteArray m_bytes;
};

} // namespace glimmet
