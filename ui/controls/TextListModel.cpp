#include "ui/controls/TextListModel.h"

#include "ui/controls/RowChanges.h"

namespace glimmet {

void TextListModel::setEntries(const QStringList &entries)
{
    if (m_entries == entries)
        return;
    for (const RowChange &change : rowChanges(m_entries, entries)) {
        if (change.kind == RowChange::Kind::Remove)
            remove(change.first, change.rows.size());
        else
            insert(change.first, change.rows);
    }
    emit entriesChanged();
}

void TextListModel::remove(qsizetype first, qsizetype count)
{
    beginRemoveRows({}, static_cast<int>(first), static_cast<int>(first + count - 1));
    m_entries.remove(first, count);
    endRemoveRows();
}

void TextListModel::insert(qsizetype first, const QStringList &entries)
{
    beginInsertRows({}, static_cast<int>(first), static_cast<int>(first + entries.size() - 1));
    for (qsizetype i = 0; i < entries.size(); ++i)
        m_entries.insert(first + i, entries.at(i));
    endInsertRows();
}

int TextListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

QVariant TextListModel::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DisplayRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    return m_entries.at(index.row());
}

QHash<int, QByteArray> TextListModel::roleNames() const
{
    return { { Qt::DisplayRole, "entry" } };
}

} // namespace glimmet
