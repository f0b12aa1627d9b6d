#include "platform/keys/KeychainHelper.h"

#include "platform/ProgramName.h"
#include "platform/Utf8.h"
#include "platform/bus/SessionBus.h"

#include <algorithm>

namespace glimmet {
namespace {

using namespace std::chrono_literals;
using State = SecretChange::State;

SecretAttributes sought(KeychainKey key)
{
    return { { QStringLiteral("service"), programName }, { QStringLiteral("account"), accountName(key) } };
}

SecretAttributes written(KeychainKey key)
{
    SecretAttributes attributes = sought(key);
    attributes.insert(QStringLiteral("xdg:schema"), programName);
    return attributes;
}

/// Half of what is left, so that the step after this one has its time too. It is enough to send the message
/// in any case: a service that hangs may still make a removal, and must then find the addition behind it.
std::chrono::milliseconds share(const CallBudget::Call &call)
{
    return std::max(call.remaining() / 2, 1ms);
}

/// Without a "/": some services make a path of it.
QString label(KeychainKey key)
{
    return QStringLiteral("glimmet ") + accountName(key);
}

} // namespace

KeychainHelper::KeychainHelper(const SessionBus &bus, QObject *parent)
    : KeyStore(parent)
    , m_budget(3s, 300ms)
    , m_link(bus)
    , m_service(m_link)
    , m_watch(m_link, bus)
{
    connect(&m_watch, &SecretServiceWatch::readable, this, &KeyStore::becameReadable);
    QMetaObject::invokeMethod(
        this, [this] { m_budget.endStartUp(); }, Qt::QueuedConnection);
}

bool KeychainHelper::save(const ApiKey &value, KeychainKey key)
{
    const std::optional<QByteArray> text = exactUtf8(value.characters());
    if (!text || m_unread.contains(key))
        return false;
    const CallBudget::Call call(m_budget);
    const bool isSaved = replace(key, *text, call);
    note(isSaved, call);
    return isSaved;
}

LoadedKey KeychainHelper::load(KeychainKey key)
{
    const CallBudget::Call call(m_budget);
    LoadedKey loaded = read(key, call);
    const bool isDefinite = !std::holds_alternative<KeyUnavailable>(loaded);
    if (isDefinite)
        m_unread.erase(key);
    else
        m_unread.insert(key);
    note(isDefinite, call);
    return loaded;
}

bool KeychainHelper::remove(KeychainKey key)
{
    if (m_unread.contains(key))
        return false;
    const CallBudget::Call call(m_budget);
    const std::optional<bool> isRemoved = removeAll(key, call);
    note(isRemoved.has_value(), call);
    return isRemoved.value_or(false);
}

LoadedKey KeychainHelper::read(KeychainKey key, const CallBudget::Call &call)
{
    const auto matches = find(key, call);
    if (!matches)
        return KeyUnavailable{};
    if (matches->unlocked.isEmpty())
        return matches->locked.isEmpty() ? LoadedKey(KeyAbsent{}) : KeyUnavailable{};
    const auto bytes = m_service.valueOf(matches->unlocked.first(), call);
    if (!bytes)
        return KeyUnavailable{};
    const std::optional<QString> text = textFromUtf8(*bytes);
    return text ? LoadedKey(ApiKey(*text)) : KeyAbsent{};
}

bool KeychainHelper::replace(KeychainKey key, const QByteArray &text, const CallBudget::Call &call)
{
    const auto matches = findChangeable(key, call);
    if (!matches)
        return false;
    // Whoever did not agree to a value is not asked for it again.
    if (m_prompted.contains(key) && m_prompted.at(key) == text)
        return false;
    // Nobody waits between the two, where a kill would lose the item. What removes only after asking the user
    // is not made to ask, and what adds only then may be refused: there the addition alone replaces the item.
    if (m_prompted.empty())
        for (const QDBusObjectPath &item : matches->unlocked)
            m_service.startRemoval(item);
    return add(key, text, call);
}

bool KeychainHelper::add(KeychainKey key, const QByteArray &text, const CallBudget::Call &call)
{
    SecretChange change = m_service.add(written(key), label(key), text, share(call));
    if (change.state == State::Failed) {
        m_link.close();
        if (!m_link.open(call))
            return false;
        change = m_service.add(written(key), label(key), text, call.remaining());
    }
    if (change.state != State::AwaitsPrompt)
        return change.state == State::Made;
    m_prompted.insert_or_assign(key, text);
    m_service.start(change.prompt);
    return read(key, call) == LoadedKey(ApiKey(QString::fromUtf8(text)));
}

std::optional<bool> KeychainHelper::removeAll(KeychainKey key, const CallBudget::Call &call)
{
    const auto matches = findChangeable(key, call);
    if (!matches)
        return std::nullopt;
    bool isRemoved = false;
    for (const QDBusObjectPath &item : matches->unlocked)
        isRemoved = removeItem(item, key, call) || isRemoved;
    const bool hasFailed = !isRemoved && !matches->unlocked.isEmpty();
    return hasFailed ? std::nullopt : std::optional(isRemoved);
}

bool KeychainHelper::removeItem(const QDBusObjectPath &item, KeychainKey key, const CallBudget::Call &call)
{
    const SecretChange change = m_service.remove(item, call.remaining());
    if (change.state != State::AwaitsPrompt)
        return change.state == State::Made;
    m_service.start(change.prompt);
    const auto left = find(key, call);
    return left && !left->unlocked.contains(item);
}

std::optional<SecretMatches> KeychainHelper::find(KeychainKey key, const CallBudget::Call &call)
{
    if (m_watch.isHanging())
        return std::nullopt;
    return m_service.find(sought(key), call);
}

std::optional<SecretMatches> KeychainHelper::findChangeable(KeychainKey key, const CallBudget::Call &call)
{
    auto matches = find(key, call);
    const bool isChangeable = matches && matches->locked.isEmpty();
    return isChangeable ? std::move(matches) : std::nullopt;
}

void KeychainHelper::note(bool gotThrough, const CallBudget::Call &call)
{
    using Service = SecretServiceWatch::Service;
    if (gotThrough)
        m_watch.noteSuccess();
    else
        m_watch.noteFailure(call.hasExpired() ? Service::Hangs : Service::Answers);
}

} // namespace glimmet
