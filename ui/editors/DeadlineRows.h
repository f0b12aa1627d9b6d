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
    /// What of a deadline decides how its row reads. The words are made when they are asked for: of a long
    /// list only what is in view is.
    struct Row {
        QString id;
        QString title;
        Instant date;
        bool isRemoved = false;

        friend bool operator==(const Row &, const Row &) = default;
    };

    TickerViewModel *ticker() const { return m_undo == nullptr ? nullptr : m_undo->ticker(); }
    void watchTicker();
    QList<Row> wantedRows() const;
    static QStringList idsOf(const QList<Row> &rows);
    void rebuild();
    void addAndRemove(const QList<Row> &wanted);
    void tell(int i);
    void follow();
    void recount();
    /// Whether the dates are written as the user's region writes them now.
    bool isRegionKnown() const;
    void rememberRegion();

    DeadlineUndo *m_undo = nullptr;
    QMetaObject::Connection m_ticks;
    QList<Row> m_rows;
    Instant m_now; ///< for which the rows were told last
    int m_activeCount = 0;
    QByteArray m_locale; ///< with which the dates are written
    int m_utcOffset = 0; ///< the user's, at that time
};

} // namespace glimmet
