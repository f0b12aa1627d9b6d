#include "platform/keys/SecretService.h"

#include "platform/keys/SecretServiceLink.h"
#include "platform/keys/SecretServiceTypes.h"

#include <QDBusVariant>

namespace glimmet {
namespace {

using namespace SecretServiceNames;
using Paths = QList<QDBusObjectPath>;

const QString labelProperty = QStringLiteral("org.freedesktop.Secret.Item.Label");
const QString labelOfCollection = QStringLiteral("org.freedesktop.Secret.Collection.Label");
const QString attributesProperty = QStringLiteral("org.freedesktop.Secret.Item.Attributes");

template <typename Value> Value valueAt(int index, const QVariantList &arguments)
{
    return qdbus_cast<Value>(arguments.at(index));
}

/// What came of making something: its path, or the prompt that comes before.
SecretChange changeOf(const QVariantList &madeAndPrompt)
{
    if (!isNone(valueAt<QDBusObjectPath>(0, madeAndPrompt)))
        return { SecretChange::State::Made, {} };
    const auto prompt = valueAt<QDBusObjectPath>(1, madeAndPrompt);
    return { isNone(prompt) ? SecretChange::State::Failed : SecretChange::State::AwaitsPrompt, prompt };
}

} // namespace

std::optional<SecretMatches> SecretService::find(const SecretAttributes &attributes, CallBudget::Call &call)
{
    if (m_isTrusting && m_isSeenOpen && m_link.isOpen()) {
        m_obstacle = KeyObstacle::None;
        const auto matches = search(attributes, call);
        // A collection that was locked meanwhile may keep to itself what is in it.
        const bool isAny = matches && !(matches->unlocked.isEmpty() && matches->locked.isEmpty());
        if (matches && (isAny || isLocked(m_collection, collectionInterface, call) == false))
            return matches;
    }
    m_obstacle = findCollection(call);
    m_isSeenOpen = m_obstacle == KeyObstacle::None;
    if (m_obstacle != KeyObstacle::None)
        return std::nullopt;
    auto matches = search(attributes, call);
    if (!matches)
        m_obstacle = KeyObstacle::NoService;
    return matches;
}

SecretChange SecretService::open(const SecretAttributes &attributes, bool mayMake, CallBudget::Call &call)
{
    switch (findCollection(call)) {
    case KeyObstacle::NoCollection:
        return mayMake ? make(call) : SecretChange();
    case KeyObstacle::Locked:
        return unlock({ m_collection }, call);
    case KeyObstacle::None:
        break;
    default:
        return {};
    }
    const auto matches = search(attributes, call);
    if (!matches)
        return {};
    return matches->locked.isEmpty() ? SecretChange{ SecretChange::State::Made, {} }
                                     : unlock(matches->locked, call);
}

std::optional<QByteArray> SecretService::valueOf(const QDBusObjectPath &item, CallBudget::Call &call) const
{
    QDBusMessage message = m_link.method(item.path(), itemInterface, QStringLiteral("GetSecret"));
    message << QVariant::fromValue(m_link.session());
    const auto answer = m_link.ask(message, QStringLiteral("(oayays)"), call);
    if (!answer)
        return std::nullopt;
    QByteArray value = valueAt<SecretOfItem>(0, *answer).value;
    // KWallet gives a text of nothing for an item that is locked.
    if (value.isEmpty() && isLocked(item, itemInterface, call) != false)
        return std::nullopt;
    return value;
}

SecretChange SecretService::remove(const QDBusObjectPath &item, CallBudget::Call &call) const
{
    const QDBusMessage message = m_link.method(item.path(), itemInterface, QStringLiteral("Delete"));
    const auto answer = m_link.ask(message, QStringLiteral("o"), call);
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
    const QByteArray &text, CallBudget::Call &call, std::chrono::milliseconds patience) const
{
    const QVariantMap properties{ { labelProperty, label },
        { attributesProperty, QVariant::fromValue(attributes) } };
    const SecretOfItem secret{ m_link.session(), {}, text, QStringLiteral("text/plain") };
    const bool replace = true;
    QDBusMessage message =
        m_link.method(m_collection.path(), collectionInterface, QStringLiteral("CreateItem"));
    message << properties << QVariant::fromValue(secret) << replace;
    const auto answer = m_link.ask(message, QStringLiteral("oo"), call, patience);
    if (!answer)
        return {};
    return changeOf(*answer);
}

KeyObstacle SecretService::findCollection(CallBudget::Call &call)
{
    const auto collection = defaultCollection(call);
    if (!collection)
        return KeyObstacle::NoService;
    if (isNone(*collection))
        return KeyObstacle::NoCollection;
    m_collection = *collection;
    const std::optional<bool> locked = isLocked(m_collection, collectionInterface, call);
    if (!locked)
        return KeyObstacle::NoService;
    return *locked ? KeyObstacle::Locked : KeyObstacle::None;
}

std::optional<QDBusObjectPath> SecretService::defaultCollection(CallBudget::Call &call)
{
    const bool wasOpen = m_link.isOpen();
    auto collection = readAlias(call);
    if (collection || !wasOpen || call.wasUnanswered())
        return collection;
    // The service may have been replaced while the link did not listen to the bus.
    m_link.close();
    return readAlias(call);
}

std::optional<QDBusObjectPath> SecretService::readAlias(CallBudget::Call &call)
{
    if (!m_link.open(call))
        return std::nullopt;
    const QDBusMessage question = defaultCollectionQuestion(m_link.owner());
    const auto answer = m_link.ask(question, QStringLiteral("o"), call);
    if (!answer)
        return std::nullopt;
    return valueAt<QDBusObjectPath>(0, *answer);
}

std::optional<bool> SecretService::isLocked(
    const QDBusObjectPath &object, const QString &interface, CallBudget::Call &call) const
{
    const QDBusMessage question = lockQuestion(m_link.owner(), object, interface);
    const auto answer = m_link.ask(question, QStringLiteral("v"), call);
    if (!answer)
        return std::nullopt;
    return valueAt<QDBusVariant>(0, *answer).variant().toBool();
}

std::optional<SecretMatches> SecretService::search(
    const SecretAttributes &attributes, CallBudget::Call &call) const
{
    const auto answer = m_link.ask(itemsQuestion(m_link.owner(), attributes), QStringLiteral("aoao"), call);
    if (!answer)
        return std::nullopt;
    return SecretMatches{ valueAt<Paths>(0, *answer), valueAt<Paths>(1, *answer) };
}

SecretChange SecretService::make(CallBudget::Call &call) const
{
    const QVariantMap properties{ { labelOfCollection, QStringLiteral("Default keyring") } };
    QDBusMessage message = m_link.method(servicePath, serviceInterface, QStringLiteral("CreateCollection"));
    message << properties << defaultAlias;
    const auto answer = m_link.ask(message, QStringLiteral("oo"), call);
    return answer ? changeOf(*answer) : SecretChange();
}

SecretChange SecretService::unlock(const Paths &objects, CallBudget::Call &call) const
{
    QDBusMessage message = m_link.method(servicePath, serviceInterface, QStringLiteral("Unlock"));
    message << QVariant::fromValue(objects);
    const auto answer = m_link.ask(message, QStringLiteral("aoo"), call);
    if (!answer)
        return {};
    const auto prompt = valueAt<QDBusObjectPath>(1, *answer);
    return { isNone(prompt) ? SecretChange::State::Made : SecretChange::State::AwaitsPrompt, prompt };
}

} // namespace glimmet
