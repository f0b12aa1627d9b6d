#pragma once

#include "core/TickerViewModel.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// The time left until `deadline`, in words; from its own second on it has passed.
QString countdown(const Deadline &deadline, Instant now);

/// The ticker's deadlines as rows, in its order. Every tick tells which countdowns read anew. Rows stay when
/// the list changes around them, so that what shows them keeps the keyboard.
class DeadlineRows : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(glimmet::TickerViewModel *ticker READ ticker WRITE setTicker NOTIFY tickerChanged REQUIRED)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    /// How many are still to come.
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

    TickerViewModel *ticker() const { return m_ticker; }
    void setTicker(TickerViewModel *ticker);
    int count() const { return static_cast<int>(m_rows.size()); }
    int activeCount() const { return m_activeCount; }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void tickerChanged();
    void countChanged();
    void activeCountChanged();

private:
    struct Row {
        QString id;
        QString title;
        QString dateText;
        QString countdown;
        bool isPassed = false;

        friend bool operator==(const Row &, const Row &) = default;
    };

    Row rowOf(const Deadline &deadline) const;
    static QStringList idsOf(const QList<Row> &rows);
    void rebuild();
    void addAndRemove(const QList<Row> &wanted);
    void setRow(int i, const Row &row);
    void follow();
    void recount();
    /// Whether the dates are written as the user's region writes them now.
    bool isRegionKnown() const;
    void rememberRegion();

    TickerViewModel *m_ticker = nullptr;
    QList<Row> m_rows;
    int m_activeCount = 0;
    QByteArray m_locale; ///< with which the dates are written
    int m_utcOffset = 0; ///< the user's, at that time
};

} // namespace glimmet
