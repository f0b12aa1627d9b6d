#include "tests/cases_player/CaseExpectation.h"

#include "tests/cases_player/CasePeriods.h"

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

void readFigures(const CaseObject &expect, AnswerCase &result)
{
    eachPeriod(expect, [&result](RevenueMode period, const CaseObject &figures) {
        for (const QString &name : figures.names()) {
            const auto metric = fromRawValue<RevenueMetric>(name);
            if (!metric)
                figures.complain(name, u"is no figure"_s);
            const QString text = result.isFatal ? QString() : figures.requiredText(name);
            result.figures.append({ period, metric.value_or(RevenueMetric::Revenue), text });
        }
    });
}

QList<CaseFigure> everyFigure()
{
    QList<CaseFigure> figures;
    for (const auto &period : rawValues<RevenueMode>)
        for (const auto &metric : rawValues<RevenueMetric>)
            figures.append({ period.first, metric.first, {} });
    return figures;
}

CryptoPrice readRecord(const CaseObject &object)
{
    return { object.requiredText(u"id"_s), object.requiredNumber(u"price"_s),
        object.requiredNumber(u"change"_s), object.numbers(u"history"_s) };
}

void readPrice(const CaseObject &expect, CasePrice &price)
{
    if (expect.has(u"record"_s))
        price.record = readRecord(expect.object(u"record"_s));
    else if (!expect.names().contains(u"record"_s))
        expect.complain(u"record"_s, u"is missing"_s);
    price.menuBarString = expect.text(u"menuBarString"_s);
    const auto line = expect.text(u"log"_s);
    if (line)
        price.output = line->toUtf8() + '\n';
    else if (expect.names().contains(u"log"_s))
        price.output = QByteArray();
}

void readTotals(const CaseObject &totals, AnswerCase &result)
{
    eachPeriod(totals, [&result](RevenueMode period, const CaseObject &sums) {
        for (const QString &name : sums.names())
            result.totals[period][name] = sums.integer(name).value_or(0);
    });
}

} // namespace

void readExpectation(const CaseObject &root, AnswerCase &result)
{
    result.isFatal = root.flag(u"fatal"_s);
    if (result.isPrice())
        readPrice(root.object(u"expect"_s), result.price);
    else if (result.isFatal && !root.has(u"expect"_s))
        result.figures = everyFigure();
    else
        readFigures(root.object(u"expect"_s), result);
    if (!result.isPrice() && result.figures.isEmpty())
        root.complain(u"expect"_s, u"names no figure"_s);
    if (root.has(u"totals"_s))
        readTotals(root.object(u"totals"_s), result);
    result.log = root.texts(u"log"_s);
}

} // namespace glimmet
