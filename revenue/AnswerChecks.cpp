#include "revenue/AnswerChecks.h"

#include "platform/DiagnosticLog.h"
#include "platform/Text.h"

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// A shorter key is no key of any of the services, and masking it would only garble the log.
constexpr qsizetype shortestMasked = 8;

std::optional<QString> statusText(int status, const AnswerRules &rules)
{
    if (status == 200)
        return std::nullopt;
    if (status == 401)
        return u"⚠ invalid key"_s;
    if (status == 403)
        return rules.forbidden;
    if (status == 422 && !rules.unprocessable.isEmpty())
        return rules.unprocessable;
    return u"⚠ http "_s + QString::number(status);
}

/// The key in JSON where it has characters that must be escaped there.
QByteArray escaped(QByteArray key)
{
    return key.replace('\\', "\\\\").replace('"', "\\\"");
}

/// How the key may stand in an answer: as it is, and in JSON, which may have its slashes either way.
QByteArrayList formsOf(const QString &key)
{
    if (key.size() < shortestMasked)
        return {};
    const QByteArray bytes = key.toUtf8();
    const QByteArray inJson = escaped(bytes);
    return { bytes, inJson, QByteArray(inJson).replace("/", "\\/") };
}

/// Qt alone would make a copy of a body even where there is nothing to replace.
void mask(const QByteArray &form, QByteArray &text)
{
    if (text.contains(form))
        text.replace(form, "•••");
}

void logHead(const QByteArray &body, const AnswerRules &rules, const ApiKey &apiKey, DiagnosticLog &log)
{
    if (const auto head = firstCharacters(masked(body, apiKey), rules.headLength))
        log.text(rules.service + u' ' + rules.body + u':', *head);
}

} // namespace

QByteArray masked(QByteArray text, const ApiKey &apiKey)
{
    const QByteArrayList whole = formsOf(apiKey.characters());
    for (const QByteArray &form : whole)
        mask(form, text);
    // Headers lose the blanks around their values, so a server may know the key without them.
    for (const QByteArray &form : formsOf(apiKey.characters().trimmed()))
        if (!whole.contains(form))
            mask(form, text);
    return text;
}

HttpRequest authorizedRequest(const QByteArray &address, const ApiKey &apiKey, const QByteArray &accept)
{
    return { .address = address,
        .headers = { { "Authorization", "Bearer " + apiKey.characters().toUtf8() }, { "Accept", accept } } };
}

QString transportText(TransportFailure failure)
{
    if (failure == TransportFailure::InvalidAddress)
        return u"⚠ url error"_s;
    return u"⚠ "_s + describe(failure);
}

std::variant<QByteArray, QString> checkedBody(
    const HttpResult &result, const AnswerRules &rules, const ApiKey &apiKey, DiagnosticLog &log)
{
    if (const auto *failure = std::get_if<TransportFailure>(&result))
        return transportText(*failure);
    const auto &answer = std::get<HttpAnswer>(result);
    log.line(rules.service + " HTTP "_L1 + QString::number(answer.status));
    if (const auto text = statusText(answer.status, rules))
        return *text;
    if (answer.body.isEmpty())
        return rules.empty;
    logHead(answer.body, rules, apiKey, log);
    return answer.body;
}

} // namespace glimmet
