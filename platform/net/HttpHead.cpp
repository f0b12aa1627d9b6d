#include "platform/net/HttpHead.h"

#include <QList>

#include <algorithm>

namespace glimmet {
namespace {

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// "HTTP/1.1 200 OK": what stands behind the first blank.
int statusIn(QByteArrayView line)
{
    const QByteArrayView behind = line.sliced(std::max<qsizetype>(line.indexOf(' '), 0));
    return behind.trimmed().first(std::min<qsizetype>(behind.trimmed().size(), 3)).toInt();
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
    if (line.startsWith("HTTP/")) {
        begin(line);
        return true;
    }
    const QByteArrayView content = line.trimmed();
    if (content.isEmpty()) {
        m_isComplete = m_status >= 200;
        return true;
    }
    const qsizetype colon = content.indexOf(':');
    return colon < 0 || take(content.first(colon), content.sliced(colon + 1).trimmed().toByteArray());
}

void HttpHead::begin(QByteArrayView statusLine)
{
    const qsizetype size = m_size;
    *this = {};
    m_size = size;
    m_status = statusIn(statusLine);
}

bool HttpHead::take(QByteArrayView name, const QByteArray &value)
{
    if (isName(name, "Content-Length"))
        return takeLength(value);
    if (isName(name, "Transfer-Encoding"))
        m_isChunked = true;
    else if (isName(name, "Content-Encoding"))
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
