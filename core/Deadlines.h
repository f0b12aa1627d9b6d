#pragma once

#include "core/Deadline.h"
#include "platform/Rotation.h"

#include <QObject>

namespace glimmet {

class Clock;
class PreferencesStore;

/// The deadlines, of which those to come are counted down in turn. Main thread.
class Deadlines final : public QObject {
    Q_OBJECT

public:
    /// `preferences` and `clock` outlive it.
    Deadlines(PreferencesStore &preferences, const Clock &clock, QObject *parent = nullptr);

    /// Takes over what is stored, if that can be read.
    void load();

    QList<Deadline> all() const { return m_all; }
    /// Stores the list, also an equal one.
    void setAll(const QList<Deadline> &deadlines);
    /// Those that are still to come, earliest first.
    QList<Deadline> upcoming() const;

    void add(const Deadline &deadline);
    /// Adds a new deadline of that title without the blanks around it; nothing happens where it is empty.
    void add(const QString &title, Instant date);
    /// Gives a deadline that title without the blanks around it, and that date, by which the list is then
    /// sorted as for a new one; nothing happens where the title is empty.
    void replace(const QUuid &id, const QString &title, Instant date);
    void remove(const QUuid &id);
    /// Removes those that passed and those to come.
    void clear();

    /// Counts a second in which deadlines are shown.
    void tick();
    QString display() const;

signals:
    void changed();

private:
    qsizetype firstUpcoming() const;

    PreferencesStore &m_preferences;
    const Clock &m_clock;
    QList<Deadline> m_all;
    QList<Deadline> m_byDate; ///< the same, sorted when it changes, so that a tick need not
    Rotation m_rotation;
};

} // namespace glimmet
