#include "platform/FirstCharacters.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <simdjson.h>

namespace glimmet {
namespace {

constexpr qsizetype firstGuess = 4096;

/// As much of `bytes` as `size` allows without breaking a code point.
QByteArrayView wholeCodePoints(QByteArrayView bytes, qsizetype size)
{
    const auto continues = [&bytes](qsizetype at) { return (static_cast<uchar>(bytes[at]) & 0xC0) == 0x80; };
    size = std::min(size, bytes.size());
    while (size > 0 && size < bytes.size() && continues(size))
        --size;
    return bytes.first(size);
}

/// Where the first `count` characters end; nothing where the text ends first.
std::optional<qsizetype> endOf(int count, const QString &text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = 0;
    for (int i = 0; i < count; ++i) {
        end = finder.toNextBoundary();
        if (end < 0)
            return std::nullopt;
    }
    return end;
}

} // namespace

std::optional<QString> firstCharacters(QByteArrayView bytes, int count)
{
    if (!simdjson::validate_utf8(bytes.data(), static_cast<size_t>(bytes.size())))
        return std::nullopt;
    // Bodies are long and heads are short; a character may be long, too.
    for (qsizetype size = firstGuess;; size *= 4) {
        const QByteArrayView part = wholeCodePoints(bytes, size);
        const QString text = QString::fromUtf8(part);
        const auto end = endOf(count, text);
        if (part.size() == bytes.size())
            return end ? text.first(*end) : text;
        // The part's last character may go on behind it.
        if (end && *end < text.size())
            return text.first(*end);
    }
}

} // namespace glimmet
