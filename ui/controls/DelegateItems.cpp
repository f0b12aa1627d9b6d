#include "ui/controls/DelegateItems.h"

#include <QQmlEngine>
#include <QQmlInfo>

namespace glimmet::DelegateItems {

namespace {

constexpr const char *indexName = "index";

bool hasProperty(const QObject &object, const char *name)
{
    return object.metaObject()->indexOfProperty(name) >= 0;
}

QVariantMap valuesFor(
    const QObject &object, const QAbstractItemModel &model, int row, const QList<int> &roles)
{
    QVariantMap values;
    const QHash<int, QByteArray> names = model.roleNames();
    for (auto [role, name] : names.asKeyValueRange()) {
        if ((roles.isEmpty() || roles.contains(role)) && hasProperty(object, name))
            values.insert(QString::fromLatin1(name), model.index(row, 0).data(role));
    }
    return values;
}

} // namespace

QQuickItem *begin(QQmlComponent &delegate, const QAbstractItemModel &model, int row, QQuickItem &list)
{
    QObject *object = delegate.beginCreate(delegate.creationContext());
    auto *item = qobject_cast<QQuickItem *>(object);
    if (item == nullptr) {
        qmlWarning(&list) << delegate.errors();
        delete object;
        return nullptr;
    }
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    item->setParent(&list);
    item->setParentItem(&list);
    QVariantMap values = valuesFor(*item, model, row, {});
    if (hasProperty(*item, indexName))
        values.insert(QString::fromLatin1(indexName), row);
    delegate.setInitialProperties(item, values);
    return item;
}

void refresh(QQuickItem &item, const QAbstractItemModel &model, int row, const QList<int> &roles)
{
    const QVariantMap values = valuesFor(item, model, row, roles);
    for (auto [name, value] : values.asKeyValueRange())
        item.setProperty(name.toLatin1(), value);
}

void renumber(QQuickItem &item, int row)
{
    if (hasProperty(item, indexName))
        item.setProperty(indexName, row);
}

void discard(QQuickItem &item)
{
    item.setParentItem(nullptr);
    item.deleteLater();
}

} // namespace glimmet::DelegateItems
