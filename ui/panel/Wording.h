#pragma once

#include "platform/DateTimeConventions.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// The panel's texts that are put together from values.
class Wording : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// The menu-bar text as it stands on one line. Of a very long one only what can be seen: to lay out all
    /// of it would hold up the panel.
    Q_INVOKABLE static QString oneLine(const QString &text);
    /// A text as a field of one line holds it: each line break is one blank.
    Q_INVOKABLE static QString fieldText(const QString &text);
    /// "v1.2 ·"; an unknown version leaves its place empty.
    Q_INVOKABLE static QString version(const QString &appVersion);
    /// Says that the default quotes rotate, and how many there are.
    Q_INVOKABLE static QString usingDefaults(qsizetype count);
    /// An error and when it came, such as "⚠ the request timed out · 14:32".
    static QString problem(const QString &error, const QString &time);
    /// Why the menu-bar text is called stale.
    Q_INVOKABLE static QString staleness(const QString &display);
    /// What can be entered as a symbol, and how many seconds each price stays.
    Q_INVOKABLE static QString pricesHelp(int interval);
    /// What a screen reader says for the chart of a price.
    Q_INVOKABLE static QString priceChart(const QString &shortName);
    /// What a screen reader says for the button that removes `item`.
    Q_INVOKABLE static QString removing(const QString &item);
    /// What a screen reader says for the button that undoes `action`, which is what its button is called.
    Q_INVOKABLE static QString undoing(const QString &action);
    /// What a screen reader says after `item` was removed, or everything at once.
    static QString removed(const QString &item);
    static QString removedAll();
    /// What a screen reader says where `item` was to be added and is there already.
    Q_INVOKABLE static QString known(const QString &item);
    /// What a screen reader says for a list of so many entries, and for the place of one of them.
    Q_INVOKABLE static QString entries(int count);
    Q_INVOKABLE static QString position(int place, int count);
    /// Says how many deadlines are still to come.
    Q_INVOKABLE static QString active(int count);
    /// Those that are not empty, one after the other.
    Q_INVOKABLE static QString sentences(QStringList parts);
    /// What a screen reader says for a field of the due date.
    static QString dueDateField(DateTimeField field);
    /// Why a due date is another one than was entered: it was past, or there is no such moment.
    static QString movedToNow();
    static QString movedToNearest();
};

} // namespace glimmet
