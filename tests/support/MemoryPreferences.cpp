#include "tests/support/MemoryPreferences.h"

namespace glimmet {
namespace {

template <typename Type, typename Value>
std::optional<Type> typed(const QHash<QString, Value> &values, const QString &key)
{
    const auto found = values.constFind(key);
    if (found == values.constEnd() || !std::holds_alternative<Type>(*found))
        return std::nullopt;
    return std::get<Type>(*found);
}

} // namespace

std::optional<QStringList> MemoryPreferences::stringList(const QString &key) const
{
    m_reads.append(key);
    return typed<QStringList>(m_values, key);
}

std::optional<QByteArray> MemoryPreferences::data(const QString &key) const
{
    m_reads.append(key);
    return typed<QByteArray>(m_values, key);
}

bool MemoryPreferences::setStringList(const QString &key, const QStringList &value)
{
    return set(key, value);
}

bool MemoryPreferences::setData(const QString &key, const QByteArray &value)
{
    return set(key, value);
}

bool MemoryPreferences::set(const QString &key, Value value)
{
    m_writes.append(key);
    m_values.insert(key, std::move(value));
    return true;
}

} // namespace glimmet
