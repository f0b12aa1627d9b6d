#include "tests/cases_player/AnswerCase.h"
#include "tests/cases_player/CaseObject.h"
#include "tests/support/FixedRegion.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QTimeZone>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

constexpr std::array periods{ RevenueMode::Today, RevenueMode::Week, RevenueMode::Month,
    RevenueMode::AllTime };
const QString anyPeriod = u"*"_s;

/// The periods that a member's name stands for; none where it is no period's.
QList<RevenueMode> periodsNamed(const QString &name)
{
    if (name == anyPeriod)
        return { periods.begin(), periods.end() };
    const auto period = fromRawValue<RevenueMode>(name);
    return period ? QList{ *period } : QList<RevenueMode>();
}

/// Calls `read` for every period and the member that is meant for it.
template <typename Read> void eachPeriod(const CaseObject &object, Read read)
{
    for (const QString &name : object.names()) {
        const QList<RevenueMode> named = periodsNamed(name);
        if (named.isEmpty())
            object.complain(name, u"is no period"_s);
        for (const RevenueMode period : named)
            read(period, object.object(name));
    }
}

void readSettings(const CaseObject &settings, AnswerCase &result)
{
    result.key = settings.text(u"key"_s).value_or(QString());
    result.currency = settings.text(u"currency"_s);
    result.projectID = settings.text(u"project_id"_s).value_or(QString());
    if (result.isPrice())
        result.symbol = settings.requiredText(u"symbol"_s);
}

void readClock(const CaseObject &clock, AnswerCase &result)
{
    const QString now = clock.requiredText(u"now"_s);
    result.zone = clock.requiredText(u"zone"_s).toUtf8();
    if (QDateTime::fromString(now, Qt::ISODateWithMs).isValid())
        result.now = instantAt(now);
    else
        clock.complain(u"now"_s, u"is no moment"_s);
    if (!QTimeZone(result.zone).isValid())
        clock.complain(u"zone"_s, u"is no time zone"_s);
}

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
        page.answer.ending = ServerAnswer::Ending::CutInBody;
    else if (failure == u"timeout"_s)
        page.answer.ending = ServerAnswer::Ending::Silence;
    else if (failure == u"refuse"_s)
        page.isRefused = true;
    else if (failure)
        object.complain(u"fail"_s, u"is neither cut nor refuse nor timeout"_s);
    // Half a body comes before the cut; there must be something to halve.
    if (failure == u"cut"_s && page.answer.body.size() < 2)
        page.answer.body = "{}";
}

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

CaseRequest readRequest(const CaseObject &object)
{
    const QByteArray path = object.requiredText(u"path"_s).toUtf8();
    return { object.requiredText(u"method"_s).toUtf8(),
        QString::fromUtf8(QByteArray::fromPercentEncoding(path)), object.pairs(u"query"_s),
        headersOf(object) };
}

void readRequests(const CaseObject &root, AnswerCase &result, QStringList &complaints)
{
    if (root.has(u"request"_s))
        return eachPeriod(root.object(u"request"_s).object(u"by_mode"_s),
            [&](RevenueMode period, const CaseObject &object) {
                result.requests[period] = { readRequest(object) };
            });
    if (!root.has(u"requests"_s))
        root.complain(u"requests"_s, u"is missing"_s);
    QList<CaseRequest> requests;
    for (const QJsonValue &value : root.list(u"requests"_s))
        requests.append(readRequest({ value, u"requests[%1]"_s.arg(requests.size()), complaints }));
    for (const RevenueMode period : periods)
        result.requests[period] = requests;
}

void readFigures(const CaseObject &expect, AnswerCase &result)
{
    eachPeriod(expect, [&](RevenueMode period, const CaseObject &figures) {
        for (const QString &name : figures.names()) {
            const auto metric = fromRawValue<RevenueMetric>(name);
            if (!metric)
                figures.complain(name, u"is no figure"_s);
            const QString text = result.isFatal ? QString() : figures.requiredText(name);
            result.figures.append({ period, metric.value_or(RevenueMetric::Revenue), text });
        }
    });
    if (result.figures.isEmpty())
        expect.complain(u"expect"_s, u"names no figure"_s);
}

QList<CaseFigure> everyFigure()
{
    QList<CaseFigure> figures;
    for (const RevenueMode period : periods)
        for (const auto &metric : rawValues<RevenueMetric>)
            figures.append({ period, metric.first, {} });
    return figures;
}

CryptoPrice readRecord(const CaseObject &object)
{
    CryptoPrice record{ object.requiredText(u"id"_s), object.requiredNumber(u"price"_s),
        object.requiredNumber(u"change"_s), {} };
    for (const QJsonValue &close : object.list(u"history"_s)) {
        if (!close.isDouble())
            object.complain(u"history"_s, u"holds something else than numbers"_s);
        record.history.append(close.toDouble());
    }
    return record;
}

void readPrice(const CaseObject &expect, CasePrice &price)
{
    if (!expect.has(u"record"_s))
        expect.complain(u"record"_s, u"is missing"_s);
    else if (!expect.isNull(u"record"_s))
        price.record = readRecord(expect.object(u"record"_s));
    price.menuBarString = expect.text(u"menuBarString"_s);
    if (expect.has(u"log"_s)) {
        const auto line = expect.text(u"log"_s);
        price.output = line ? line->toUtf8() + '\n' : QByteArray();
    }
}

void readTotals(const CaseObject &totals, AnswerCase &result)
{
    eachPeriod(totals, [&](RevenueMode period, const CaseObject &sums) {
        for (const QString &name : sums.names())
            result.totals[period][name] = sums.integer(name).value_or(0);
    });
}

void readExpectation(const CaseObject &root, AnswerCase &result)
{
    result.isFatal = root.flag(u"fatal"_s);
    if (result.isPrice())
        readPrice(root.object(u"expect"_s), result.price);
    else if (result.isFatal && !root.has(u"expect"_s))
        result.figures = everyFigure();
    else
        readFigures(root.object(u"expect"_s), result);
    if (root.has(u"totals"_s))
        readTotals(root.object(u"totals"_s), result);
    for (const QJsonValue &line : root.list(u"log"_s))
        result.log.append(line.toString());
}

AnswerCase readRoot(const CaseObject &root, QStringList &complaints)
{
    static const QStringList sources{ u"yahoo"_s, u"stripe"_s, u"lemonsqueezy"_s, u"dodo"_s, u"polar"_s,
        u"revenuecat"_s };
    AnswerCase result;
    result.source = root.requiredText(u"source"_s);
    result.name = root.requiredText(u"name"_s);
    if (!sources.contains(result.source))
        root.complain(u"source"_s, u"is unknown"_s);
    readSettings(root.object(u"settings"_s), result);
    readClock(root.object(u"clock"_s), result);
    for (const QJsonValue &page : root.list(u"pages"_s))
        result.pages.append(readPage({ page, u"pages[%1]"_s.arg(result.pages.size()), complaints }));
    readRequests(root, result, complaints);
    readExpectation(root, result);
    return result;
}

} // namespace

std::variant<AnswerCase, QString> readCase(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return u"cannot be opened"_s;
    // Within a text a byte order mark is a character, which Qt would take away.
    const QByteArray bytes = file.readAll().replace("\xEF\xBB\xBF", "\\ufeff");
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        return u"is no JSON: "_s + error.errorString();
    QStringList complaints;
    AnswerCase result =
        readRoot({ document.isObject() ? document.object() : QJsonValue(), {}, complaints }, complaints);
    if (!complaints.isEmpty())
        return complaints.join("; "_L1);
    return result;
}

} // namespace glimmet
