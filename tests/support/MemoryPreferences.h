#pragma once

#include "platform/PreferencesStore.h"

#include <QHash>

#include <variant>

namespace glimmet {

/// Preferences in memory that remember every write.
class MemoryPreferences final : public PreferencesStore {
public:
    std::optional<QStringList> stringList(const QString &key) const override;
    std::optional<QByteArray> data(const QString &key) const override;
    bool setStringList(const QString &key, const QStringList &value) override;
    bool setData(const QString &key, const QByteArray &value) override;

    /// The keys written so far, in order, once for each write.
    QStringList writes() const { return m_writes; }
    /// The keys read so far, in order.
    QStringList reads() const { return m_reads; }
    void forgetWrites() { m_writes.clear(); }
    /// Takes a value away behind the program's back.
    void remove(const QString &key) { m_values.remove(key); }
    bool contains(const QString &key) const { return m_values.contains(key); }

private:
    using Value = std::variant<QStringList, QByteArray>;

    bool set(const QString &key, Value value);

    QHash<QString, Value> m_values;
    QStringList m_writes;
    mutable QStringList m_reads;
};

} // namespace glimmet
