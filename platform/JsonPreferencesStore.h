#pragma once

#include "platform/PreferencesStore.h"

#include <QJsonObject>
#include <QJsonValue>

namespace glimmet {

/// Preferences in one JSON file: an object of key and value, where a list of texts is an array and data is
/// `{"data": "<base64>"}`. Nothing is cached: every call looks at the file, so that two programs share it.
///
/// A write replaces the file as a whole or not at all, under a lock on its folder, and keeps the keys of
/// others. A file that cannot be read as a JSON object is set aside under another name before the first
/// write.
class JsonPreferencesStore final : public PreferencesStore {
public:
    /// `path`: the file; it and its folder are made by the first write.
    explicit JsonPreferencesStore(QString path);

    /// The file in the user's configuration folder.
    static QString defaultPath();

    std::optional<QStringList> stringList(const QString &key) const override;
    std::optional<QByteArray> data(const QString &key) const override;
    bool setStringList(const QString &key, const QStringList &value) override;
    bool setData(const QString &key, const QByteArray &value) override;

private:
    QJsonValue value(const QString &key) const;
    bool setValue(const QString &key, const QJsonValue &value);

    QString m_path;
};

} // namespace glimmet
