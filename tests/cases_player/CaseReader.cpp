#include "tests/cases_player/AnswerCase.h"
#include "tests/cases_player/CaseAnswers.h"
#include "tests/cases_player/CaseExpectation.h"
#include "tests/cases_player/CaseObject.h"
#include "tests/support/FixedRegion.h"

#include <QDateTime>
#include <QFile>
#include <QJsonDocument>
#include <QTimeZone>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

void readSource(const CaseObject &root, AnswerCase &result)
{
    static const QStringList sources{ u"yahoo"_s, u"stripe"_s, u"lemonsqueezy"_s, u"dodo"_s, u"polar"_s,
        u"revenuecat"_s };
    result.source = root.requiredText(u"source"_s);
    result.name = root.requiredText(u"name"_s);
    if (!sources.contains(result.source))
        root.complain(u"source"_s, u"is unknown"_s);
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

AnswerCase readRoot(const CaseObject &root)
{
    AnswerCase result;
    readSource(root, result);
    readSettings(root.object(u"settings"_s), result);
    readClock(root.object(u"clock"_s), result);
    for (const CaseObject &page : root.objects(u"pages"_s))
        result.pages.append(readPage(page));
    readRequests(root, result);
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
    const QJsonValue root = document.isObject() ? QJsonValue(document.object()) : QJsonValue();
    AnswerCase result = readRoot({ root, {}, complaints });
    if (!complaints.isEmpty())
        return complaints.join("; "_L1);
    return result;
}

} // namespace glimmet
