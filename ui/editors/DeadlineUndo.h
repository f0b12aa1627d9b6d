#pragma once

#include "ui/editors/Undo.h"

#include <QHash>

namespace glimmet {

/// For the deadlines. A key is the identity's text.
class DeadlineUndo : public glimmet::Undo { // Whole, as it is registered under that name.
    Q_OBJECT
    QML_ELEMENT

public:
    using Undo::Undo;

    static QString keyOf(const Deadline &deadline);
    /// The deadlines of `shown()`, in its order.
    QList<Deadline> shownDeadlines() const;

protected:
    void watch(TickerViewModel &ticker) override;
    QStringList readList() override;
    void removeFromList(const QString &key) override;
    void clearList() override;
    void writeList(const QList<ShownEntry> &entries, int returning) override;
    QString nameOf(const QString &key) const override;

private:
    /// The deadlines of those of `entries` that are wanted. All entries of one key are in the list, or none
    /// is.
    QList<Deadline> deadlinesOf(
        const QList<ShownEntry> &entries, const std::function<bool(const ShownEntry &)> &isWanted) const;

    /// Those that are in the list, and those that were removed; in order where several have one identity.
    QHash<QString, QList<Deadline>> m_known;
    bool m_goesByDate = true; ///< so the list was before the last removal
};

} // namespace glimmet
