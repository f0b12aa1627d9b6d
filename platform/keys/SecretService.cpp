#include "platform/keys/SecretService.h"

#include "platform/keys/SecretServiceLink.h"
#include "platform/keys/SecretServiceTypes.h"

#include <QDBusPendingCall>
#include <QDBusVariant>

namespace glimmet {
namespace {

using namespace SecretServiceNames;
using Paths = QList<QDBusObjectPath>;

const QString labelProperty = QStringLiteral("org.freedesktop.Secret.Item.Label");
const QString attributesProperty = QStringLiteral("org.freedesktop.Secret.Item.Attributes");

template <typename Value> Value valueAt(int index, const QVariantList &arguments)
{
    return qdbus_cast<Value>(arguments.at(index));
}

} // namespace

std::optional<SecretMatches> SecretService::find(
    const SecretAttributes &attributes, const CallBudget::Call &call)
{
    const auto collection = defaultCollection(call);
    if (!collection || isNone(*collection))
        return std::nullopt;
    m_collection = *collection;
    const std::optional<bool> locked = isLocked(call);
    if (!locked || (*locked && !unlock(call)))
        return std::nullopt;
    QDBusMessage search = m_link.method(servicePath, serviceInterface, QStringLiteral("SearchItems"));
    search << QVariant::fromValue(attributes);
    const auto answer = m_link.call(search, QStringLiteral("aoao"), call.remaining());
    if (!answer)
        return std::nullopt;
    return SecretMatches{ valueAt<Paths>(0, *answer), valueAt<Paths>(1, *answer) };
}

std::optional<QByteArray> SecretService::valueOf(
    const QDBusObjectPath &item, const CallBudget::Call &call) const
{
    QDBusMessage message = m_link.method(item.path(), itemInterface, QStringLiteral("GetSecret"));
    message << QVariant::fromValue(m_link.session());
    const auto answer = m_link.call(message, QStringLiteral("(oayays)"), call.remaining());
    if (!answer)
        return std::nullopt;
    return valueAt<SecretOfItem>(0, *answer).value;
}

SecretChange SecretService::remove(const QDBusObjectPath &item, std::chrono::milliseconds timeout) const
{
    const QDBusMessage message = m_link.method(item.path(), itemInterface, QStringLiteral("Delete"));
    const auto answer = m_link.call(message, QStringLiteral("o"), timeout);
    if (!answer)
        return {};
    const auto prompt = valueAt<QDBusObjectPath>(0, *answer);
    return { isNone(prompt) ? SecretChange::State::Made : SecretChange::State::AwaitsPrompt, prompt };
}

void SecretService::startRemoval(const QDBusObjectPath &item) const
{
    m_link.connection().send(m_link.method(item.path(), itemInterface, QStringLiteral("Delete")));
}

SecretChange SecretService::add(const SecretAttributes &attributes, const QString &label,
    const QByteArray &text, std::chrono::milliseconds timeout) const
{
    const QVariantMap properties{ { labelProperty, label },
        { attributesProperty, QVariant::fromValue(attributes) } };
    const SecretOfItem secret{ m_link.session(), {}, text, QStringLiteral("text/plain") };
    const bool replace = true;
    QDBusMessage message =
        m_link.method(m_collection.path(), collectionInterface, QStringLiteral("CreateItem"));
    message << properties << QVariant::fromValue(secret) << replace;
    const auto answer = m_link.call(message, QStringLiteral("oo"), timeout);
    if (!answer)
        return {};
    if (!isNone(valueAt<QDBusObjectPath>(0, *answer)))
        return { SecretChange::State::Made, {} };
    const auto prompt = valueAt<QDBusObjectPath>(1, *answer);
    return { isNone(prompt) ? SecretChange::State::Failed : SecretChange::State::AwaitsPrompt, prompt };
}

void SecretService::start(const QDBusObjectPath &prompt) const
{
    QDBusMessage message = m_link.method(prompt.path(), promptInterface, QStringLiteral("Prompt"));
    const QString noWindow;
    message << noWindow;
    m_link.connection().asyncCall(message);
}

std::optional<QDBusObjectPath> SecretService::defaultCollection(const CallBudget::Call &call)
{
    const bool wasOpen = m_link.isOpen();
    auto collection = readAlias(call);
    if (collection || !wasOpen || call.hasExpired())
        return collection;
    // The service may have been replaced while the link did not listen to the bus.
    m_link.close();
    return readAlias(call);
}

std::optional<QDBusObjectPath> SecretService::readAlias(const CallBudget::Call &call)
{
    if (!m_link.open(call))
        return std::nullopt;
    const QDBusMessage question = defaultCollectionQuestion(m_link.owner());
    const auto answer = m_link.call(question, QStringLiteral("o"), call.remaining());
    if (!answer)
        return std::nullopt;
    return valueAt<QDBusObjectPath>(0, *answer);
}

std::optional<bool> SecretService::isLocked(const CallBudget::Call &call) const
{
    const QDBusMessage question = lockQuestion(m_link.owner(), m_collection);
    const auto answer = m_link.call(question, QStringLiteral("v"), call.remaining());
    if (!answer)
        return std::nullopt;
    return valueAt<QDBusVariant>(0, *answer).variant().toBool();
}

bool SecretService::unlock(const CallBudget::Call &call)
{
    if (m_hasAskedToUnlock)
        return false;
    QDBusMessage message = m_link.method(servicePath, serviceInterface, QStringLiteral("Unlock"));
    message << QVariant::fromValue(Paths{ m_collection });
    const auto answer = m_link.call(message, QStringLiteral("aoo"), call.remaining());
    if (!answer)
        return false;
    m_hasAskedToUnlock = true;
    const auto prompt = valueAt<QDBusObjectPath>(1, *answer);
    if (isNone(prompt))
        return isLocked(call) == false;
    start(prompt);
    return false;
}

} // namespace glimmet
