#pragma once

#include <QAbstractItemModel>
#include <QQmlComponent>
#include <QQuickItem>

/// The items that show rows of a model. As in the toolkit's own views an item may require "index", the number
/// of its row, and any of the model's roles by its name.
namespace glimmet::DelegateItems {

/// Begins an item for a row in `list`, which owns it; null where the delegate makes none. Its bindings run
/// when the delegate completes it.
QQuickItem *begin(QQmlComponent &delegate, const QAbstractItemModel &model, int row, QQuickItem &list);

/// Has the item show its row as that is now; all of it where no roles are named.
void refresh(QQuickItem &item, const QAbstractItemModel &model, int row, const QList<int> &roles);

/// Tells the item which row it shows, after others came or went before it.
void renumber(QQuickItem &item, int row);

/// Takes the item from its list. It is destroyed when nothing runs in it any longer.
void discard(QQuickItem &item);

} // namespace glimmet::DelegateItems
