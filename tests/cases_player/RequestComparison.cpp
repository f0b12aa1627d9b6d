#include "tests/cases_player/RequestComparison.h"

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

using Query = QList<std::pair<QString, QString>>;

QString decoded(const QByteArray &text)
{
    return QString::fromUtf8(QByteArray::fromPercentEncoding(text));
}

/// As servers read a query: a plus that means itself is sent as %2B.
QString decodedValue(QByteArray text)
{
    return decoded(text.replace('+', ' '));
}

QString pathOf(const QByteArray &target)
{
    return decoded(target.split('?').first());
}

Query queryOf(const QByteArray &target)
{
    Query query;
    const qsizetype mark = target.indexOf('?');
    if (mark < 0)
        return query;
    for (const QByteArray &piece : target.mid(mark + 1).split('&')) {
        const QByteArray name = piece.split('=').first();
        query.append({ decodedValue(name), decodedValue(piece.mid(name.size() + 1)) });
    }
    return query;
}

QString text(const Query &query)
{
    QStringList pairs;
    for (const auto &[name, value] : query)
        pairs.append(name + u'=' + value);
    return u'?' + pairs.join(u'&');
}

void compareOne(
    const QString &what, const CaseRequest &expected, const ReceivedRequest &got, Differences &differences)
{
    differences.compare(
        what + ", method"_L1, QString::fromUtf8(expected.method), QString::fromUtf8(got.method));
    differences.compare(what + ", path"_L1, expected.path, pathOf(got.target));
    if (expected.query != queryOf(got.target))
        differences.note(what + ", query"_L1, text(expected.query), text(queryOf(got.target)));
    for (const auto &[name, value] : expected.headers)
        differences.compare(what + ", header "_L1 + QString::fromUtf8(name), QString::fromUtf8(value),
            QString::fromUtf8(got.header(name)));
}

QList<CaseRequest> requestsToArrive(const AnswerCase &played, RevenueMode period)
{
    QList<CaseRequest> requests = played.requests.value(period);
    const auto refused = played.refusedPage();
    if (refused && *refused < requests.size())
        requests.removeAt(*refused);
    return requests;
}

} // namespace

Differences compareRequests(
    const AnswerCase &played, RevenueMode period, const QList<ReceivedRequest> &received)
{
    Differences differences;
    const QList<CaseRequest> expected = requestsToArrive(played, period);
    differences.compare(
        u"number of requests"_s, QString::number(expected.size()), QString::number(received.size()));
    for (qsizetype i = 0; i < std::min(expected.size(), received.size()); ++i)
        compareOne(u"request %1"_s.arg(i + 1), expected[i], received[i], differences);
    return differences;
}

} // namespace glimmet
