#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace glimmet {

/// The user's preferences, by key. Reads are typed: a value of another type reads as absent. Main thread.
class PreferencesStore {
public:
    virtual ~PreferencesStore() = default;

    /// The list of texts under `key`. An empty list is a value; a list that holds anything but texts is
    /// absent.
    virtual std::optional<QStringList> stringList(const QString &key) const = 0;
    /// The bytes under `key`.
    virtual std::optional<QByteArray> data(const QString &key) const = 0;

    /// Replace the value under `key`. False where it could not be stored yet: the store then keeps it, gives
    /// it to who reads the key, and goes on trying.
    virtual bool setStringList(const QString &key, const QStringList &value) = 0;
    virtual bool setData(const QString &key, const QByteArray &value) = 0;
};

} // namespace glimmet
