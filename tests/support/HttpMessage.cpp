#include "tests/support/HttpMessage.h"

#include <algorithm>

namespace glimmet {
namespace {

const QByteArray lineEnd = "\r\n";

QList<QByteArray> linesOf(QByteArray head)
{
    head.replace(lineEnd, "\n");
    return head.split('\n');
}

/// The value is kept with the blanks that are its own: all but the one that everybody sends behind the colon.
std::pair<QByteArray, QByteArray> headerOf(const QByteArray &line)
{
    const qsizetype colon = line.indexOf(':');
    if (colon < 0)
        return { line, {} };
    const QByteArray value = line.mid(colon + 1);
    return { line.left(colon), value.startsWith(' ') ? value.mid(1) : value };
}

ReceivedRequest requestOf(const QByteArray &head)
{
    QList<QByteArray> lines = linesOf(head);
    const QList<QByteArray> words = lines.takeFirst().split(' ');
    if (words.size() != 3 || !words[2].startsWith("HTTP/1."))
        return {};
    ReceivedRequest request{ words[0], words[1], {} };
    for (const QByteArray &line : lines)
        request.headers.append(headerOf(line));
    return request;
}

} // namespace

QByteArray ReceivedRequest::header(const QByteArray &name) const
{
    return valueOf(headers, name);
}

QByteArray valueOf(const HttpHeaders &headers, const QByteArray &name)
{
    for (const auto &[headerName, value] : headers)
        if (headerName.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    return {};
}

std::optional<ReceivedRequest> takeRequest(QByteArray &received)
{
    const QByteArray headEnd = lineEnd + lineEnd;
    const qsizetype end = received.indexOf(headEnd);
    if (end < 0)
        return std::nullopt;
    const QByteArray head = received.left(end);
    received.remove(0, end + headEnd.size());
    return requestOf(head);
}

QByteArray headOf(const ServerAnswer &answer)
{
    // A reason phrase may be empty; the blank before it may not be missing.
    QByteArray head = "HTTP/1.1 " + QByteArray::number(answer.status) + ' ' + lineEnd;
    for (const auto &[name, value] : answer.headers)
        head += name + ": " + value + lineEnd;
    return head + "Content-Length: " + QByteArray::number(answer.body.size()) + lineEnd + lineEnd;
}

QList<QByteArray> piecesOf(const ServerAnswer &answer)
{
    const bool isCut = answer.raw.isEmpty() && answer.ending == ServerAnswer::Ending::CutInBody;
    const QByteArray &content = answer.raw.isEmpty() ? answer.body : answer.raw;
    const qsizetype size = isCut ? content.size() / 2 : content.size();
    const qsizetype count = std::max(answer.pieces, 1);
    QList<QByteArray> pieces;
    for (qsizetype i = 0; i < count; ++i) {
        const qsizetype begin = size * i / count;
        pieces.append(content.mid(begin, size * (i + 1) / count - begin));
    }
    return pieces;
}

bool endsConnection(const ReceivedRequest &request, const ServerAnswer &answer)
{
    const auto saysClose = [](const HttpHeaders &headers) {
        return valueOf(headers, "Connection").compare("close", Qt::CaseInsensitive) == 0;
    };
    return saysClose(request.headers) || saysClose(answer.headers);
}

} // namespace glimmet
