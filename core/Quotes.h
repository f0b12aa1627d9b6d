#pragma once

#include "platform/Rotation.h"

#include <QObject>
#include <QStringList>

namespace glimmet {

class PreferencesStore;

/// The quotes that are shown in turn: the user's, or the default ones while there are none. Main thread.
class Quotes final : public QObject {
    Q_OBJECT

public:
    /// `preferences` outlives it.
    explicit Quotes(PreferencesStore &preferences, QObject *parent = nullptr);

    /// Takes over what is stored, if anything is.
    void load();

    QStringList custom() const { return m_custom; }
    /// Stores the list, also an equal one.
    void setCustom(const QStringList &quotes);
    QStringList active() const;
    /// Ticks that a quote stays.
    qint64 rotateInterval() const { return m_rotateInterval; }
    void setRotateInterval(qint64 seconds);

    /// Appends a quote without the blanks around it; nothing happens where it is empty or known.
    void add(const QString &text);
    /// What such a text is in the list.
    static QString quoteIn(const QString &text);
    /// Puts `replacement`, without the blanks around it, in the place of `text`; nothing happens where it is
    /// empty or known.
    void replace(const QString &text, const QString &replacement);
    void remove(const QString &text);
    /// Back to the default quotes.
    void reset();

    /// Counts a second in which quotes are shown.
    void tick();
    QString display() const;

signals:
    void customChanged();
    void rotateIntervalChanged();

private:
    PreferencesStore &m_preferences;
    QStringList m_custom;
    qint64 m_rotateInterval = 30;
    Rotation m_rotation;
};

} // namespace glimmet
