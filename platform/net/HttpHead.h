#pragma once

#include <QByteArray>

#include <optional>

namespace glimmet {

/// What the lines before an answer's body say about it (RFC 9110, RFC 9112). They are read here as well as by
/// the library that brings them, which takes a length that it cannot read for none.
class HttpHead {
public:
    /// Of everything that is no body: the lines of interim answers (1xx), of the answer, and behind its body.
    /// Bytes.
    static constexpr qsizetype longest = qsizetype(64) << 10;

    /// Takes the next line with its end. False where it is too much, or says what cannot be.
    bool append(QByteArrayView line);

    /// Whether a line came at all, and whether those of the answer itself are all there.
    bool hasBegun() const { return m_size > 0; }
    bool isComplete() const { return m_isComplete; }
    /// That of the last status line: three digits; 0 before it came, and between an interim answer and the
    /// next.
    int status() const { return m_status; }
    /// The values of the headers with these names; empty where there are none.
    const QByteArray &contentEncoding() const { return m_contentEncoding; }
    const QByteArray &location() const { return m_location; }
    /// How long the body is to be as it is sent, in bytes; none where its end is told in another way.
    std::optional<qint64> bodyLength() const;
    /// Whether nothing but the connection's end tells that of the body.
    bool isBodyEndedByClosing() const;

private:
    bool begin(QByteArrayView statusLine);
    void end();
    bool take(QByteArrayView name, const QByteArray &value);
    bool takeLength(const QByteArray &value);
    bool hasNoBody() const { return m_status == 204 || m_status == 304; } // RFC 9112, 6.3

    qsizetype m_size = 0;
    bool m_isComplete = false;
    int m_status = 0;
    bool m_isChunked = false;
    std::optional<qint64> m_length;
    QByteArray m_contentEncoding;
    QByteArray m_location;
};

} // namespace glimmet
