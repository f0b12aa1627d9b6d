#include "platform/net/HttpBody.h"

#include "platform/Fatal.h"
#include "platform/net/Json.h"

#include <algorithm>
#include <array>
#include <zlib.h>

namespace glimmet {
namespace {

constexpr int gzipOnly = MAX_WBITS + 16; // how zlib is told

/// Who reads the body may look a little further than its end, in bytes; else it would be copied for that.
constexpr qsizetype roomBehind = JsonDocument::padding;

bool isGzip(const QByteArray &encoding)
{
    // RFC 9110, 8.4.1.3: the second name means the same.
    return encoding.compare("gzip", Qt::CaseInsensitive) == 0
        || encoding.compare("x-gzip", Qt::CaseInsensitive) == 0;
}

std::unique_ptr<z_stream> startedGzip()
{
    auto stream = std::make_unique<z_stream>();
    if (inflateInit2(stream.get(), gzipOnly) != Z_OK)
        fatal("out of memory");
    return stream;
}

} // namespace

HttpBody::HttpBody(const QByteArray &encoding, qint64 longest)
    : m_longest(longest)
    , m_gzip(isGzip(encoding) ? startedGzip() : nullptr)
{
}

HttpBody::~HttpBody()
{
    if (m_gzip)
        inflateEnd(m_gzip.get());
}

bool HttpBody::append(QByteArrayView piece)
{
    // What is packed may also unpack to nothing, for ever.
    m_received += piece.size();
    if (m_received > 2 * m_longest)
        return false;
    return m_gzip ? unpack(piece) : keep(piece);
}

bool HttpBody::keep(QByteArrayView bytes)
{
    if (bytes.size() > m_longest - m_bytes.size())
        return false;
    const qsizetype needed = m_bytes.size() + bytes.size() + roomBehind;
    if (m_bytes.capacity() < needed)
        m_bytes.reserve(std::max(needed, 2 * m_bytes.capacity()));
    m_bytes.append(bytes);
    return true;
}

bool HttpBody::unpack(QByteArrayView piece)
{
    // zlib wants it writable, and leaves it as it is.
    m_gzip->next_in = reinterpret_cast<Bytef *>(const_cast<char *>(piece.data()));
    m_gzip->avail_in = static_cast<uInt>(piece.size());
    while (m_gzip->avail_in > 0)
        if (!unpackNext())
            return false;
    return true;
}

bool HttpBody::unpackNext()
{
    std::array<char, 16384> unpacked;
    // There may be several packed parts, one after the other.
    if (m_isWhole)
        inflateReset(m_gzip.get());
    int state = Z_OK;
    do {
        m_gzip->next_out = reinterpret_cast<Bytef *>(unpacked.data());
        m_gzip->avail_out = unpacked.size();
        state = inflate(m_gzip.get(), Z_NO_FLUSH);
        if (!keep({ unpacked.data(), static_cast<qsizetype>(unpacked.size() - m_gzip->avail_out) }))
            return false;
    } while (state == Z_OK && m_gzip->avail_out == 0);
    m_isWhole = state == Z_STREAM_END;
    // Z_BUF_ERROR: the last byte came just when there was no more room, and nothing is left.
    return state == Z_OK || state == Z_STREAM_END || state == Z_BUF_ERROR;
}

} // namespace glimmet
