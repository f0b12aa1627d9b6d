#include "platform/keys/KeychainHelper.h"

#include "platform/ProgramName.h"
#include "platform/Text.h"
#include "platform/bus/SessionBus.h"

#include <algorithm>

namespace glimmet {
namespace {

using namespace std::chrono_literals;
using State = SecretChange::State;

SecretAttributes sought(const QString &account)
{
    return { { QStringLiteral("service"), programName }, { QStringLiteral("account"), account } };
}

SecretAttributes written(const QString &account)
{
    SecretAttributes attributes = sought(account);
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
QString label(const QString &account)
{
    return QStringLiteral("glimmet ") + account;
}

} // namespace

KeychainHelper::KeychainHelper(
    const SessionBus &bus, Timers &timers, const SteadyClock &clock, CallLimits limits, QObject *parent)
    : KeyStore(parent)
    , m_budget(clock, limits)
    , m_link(bus)
    , m_service(m_link)
    , m_watch(m_link, bus, timers)
{
    connect(&m_watch, &SecretServiceWatch::readable, this, &KeyStore::becameReadable);
    QMetaObject::invokeMethod(this, [this] { m_budget.endStartUp(); }, Qt::QueuedConnection);
}

bool KeychainHelper::write(const ApiKey &value, const QString &account)
{
    const std::optional<QByteArray> text = exactUtf8(value.characters());
    if (!text)
        return false;
    const CallBudget::Call call(m_budget);
    const bool isSaved = replace(account, *text, call);
    note(isSaved, call);
    return isSaved;
}

LoadedKey KeychainHelper::read(const QString &account)
{
    const CallBudget::Call call(m_budget);
    LoadedKey loaded = read(account, call);
    note(!std::holds_alternative<KeyUnavailable>(loaded), call);
    return loaded;
}

bool KeychainHelper::erase(const QString &account)
{
    const CallBudget::Call call(m_budget);
    const std::optional<bool> isRemoved = removeAll(account, call);
    note(isRemoved.has_value(), call);
    return isRemoved.value_or(false);
}

LoadedKey KeychainHelper::read(const QString &account, const CallBudget::Call &call)
{
    const auto matches = find(account, call);
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

bool KeychainHelper::replace(const QString &account, const QByteArray &text, const CallBudget::Call &call)
{
    const auto matches = findChangeable(account, call);
    if (!matches)
        return false;
    // A user who did not agree to a value is not asked for it again.
    if (m_prompted.contains(account) && m_prompted.at(account) == text)
        return false;
    // The program does not wait between the two, where a kill would lose the item. What removes only after
    // asking the user is not made to ask, and what adds only then may be refused: there the addition alone
    // replaces the item.
    if (m_prompted.empty())
        for (const QDBusObjectPath &item : matches->unlocked)
            m_service.startRemoval(item);
    return add(account, text, call);
}

bool KeychainHelper::add(const QString &account, const QByteArray &text, const CallBudget::Call &call)
{
    SecretChange change = m_service.add(written(account), label(account), text, share(call));
    if (change.state == State::Failed) {
        m_link.close();
        if (!m_link.open(call))
            return false;
        change = m_service.add(written(account), label(account), text, call.remaining());
    }
    if (change.state != State::AwaitsPrompt)
        return change.state == State::Made;
    m_prompted.insert_or_assign(account, text);
    m_service.start(change.prompt);
    return read(account, call) == LoadedKey(ApiKey(QString::fromUtf8(text)));
}

std::optional<bool> KeychainHelper::removeAll(const QString &account, const CallBudget::Call &call)
{
    const auto matches = findChangeable(account, call);
    if (!matches)
        return std::nullopt;
    bool isRemoved = false;
    for (const QDBusObjectPath &item : matches->unlocked)
        isRemoved = removeItem(item, account, call) || isRemoved;
    const bool hasFailed = !isRemoved && !matches->unlocked.isEmpty();
    return hasFailed ? std::nullopt : std::optional(isRemoved);
}

bool KeychainHelper::removeItem(
    const QDBusObjectPath &item, const QString &account, const CallBudget::Call &call)
{
    const SecretChange change = m_service.remove(item, call.remaining());
    if (change.state != State::AwaitsPrompt)
        return change.state == State::Made;
    m_service.start(change.prompt);
    const auto left = find(account, call);
    return left && !left->unlocked.contains(item);
}

std::optional<SecretMatches> KeychainHelper::find(const QString &account, const CallBudget::Call &call)
{
    if (m_watch.isHanging())
        return std::nullopt;
    return m_service.find(sought(account), call);
}

std::optional<SecretMatches> KeychainHelper::findChangeable(
    const QString &account, const CallBudget::Call &call)
{
    auto matches = find(account, call);
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
