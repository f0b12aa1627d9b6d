#pragma once

#include <QAccessibleObject>
#include <QQuickItem>
#include <QQuickWindow>

namespace glimmet {

/// What all items of the panel have in common for assistive programs, where the toolkit's own answer does not
/// do. Such an item has no children of its own to tell of.
class ItemAccessible : public QAccessibleObject {
public:
    explicit ItemAccessible(QQuickItem &item)
        : QAccessibleObject(&item)
    {
    }

    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QWindow *window() const override { return item().window(); }
    QRect rect() const override;
    /// Whether it can take the keyboard and has it, is out of use, and is to be seen.
    QAccessible::State state() const override;

protected:
    QQuickItem &item() const { return *static_cast<QQuickItem *>(object()); }
};

} // namespace glimmet
