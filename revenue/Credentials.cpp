#include "revenue/Credentials.h"

#include <algorithm>

namespace glimmet {

using Cause = KeyStore::Cause;
using State = KeyStatus::State;

namespace {

/// Whether the store itself keeps everything out, until the user opens or makes it.
bool isClosed(KeyObstacle obstacle)
{
    return obstacle == KeyObstacle::Locked || obstacle == KeyObstacle::NoCollection;
}

} // namespace

std::optional<ApiKey> Credentials::load(KeychainKey key)
{
    if (m_store == nullptr)
        return std::nullopt;
    const LoadedKey loaded = m_store->load(accountName(key));
    noteObstacle(key);
    const auto *found = std::get_if<ApiKey>(&loaded);
    return found ? std::optional(*found) : std::nullopt;
}

void Credentials::writeBack(const ApiKey &value, KeychainKey key)
{
    if (m_store == nullptr)
        return;
    const bool isWritten = write(value, key, Cause::Program);
    // Nothing was removed where the user would have had to be asked.
    if (isWritten || isUnread(key) || obstacleOf(key) == KeyObstacle::AwaitsUser)
        m_unreturned.erase(key);
    else
        m_unreturned.insert(key);
}

bool Credentials::save(const ApiKey &value, KeychainKey key)
{
    if (m_store == nullptr || keep(value, key, Cause::Program))
        return false;
    const KeyObstacle obstacle = obstacleOf(key);
    return (isClosed(obstacle) || obstacle == KeyObstacle::AwaitsUser)
        && m_consent.isGivenBy(KeyConsent::Act::EditingKey);
}

void Credentials::askToSave(const ApiKey &value, KeychainKey key)
{
    // It may have been saved meanwhile.
    if (m_store == nullptr || !m_unsaved.contains(key) || keep(value, key, causeOfAsking()))
        return;
    if (!isClosed(obstacleOf(key)) || !m_consent.isGivenBy(KeyConsent::Act::EditingKey))
        return;
    m_consent.noteAsking(KeyConsent::Act::EditingKey);
    m_store->ask(KeyStore::Wish::UnlockingOrMaking);
}

KeyStatus Credentials::status(const ApiKey &current, KeychainKey key) const
{
    if (isKept(current, key))
        return { State::KeptUntilEnd, obstacleOf(key) };
    // Without a collection there is nothing that could be read.
    if (isUnread(key))
        return { obstacleOf(key) == KeyObstacle::NoCollection ? State::Absent : State::Unknown,
            obstacleOf(key) };
    return { current.characters().isEmpty() ? State::Absent : State::Saved };
}

std::set<KeychainKey> Credentials::unsettled() const
{
    std::set<KeychainKey> keys = m_unsaved;
    keys.insert(m_unreturned.begin(), m_unreturned.end());
    for (const auto &[key, account] : rawValues<KeychainKey>)
        if (isUnread(key))
            keys.insert(key);
    return keys;
}

bool Credentials::settle(KeychainKey key, const ApiKey &current, std::optional<ApiKey> &loaded)
{
    loaded = load(key);
    if (isUnread(key))
        return false;
    // It may have been written after all: after a prompt, or by a call whose answer came too late.
    const bool isThere = loaded == current;
    if (isThere) {
        m_unsaved.erase(key);
        m_unreturned.erase(key);
        return false;
    }
    if (m_unsaved.contains(key)) {
        keep(current, key, causeOfAsking());
        return false;
    }
    // The removal went through and the addition did not: this is the one copy.
    if (m_unreturned.contains(key) && !loaded)
        loaded = current;
    return true;
}

void Credentials::finish(KeychainKey key, const ApiKey &current)
{
    if (m_store == nullptr || !isKept(current, key))
        return;
    const std::optional<ApiKey> loaded = load(key);
    const bool isOnlyCopy = m_unsaved.contains(key) || !loaded;
    if (!isUnread(key) && loaded != current && isOnlyCopy)
        write(current, key, Cause::Program);
}

void Credentials::askToUnlock(KeyConsent::Act act)
{
    if (m_store == nullptr || !m_consent.isGivenBy(act))
        return;
    const bool isAskedFor = act == KeyConsent::Act::AskingForIt;
    if (!isAskedFor && !isAnyKeptFromBy(KeyObstacle::Locked))
        return;
    if (isAskedFor) // Of what is saved then, too.
        m_consent.beginEditing();
    m_consent.noteAsking(act);
    m_store->ask(isAskedFor ? KeyStore::Wish::UnlockingOrMaking : KeyStore::Wish::Unlocking);
}

Cause Credentials::causeOfAsking()
{
    if (!m_consent.isGivenBy(KeyConsent::Act::EditingKey))
        return Cause::Program;
    m_consent.noteAsking(KeyConsent::Act::EditingKey);
    return Cause::User;
}

/// Whether what the user chose is in the store now.
bool Credentials::keep(const ApiKey &value, KeychainKey key, Cause cause)
{
    const bool isSaved = write(value, key, cause);
    if (isSaved)
        m_unsaved.erase(key);
    else
        m_unsaved.insert(key);
    return isSaved;
}

bool Credentials::write(const ApiKey &value, KeychainKey key, Cause cause)
{
    const bool isWritten = m_store->save(value, accountName(key), cause);
    if (!isUnread(key)) // Else the store was not even tried.
        noteObstacle(key);
    return isWritten;
}

void Credentials::noteOpening()
{
    if (unsettled().empty())
        m_consent.noteOpening();
}

bool Credentials::isUnread(KeychainKey key) const
{
    return m_store != nullptr && m_store->isUnread(accountName(key));
}

bool Credentials::isAnyKeptFromBy(KeyObstacle obstacle) const
{
    const std::set<KeychainKey> keys = unsettled();
    return std::any_of(
        keys.begin(), keys.end(), [&](KeychainKey key) { return obstacleOf(key) == obstacle; });
}

/// Whether the program has the only copy, or what may be the only one.
bool Credentials::isKept(const ApiKey &value, KeychainKey key) const
{
    if (m_store == nullptr)
        return !value.characters().isEmpty();
    return m_unsaved.contains(key) || (m_unreturned.contains(key) && !value.characters().isEmpty());
}

void Credentials::noteObstacle(KeychainKey key)
{
    m_obstacles.insert_or_assign(key, m_store->obstacle());
}

KeyObstacle Credentials::obstacleOf(KeychainKey key) const
{
    if (m_store == nullptr)
        return KeyObstacle::NoService;
    const auto known = m_obstacles.find(key);
    return known == m_obstacles.end() ? KeyObstacle::None : known->second;
}

} // namespace glimmet
