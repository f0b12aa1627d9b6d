#pragma once

#include "platform/PreferencesStore.h"

#include <QJsonObject>
#include <QJsonValue>

#include <chrono>
#include <map>
#include <memory>

namespace glimmet {

class DiagnosticLog;
class RepeatingTimer;
class Timers;

/// Preferences in one JSON file: an object of key and value, where a list of texts is an array and data is
/// `{"data": "<base64>"}`. Nothing that is in the file is cached: every call looks at it, so that two
/// programs share it.
///
/// A write replaces the file as a whole or not at all, under a lock on its folder, and keeps the keys of
/// others. A file that cannot be read as a JSON object is set aside under another name before the first
/// write.
///
/// A value that could not be written waits: it is tried again with the next value that is set, every ten
/// seconds, and at the end. Meanwhile it is what its key reads as. It takes the place of what others wrote
/// under its key, but for a file that could not be read ever before: that one has what the user chose in
/// earlier runs. Two lines of the log tell when values begin to wait and when that is over.
class JsonPreferencesStore final : public PreferencesStore {
public:
    /// `path`: the file; it and its folder are made by the first write. `timers` and `log` outlive the store.
    JsonPreferencesStore(QString path, Timers &timers, DiagnosticLog &log);
    /// Tries what waits a last time, for a second or so where another program keeps the lock.
    ~JsonPreferencesStore() override;
    Q_DISABLE_COPY_MOVE(JsonPreferencesStore)

    /// The file in the user's configuration folder.
    static QString defaultPath();

    std::optional<QStringList> stringList(const QString &key) const override;
    std::optional<QByteArray> data(const QString &key) const override;
    bool setStringList(const QString &key, const QStringList &value) override;
    bool setData(const QString &key, const QByteArray &value) override;

private:
    QJsonValue value(const QString &key) const;
    bool setValue(const QString &key, const QJsonValue &value);
    void writeWaiting(std::chrono::milliseconds patience, const QString &justSet);
    void dropWhatNeedsNoWrite(const QJsonObject &stored, const QString &justSet);
    void writeInto(QJsonObject stored);
    bool replaceBy(const QJsonObject &values);
    void tryAgainWhileAnyWaits();

    QString m_path;
    Timers &m_timers;
    DiagnosticLog &m_log;
    std::map<QString, QJsonValue> m_waiting;
    bool m_knowsFile = false;
    std::unique_ptr<RepeatingTimer> m_timer; // Runs while anything waits.
};

} // namespace glimmet
