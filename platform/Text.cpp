#include "platform/Text.h"

#include <QStringConverter>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <array>
#include <charconv>

#include <simdjson.h>

namespace glimmet {
namespace {

bool isBlank(QChar character)
{
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

constexpr auto wholeText = QStringConverter::Flag::Stateless | QStringConverter::Flag::ConvertInitialBom;

constexpr qsizetype firstGuess = 1024;

/// Whether each of the first `count` bytes is a character by itself, and the next one begins another.
bool areCharacters(QByteArrayView bytes, int count)
{
    const QByteArrayView head = bytes.first(std::min<qsizetype>(count + 1, bytes.size()));
    // A carriage return and a line feed are one.
    return std::all_of(
        head.begin(), head.end(), [](char byte) { return static_cast<uchar>(byte) < 0x80 && byte != '\r'; });
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

QString trimmedBlanks(const QString &text)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && isBlank(text.at(first)))
        ++first;
    while (last > first && isBlank(text.at(last - 1)))
        --last;
    return text.sliced(first, last - first);
}

bool isAllBlank(const QString &text)
{
    return std::all_of(text.begin(), text.end(), isBlank);
}

QString shortened(const QString &text, int most)
{
    const std::optional<qsizetype> end = endOf(most, text);
    const bool fits = !end || *end == text.size();
    return fits ? text : text.first(endOf(most - 1, text).value_or(0)) + u'…';
}

QString oneDecimal(double value)
{
    std::array<char, 320> digits; // The largest double has 309 before its point.
    const auto written = std::to_chars(digits.begin(), digits.end(), value, std::chars_format::fixed, 1).ptr;
    return QString::fromLatin1(digits.begin(), written - digits.begin());
}

std::optional<QByteArray> exactUtf8(const QString &text)
{
    QStringEncoder encoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QByteArray bytes = encoder(text);
    return encoder.hasError() ? std::nullopt : std::optional(bytes);
}

std::optional<QString> textFromUtf8(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringConverter::Utf8, wholeText);
    const QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

bool isUtf8(QByteArrayView bytes)
{
    return simdjson::validate_utf8(bytes.data(), static_cast<size_t>(bytes.size()));
}

QByteArrayView wholeCodePoints(QByteArrayView bytes, qsizetype size)
{
    const auto continues = [&bytes](qsizetype at) { return (static_cast<uchar>(bytes[at]) & 0xC0) == 0x80; };
    size = std::min(size, bytes.size());
    while (size > 0 && size < bytes.size() && continues(size))
        --size;
    return bytes.first(size);
}

std::optional<QString> firstCharacters(QByteArrayView bytes, int count)
{
    if (!isUtf8(bytes))
        return std::nullopt;
    if (areCharacters(bytes, count))
        return QString::fromLatin1(bytes.first(std::min<qsizetype>(count, bytes.size())));
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
