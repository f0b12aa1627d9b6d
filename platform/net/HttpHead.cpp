#include "platform/net/HttpHead.h"

#include <QList>

#include <algorithm>

namespace glimmet {
namespace {

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// "HTTP/1.1 200 OK": the three digits behind the first blank (RFC 9112, 4); nothing where there are others.
std::optional<int> statusIn(QByteArrayView line)
{
    const QByteArrayView behind = line.sliced(std::max<qsizetype>(line.indexOf(' '), 0)).trimmed();
    const qsizetype blank = behind.indexOf(' ');
    const QByteArrayView status = blank < 0 ? behind : behind.first(blank);
    if (status.size() != 3 || !std::all_of(status.begin(), status.end(), isDigit))
        return std::nullopt;
    return status.toInt();
}

/// A length that 64 bits with a sign can hold. RFC 9110, 8.6: digits alone.
std::optional<qint64> lengthIn(const QByteArray &text)
{
    bool fits = false;
    const qint64 length = text.toLongLong(&fits);
    if (!fits || !std::all_of(text.begin(), text.end(), isDigit))
        return std::nullopt;
    return length;
}

bool isName(QByteArrayView name, const char *other)
{
    return name.compare(other, Qt::CaseInsensitive) == 0;
}

} // namespace

bool HttpHead::append(QByteArrayView line)
{
    m_size += line.size();
    if (m_size > longest)
        return false;
    if (m_isComplete) // Lines behind the body say nothing that is asked for.
        return true;
    if (m_status == 0)
        return begin(line);
    const QByteArrayView content = line.trimmed();
    if (content.isEmpty()) {
        end();
        return true;
    }
    // RFC 9112, 5.2: the rest of the line before, and no header.
    if (line.startsWith(' ') || line.startsWith('\t'))
        return true;
    const qsizetype colon = content.indexOf(':');
    return colon < 0 || take(content.first(colon), content.sliced(colon + 1).trimmed().toByteArray());
}

bool HttpHead::begin(QByteArrayView statusLine)
{
    const qsizetype size = m_size;
    *this = {};
    m_size = size;
    const auto status = statusLine.startsWith("HTTP/") ? statusIn(statusLine) : std::nullopt;
    m_status = status.value_or(0);
    return status.has_value();
}

void HttpHead::end()
{
    m_isComplete = m_status >= 200;
    if (!m_isComplete) // Another answer is behind an interim one.
        m_status = 0;
}

bool HttpHead::take(QByteArrayView name, const QByteArray &value)
{
    if (isName(name, "Content-Length"))
        return takeLength(value);
    if (isName(name, "Transfer-Encoding")) {
        // No other was asked for, and the end of any other would be that of the connection.
        m_isChunked = isName(value, "chunked");
        return m_isChunked;
    }
    if (isName(name, "Content-Encoding"))
        m_contentEncoding = value;
    else if (isName(name, "Location"))
        m_location = value;
    return true;
}

bool HttpHead::takeLength(const QByteArray &value)
{
    // RFC 9110, 8.6: a list of the same length is that length.
    for (const QByteArray &part : value.split(',')) {
        const auto length = lengthIn(part.trimmed());
        if (!length || m_length.value_or(*length) != *length)
            return false;
        m_length = length;
    }
    return true;
}

std::optional<qint64> HttpHead::bodyLength() const
{
    // RFC 9112, 6.3: chunks take precedence.
    return m_isChunked || hasNoBody() ? std::nullopt : m_length;
}

bool HttpHead::isBodyEndedByClosing() const
{
    return !m_isChunked && !m_length && !hasNoBody();
}

} // namespace glimmet
