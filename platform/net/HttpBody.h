#pragma once

#include <QByteArray>

#include <memory>

struct z_stream_s;

namespace glimmet {

/// The body of an answer as it arrives: unpacked, and no longer than it may be.
///
/// Unpacking is not left to Qt: it passes off the first half of a packed body as the whole one when the
/// connection breaks, and what it cannot unpack as gzip it tries as something else.
class HttpBody {
public:
    /// `encoding` as the answer's header has it; all but gzip (RFC 1952) is taken as it is. `longest` is in
    /// bytes, unpacked.
    HttpBody(const QByteArray &encoding, qint64 longest);
    ~HttpBody();
    Q_DISABLE_COPY_MOVE(HttpBody)

    /// Takes what comes next. False where it is not what the encoding says or the body becomes too long;
    /// nothing is to be appended after that.
    bool append(const QByteArray &piece);
    /// Whether the body may end here: nothing that is packed is missing.
    bool isWhole() const { return m_isWhole; }
    const QByteArray &bytes() const { return m_bytes; }

private:
    bool keep(QByteArrayView bytes);
    bool unpack(const QByteArray &piece);
    bool unpackNext();

    qint64 m_longest;
    std::unique_ptr<z_stream_s> m_gzip; // none where nothing is packed
    bool m_isWhole = true;
    QByteArray m_bytes;
};

} // namespace glimmet
