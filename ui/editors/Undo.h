#pragma once

#include "core/TickerViewModel.h"
#include "ui/editors/ShownEntries.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace glimmet {

/// Removes entries from one of the ticker's lists, at once, and can put each of them back for eight seconds:
/// where it stood, beside whatever came and went meanwhile. Several removals can be undone at a time. It is
/// over with the panel that has it.
class Undo : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Each list has one of its own.")
    Q_PROPERTY(glimmet::TickerViewModel *ticker READ ticker WRITE setTicker NOTIFY tickerChanged REQUIRED)
    /// Milliseconds for which what was removed can be put back.
    Q_PROPERTY(int duration READ duration WRITE setDuration NOTIFY durationChanged)
    /// The keys of the entries to show: those in the list, and those that went one by one.
    Q_PROPERTY(QStringList shown READ shown NOTIFY shownChanged)
    /// The keys of those of them that were removed.
    Q_PROPERTY(QStringList removed READ removed NOTIFY offersChanged)
    /// The places of those among all that are shown.
    Q_PROPERTY(QList<int> removedRows READ removedRows NOTIFY offersChanged)
    /// The place of each entry of the list among those that are shown.
    Q_PROPERTY(QList<int> places READ places NOTIFY offersChanged)
    /// Whether nothing is in the list.
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY offersChanged)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY offersChanged)
    /// Whether the list was cleared, and that can be undone.
    Q_PROPERTY(bool canUndoClearing READ canUndoClearing NOTIFY offersChanged)
    /// What a screen reader says of the last removal that can be undone; empty where there is none.
    Q_PROPERTY(QString news READ news NOTIFY offersChanged)

public:
    using QObject::QObject;

    TickerViewModel *ticker() const { return m_ticker; }
    void setTicker(TickerViewModel *ticker);
    int duration() const { return m_duration; }
    void setDuration(int milliseconds);

    QStringList shown() const;
    /// Where an entry stands among those; -1: nowhere.
    Q_INVOKABLE int rowOf(const QString &key) const { return static_cast<int>(shown().indexOf(key)); }
    QStringList removed() const;
    QList<int> removedRows() const;
    QList<int> places() const;
    bool isEmpty() const { return keysInList(m_entries).isEmpty(); }
    bool canUndo() const { return !m_removals.isEmpty(); }
    bool canUndoClearing() const;
    QString news() const;

    /// Removes every entry of that key.
    Q_INVOKABLE void remove(const QString &key);
    Q_INVOKABLE void clear();
    /// Undoes the last removal that can be undone.
    Q_INVOKABLE void undo();
    Q_INVOKABLE void undoClearing();
    /// Undoes the removal that took the entry of that key.
    Q_INVOKABLE void putBack(const QString &key);

signals:
    void tickerChanged();
    void durationChanged();
    void shownChanged();
    void offersChanged();

protected:
    /// Has `follow` called for every change of the list.
    virtual void watch(TickerViewModel &ticker) = 0;
    /// The keys of the list as it is now.
    virtual QStringList readList() = 0;
    virtual void removeFromList(const QString &key) = 0;
    virtual void clearList() = 0;
    /// Writes the list: of `entries` those that are in it, and those that `returning` took.
    virtual void writeList(const QList<ShownEntry> &entries, int returning) = 0;
    /// What the user calls the entry.
    virtual QString nameOf(const QString &key) const { return key; }

    void follow();
    /// Everything that is to be shown, and what went with all others as well.
    const QList<ShownEntry> &entries() const { return m_entries; }
    bool isShown(const ShownEntry &entry) const;

private:
    struct Removal {
        int id = 0;
        bool isClearing = false;
        QString news;
    };

    void take(Removal removal, const std::function<void()> &act);
    void putBack(int removal);
    void forget(int removal);
    void tellChange();

    TickerViewModel *m_ticker = nullptr;
    int m_duration = 8000;
    QList<ShownEntry> m_entries;
    QList<Removal> m_removals; ///< that can be undone, oldest first
    int m_lastId = ShownEntry::inList;
    int m_underWay = ShownEntry::inList; ///< the removal that changes the list now
};

} // namespace glimmet
