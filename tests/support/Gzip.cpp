#include "tests/support/Gzip.h"

#include "platform/Fatal.h"

#include <zlib.h>

namespace glimmet {

QByteArray gzipped(const QByteArray &plain)
{
    constexpr int windowBitsForGzip = MAX_WBITS + 16;
    z_stream stream{};
    if (deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, windowBitsForGzip, MAX_MEM_LEVEL, Z_DEFAULT_STRATEGY)
        != Z_OK)
        fatal("zlib does not start");
    QByteArray input = plain; // zlib wants it writable, and leaves it as it is
    QByteArray packed(static_cast<qsizetype>(deflateBound(&stream, static_cast<uLong>(plain.size()))), '\0');
    stream.next_in = reinterpret_cast<Bytef *>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());
    stream.next_out = reinterpret_cast<Bytef *>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, Z_FINISH);
    packed.resize(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return packed;
}

} // namespace glimmet
