#include "tests/cases_player/CaseAnswers.h"

#include "tests/cases_player/CasePeriods.h"

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

using Ending = ServerAnswer::Ending;

QByteArray bodyOf(const CaseObject &page)
{
    const auto packed = page.text(u"body_base64"_s);
    if (!packed)
        return page.text(u"body"_s).value_or(QString()).toUtf8();
    const auto body =
        QByteArray::fromBase64Encoding(packed->toUtf8(), QByteArray::AbortOnBase64DecodingErrors);
    if (!body)
        page.complain(u"body_base64"_s, u"is no base64"_s);
    return *body;
}

HttpHeaders headersOf(const CaseObject &object)
{
    HttpHeaders headers;
    for (const auto &[name, value] : object.pairs(u"headers"_s))
        headers.append({ name.toUtf8(), value.toUtf8() });
    return headers;
}

void readFailure(const CaseObject &object, CasePage &page)
{
    const auto failure = object.text(u"fail"_s);
    if (failure == u"cut"_s)
        page.answer.ending = Ending::CutInBody;
    else if (failure == u"timeout"_s)
        page.answer.ending = Ending::Silence;
    else if (failure == u"refuse"_s)
        page.isRefused = true;
    else if (failure)
        object.complain(u"fail"_s, u"is neither cut nor refuse nor timeout"_s);
    // Half a body comes before the cut; there must be something to halve.
    if (page.answer.ending == Ending::CutInBody && page.answer.body.size() < 2)
        page.answer.body = "{}";
}

CaseRequest readRequest(const CaseObject &object)
{
    const QByteArray path = object.requiredText(u"path"_s).toUtf8();
    return { object.requiredText(u"method"_s).toUtf8(),
        QString::fromUtf8(QByteArray::fromPercentEncoding(path)), object.pairs(u"query"_s),
        headersOf(object) };
}

} // namespace

CasePage readPage(const CaseObject &object)
{
    CasePage page;
    const auto status = object.integer(u"status"_s);
    if (!status && !object.has(u"fail"_s))
        object.complain(u"status"_s, u"is missing"_s);
    page.answer.status = static_cast<int>(status.value_or(200));
    page.answer.body = bodyOf(object);
    page.answer.headers = headersOf(object);
    readFailure(object, page);
    return page;
}

void readRequests(const CaseObject &root, AnswerCase &result)
{
    if (root.has(u"request"_s))
        return eachPeriod(root.object(u"request"_s).object(u"by_mode"_s),
            [&result](RevenueMode period, const CaseObject &request) {
                result.requests[period] = { readRequest(request) };
            });
    if (!root.has(u"requests"_s))
        root.complain(u"requests"_s, u"is missing"_s);
    QList<CaseRequest> requests;
    for (const CaseObject &request : root.objects(u"requests"_s))
        requests.append(readRequest(request));
    for (const auto &[period, name] : rawValues<RevenueMode>)
        result.requests[period] = requests;
}

} // namespace glimmet
