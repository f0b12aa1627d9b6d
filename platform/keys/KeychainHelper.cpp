#include "platform/keys/KeychainHelper.h"

#include "platform/ProgramName.h"
#include "platform/Text.h"
#include "platform/bus/SessionBus.h"

#include <algorithm>

namespace glimmet {
namespace {

using namespace std::chrono_literals;
using State = SecretChange::State;

SecretAttributes ownItems()
{
    return { { QStringLiteral("service"), programName } };
}

SecretAttributes sought(const QString &account)
{
    SecretAttributes attributes = ownItems();
    attributes.insert(QStringLiteral("account"), account);
    return attributes;
}

SecretAttributes written(const QString &account)
{
    SecretAttributes attributes = sought(account);
    attributes.insert(QStringLiteral("xdg:schema"), programName);
    return attributes;
}

/// Enough to send a message in any case: a service that hangs may still make a removal, and must then find
/// the addition behind it.
std::chrono::milliseconds atLeastSent(std::chrono::milliseconds patience)
{
    return std::max(patience, 1ms);
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
    , m_prompts(m_link)
    , m_service(m_link)
    , m_watch(m_link, bus, timers, ownItems())
{
    connect(&m_watch, &SecretServiceWatch::readable, this, &KeyStore::becameReadable);
    connect(&m_watch, &SecretServiceWatch::closed, this, &KeychainHelper::tellWhy);
    connect(&bus, &SessionBus::lost, &m_prompts, &SecretPrompts::forgetAll);
    connect(&m_prompts, &SecretPrompts::isAnyUpChanged, this, &KeyStore::isAskingChanged);
    connect(&m_prompts, &SecretPrompts::dismissed, this, &KeyStore::refused);
    m_service.trustCollection();
    QMetaObject::invokeMethod(this, &KeychainHelper::endStartUp, Qt::QueuedConnection);
}

void KeychainHelper::endStartUp()
{
    m_isStartingUp = false;
    m_justRead.clear();
    m_service.distrustCollection();
    m_budget.endStartUp();
}

void KeychainHelper::ask(Wish wish)
{
    if (isAsking() || m_watch.isHanging())
        return;
    CallBudget::Call call(m_budget);
    const bool mayMake = wish == Wish::UnlockingOrMaking;
    const SecretChange change = m_service.open(ownItems(), mayMake, call);
    noteFailure(call);
    // What the user did not agree to may be asked once more.
    m_prompted.clear();
    if (change.state == State::AwaitsPrompt)
        m_prompts.start(change.prompt);
    if (change.state == State::Made)
        m_watch.look();
}

bool KeychainHelper::write(const ApiKey &value, const QString &account, Cause cause)
{
    std::optional<QByteArray> text = exactUtf8(value.characters());
    m_obstacle = KeyObstacle::Refused;
    if (!text)
        return false;
    const SecretBytes bytes(*std::move(text));
    CallBudget::Call call(m_budget);
    const bool isThere = cause == Cause::Program && isJustRead(account, *bytes);
    m_justRead.erase(account);
    if (isThere)
        m_obstacle = KeyObstacle::None;
    const bool isSaved = isThere || replace(account, *bytes, cause, call);
    noteWrite(isSaved, call);
    return isSaved;
}

LoadedKey KeychainHelper::read(const QString &account)
{
    CallBudget::Call call(m_budget);
    LoadedKey loaded = read(account, call);
    noteRead(!std::holds_alternative<KeyUnavailable>(loaded), call);
    return loaded;
}

bool KeychainHelper::erase(const QString &account, Cause cause)
{
    CallBudget::Call call(m_budget);
    m_justRead.erase(account);
    const std::optional<bool> isRemoved = removeAll(account, cause, call);
    noteWrite(isRemoved.has_value(), call);
    return isRemoved.value_or(false);
}

LoadedKey KeychainHelper::read(const QString &account, CallBudget::Call &call)
{
    const auto matches = find(account, call);
    if (!matches)
        return KeyUnavailable{};
    if (matches->unlocked.isEmpty() && matches->locked.isEmpty())
        return KeyAbsent{};
    m_obstacle = KeyObstacle::Locked;
    if (matches->unlocked.isEmpty())
        return KeyUnavailable{};
    auto bytes = m_service.valueOf(matches->unlocked.first(), call);
    m_obstacle = bytes ? KeyObstacle::None : KeyObstacle::NoService;
    if (!bytes)
        return KeyUnavailable{};
    const SecretBytes value(*std::move(bytes));
    if (m_isStartingUp && matches->unlocked.size() == 1 && matches->locked.isEmpty())
        m_justRead.insert_or_assign(account, value);
    std::optional<QString> text = textFromUtf8(*value);
    return text ? LoadedKey(ApiKey(*std::move(text))) : KeyAbsent{};
}

bool KeychainHelper::replace(
    const QString &account, const QByteArray &text, Cause cause, CallBudget::Call &call)
{
    const auto matches = findChangeable(account, call);
    if (!matches)
        return false;
    // Else every start would have an item gone for a moment, in which a kill would lose it.
    if (cause == Cause::Program && holds(*matches, text, call))
        return true;
    m_obstacle = KeyObstacle::AwaitsUser;
    // A user who did not agree to a value is not asked for it again.
    if (m_prompted.contains(account) && *m_prompted.at(account) == text)
        return false;
    // The program does not wait between the two, where a kill would lose the item. What removes only after
    // asking the user is not made to ask, and what adds only then may be refused: there the addition alone
    // replaces the item.
    if (!m_doesPrompt)
        for (const QDBusObjectPath &item : matches->unlocked)
            m_service.startRemoval(item);
    m_obstacle = KeyObstacle::Refused;
    const bool isAdded = add(account, text, cause, call);
    if (isAdded || call.wasUnanswered())
        m_obstacle = isAdded ? KeyObstacle::None : KeyObstacle::NoService;
    return isAdded;
}

bool KeychainHelper::isJustRead(const QString &account, const QByteArray &text) const
{
    const auto found = m_justRead.find(account);
    return found != m_justRead.end() && *found->second == text;
}

/// Whether there is one item, and it is that text.
bool KeychainHelper::holds(const SecretMatches &matches, const QByteArray &text, CallBudget::Call &call) const
{
    if (matches.unlocked.size() != 1)
        return false;
    auto bytes = m_service.valueOf(matches.unlocked.first(), call);
    return bytes && *SecretBytes(*std::move(bytes)) == text;
}

bool KeychainHelper::add(const QString &account, const QByteArray &text, Cause cause, CallBudget::Call &call)
{
    const auto addWithin = [&](std::chrono::milliseconds patience) {
        return m_service.add(written(account), label(account), text, call, patience);
    };
    SecretChange change = addWithin(atLeastSent(call.share()));
    if (change.state == State::Failed) {
        m_link.close();
        if (!m_link.open(call))
            return false;
        change = addWithin(call.patience());
    }
    if (change.state != State::AwaitsPrompt)
        return change.state == State::Made;
    m_doesPrompt = true;
    // What is typed while one is up comes in one piece once that has ended.
    const bool mayAsk = cause == Cause::User && !m_prompts.isAnyUp();
    if (mayAsk) {
        m_prompted.insert_or_assign(account, SecretBytes(text));
        m_prompts.start(change.prompt);
    }
    const bool isThere = mayAsk && read(account, call) == LoadedKey(ApiKey(QString::fromUtf8(text)));
    m_obstacle = KeyObstacle::AwaitsUser;
    return isThere;
}

std::optional<bool> KeychainHelper::removeAll(const QString &account, Cause cause, CallBudget::Call &call)
{
    const auto matches = findChangeable(account, call);
    if (!matches)
        return std::nullopt;
    bool isRemoved = false;
    for (const QDBusObjectPath &item : matches->unlocked)
        isRemoved = removeItem(item, account, cause, call) || isRemoved;
    const bool hasFailed = !isRemoved && !matches->unlocked.isEmpty();
    return hasFailed ? std::nullopt : std::optional(isRemoved);
}

bool KeychainHelper::removeItem(
    const QDBusObjectPath &item, const QString &account, Cause cause, CallBudget::Call &call)
{
    const SecretChange change = m_service.remove(item, call);
    if (change.state != State::AwaitsPrompt || cause != Cause::User)
        return change.state == State::Made;
    m_prompts.start(change.prompt);
    const auto left = find(account, call);
    return left && !left->unlocked.contains(item);
}

std::optional<SecretMatches> KeychainHelper::find(const QString &account, CallBudget::Call &call)
{
    m_obstacle = KeyObstacle::NoService;
    if (m_watch.isHanging())
        return std::nullopt;
    auto matches = m_service.find(sought(account), call);
    m_obstacle = m_service.obstacle();
    return matches;
}

std::optional<SecretMatches> KeychainHelper::findChangeable(const QString &account, CallBudget::Call &call)
{
    auto matches = find(account, call);
    if (!matches || matches->locked.isEmpty())
        return matches;
    m_obstacle = KeyObstacle::Locked;
    return std::nullopt;
}

void KeychainHelper::noteRead(bool gotThrough, const CallBudget::Call &call)
{
    if (!gotThrough)
        noteFailure(call);
    else if (!m_hasFailedWrite) // Else what can be read, but not written, would be tried every second.
        m_watch.noteSuccess();
}

void KeychainHelper::noteWrite(bool gotThrough, const CallBudget::Call &call)
{
    const bool awaitsUser = !gotThrough && m_obstacle == KeyObstacle::AwaitsUser;
    m_hasFailedWrite = !gotThrough && !awaitsUser;
    if (gotThrough)
        m_watch.noteSuccess();
    else if (m_hasFailedWrite)
        noteFailure(call);
    else if (m_prompts.isAnyUp())
        m_watch.expectChange();
}

void KeychainHelper::noteFailure(const CallBudget::Call &call)
{
    using Service = SecretServiceWatch::Service;
    m_watch.noteFailure(call.wasUnanswered() ? Service::Hangs : Service::Answers);
}

/// A service that did not answer before does now, though it is closed.
void KeychainHelper::tellWhy()
{
    if (m_obstacle == KeyObstacle::NoService)
        emit becameReadable();
}

} // namespace glimmet
