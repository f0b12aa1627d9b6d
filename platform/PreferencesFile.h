#pragma once

#include <QJsonObject>
#include <QString>

namespace glimmet {

/// What a look at a file of preferences found. Any thread.
struct PreferencesFile {
    /// `unavailable` may hold good values, which this moment does not give (too many open files, a failing
    /// disk).
    enum class State { absent, readable, unreadable, unavailable };

    State state = State::absent;
    /// Empty but where the file is readable.
    QJsonObject values;
};

PreferencesFile readPreferencesFile(const QString &path);

} // namespace glimmet
