#pragma once

#include <QAbstractListModel>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// A list of texts whose rows stay when the list changes around them, so that what shows them stays too: it
/// keeps the keyboard and can move to its new place. The role is "entry".
class TextListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QStringList entries READ entries WRITE setEntries NOTIFY entriesChanged)

public:
    using QAbstractListModel::QAbstractListModel;

    QStringList entries() const { return m_entries; }
    void setEntries(const QStringList &entries);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void entriesChanged();

private:
    void remove(qsizetype first, qsizetype count);
    void insert(qsizetype first, const QStringList &entries);

    QStringList m_entries;
};

} // namespace glimmet
