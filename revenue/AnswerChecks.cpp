#include "revenue/AnswerChecks.h"

#include "platform/DiagnosticLog.h"
#include "platform/Text.h"

#include <algorithm>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// A shorter key is no key of any of the services, and masking it would only garble the log.
constexpr qsizetype shortestMasked = 8;
constexpr qsizetype byteOrderMark = 3; // bytes
/// So much of a body holds what is logged of it, but where the key stands in it many times, in bytes.
constexpr qsizetype nearEnough = qsizetype(8) << 10;

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

/// The key with a backslash before each of `characters`, as JSON has them.
SecretBytes escaped(const QByteArray &key, QByteArrayView characters)
{
    QByteArray text;
    text.reserve(2 * key.size()); // No shorter one is left behind on the way.
    for (const char character : key) {
        if (characters.contains(character))
            text.append('\\');
        text.append(character);
    }
    return SecretBytes(std::move(text));
}

/// How the key may stand in an answer: as it is, and in JSON, which may have its slashes either way. Headers
/// lose the blanks around their values, so a server may know the key without them.
QList<SecretBytes> formsOf(const ApiKey &apiKey)
{
    QList<SecretBytes> forms;
    for (const ApiKey &key : { apiKey, ApiKey(apiKey.characters().trimmed()) }) {
        if (key.characters().size() < shortestMasked)
            continue;
        const SecretBytes bytes(key.characters().toUtf8());
        for (const SecretBytes &form : { bytes, escaped(*bytes, "\\\""), escaped(*bytes, "\\\"/") })
            if (!forms.contains(form))
                forms.append(form);
    }
    return forms;
}

QByteArray masked(QByteArray text, const QList<SecretBytes> &forms)
{
    for (const SecretBytes &form : forms)
        if (text.contains(*form)) // Qt would make a copy even where there is nothing to replace.
            text.replace(*form, "•••");
    return text;
}

/// The first characters of the masked body, if they are found without a look at the rest of it.
std::optional<QString> nearHead(const QByteArray &body, int length, const QList<SecretBytes> &forms)
{
    QByteArray part = masked(wholeCodePoints(body, nearEnough).toByteArray(), forms);
    // At its end the beginning of a key may be left.
    qsizetype longestForm = 0;
    for (const SecretBytes &form : forms)
        longestForm = std::max(longestForm, form->size());
    part = wholeCodePoints(part, std::max<qsizetype>(part.size() - longestForm, 0)).toByteArray();
    const auto head = firstCharacters(part, length);
    // What takes all of the part, but perhaps a byte order mark, may go on behind it.
    const bool endsBefore = head && head->toUtf8().size() + byteOrderMark < part.size();
    return endsBefore ? head : std::nullopt;
}

/// The first `length` characters of `body` as they are without the key. Nothing where it is no text.
std::optional<QString> maskedHead(const QByteArray &body, int length, const ApiKey &apiKey)
{
    if (!isUtf8(body))
        return std::nullopt;
    const QList<SecretBytes> forms = formsOf(apiKey);
    if (body.size() > nearEnough)
        if (auto head = nearHead(body, length, forms))
            return head;
    return firstCharacters(masked(body, forms), length);
}

void logHead(const QByteArray &body, const AnswerRules &rules, const ApiKey &apiKey, DiagnosticLog &log)
{
    if (const auto head = maskedHead(body, rules.headLength, apiKey))
        log.privateText(rules.service + u' ' + rules.body + u':', *head);
}

} // namespace

QByteArray masked(QByteArray text, const ApiKey &apiKey)
{
    return masked(std::move(text), formsOf(apiKey));
}

HttpRequest authorizedRequest(const QByteArray &address, const ApiKey &apiKey, const QByteArray &accept)
{
    const SecretBytes key(apiKey.characters().toUtf8());
    return { .address = address,
        .headers = { { "Accept", accept } },
        .authorization = SecretBytes("Bearer " + *key) };
}

RevenueResult transportError(TransportFailure failure)
{
    if (failure == TransportFailure::InvalidAddress)
        return { u"⚠ url error"_s };
    return { u"⚠ "_s + describe(failure), lacksNetwork(failure) };
}

std::variant<QByteArray, RevenueResult> checkedBody(
    const HttpResult &result, const AnswerRules &rules, const ApiKey &apiKey, DiagnosticLog &log)
{
    if (const auto *failure = std::get_if<TransportFailure>(&result))
        return transportError(*failure);
    const auto &answer = std::get<HttpAnswer>(result);
    log.line(rules.service + " HTTP "_L1 + QString::number(answer.status));
    if (const auto text = statusText(answer.status, rules))
        return RevenueResult{ *text };
    if (answer.body.isEmpty())
        return RevenueResult{ rules.empty };
    logHead(answer.body, rules, apiKey, log);
    return answer.body;
}

} // namespace glimmet
