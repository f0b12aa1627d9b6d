#pragma once

#include "core/TickerViewModel.h"
#include "ui/editors/DeadlineUndo.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// The time left until `deadline`, in words; from its own second on it has passed.
QString countdown(const Deadline &deadline, Instant now);

/// The ticker's deadlines as rows, in its order, and among them those that were removed and can be put back.
/// Every tick tells which countdowns read anew. Rows stay when the list changes around them, so that what
/// shows them keeps the keyboard.
class DeadlineRows : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    /// Outlives the rows.
    Q_PROPERTY(glimmet::DeadlineUndo *undo READ undo WRITE setUndo NOTIFY undoChanged REQUIRED)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    /// How many are still to come, without those that were removed.
    Q_PROPERTY(int activeCount READ activeCount NOTIFY activeCountChanged)

public:
    enum Role {
        IdRole = Qt::UserRole, ///< "deadlineId", a text
        TitleRole, ///< "title", on one line
        DateTextRole, ///< "dateText"
        CountdownRole, ///< "countdown"
        IsPassedRole ///< "isPassed"
    };

    using QAbstractListModel::QAbstractListModel;

    DeadlineUndo *undo() const { return m_undo; }
    void setUndo(DeadlineUndo *undo);
    int count() const { return static_cast<int>(m_rows.size()); }
    int activeCount() const { return m_activeCount; }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void undoChanged();
    void countChanged();
    void activeCountChanged();

private:
    struct Row {
        QString id;
        QString title;
        QString dateText;
        QString countdown;
        bool isPassed = false;
        bool isRemoved = false;

        friend bool operator==(const Row &, const Row &) = default;
    };

    TickerViewModel *ticker() const { return m_undo == nullptr ? nullptr : m_undo->ticker(); }
    void watchTicker();
    Row rowOf(const Deadline &deadline, bool isRemoved) const;
    static QStringList idsOf(const QList<Row> &rows);
    void rebuild();
    void addAndRemove(const QList<Row> &wanted);
    void setRow(int i, const Row &row);
    void follow();
    void recount();
    /// Whether the dates are written as the user's region writes them now.
    bool isRegionKnown() const;
    void rememberRegion();

    DeadlineUndo *m_undo = nullptr;
    QMetaObject::Connection m_ticks;
    QList<Row> m_rows;
    int m_activeCount = 0;
    QByteArray m_locale; ///< with which the dates are written
    int m_utcOffset = 0; ///< the user's, at that time
};

} // namespace glimmet
