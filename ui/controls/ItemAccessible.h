#pragma once

#include <QAccessibleObject>
#include <QQuickItem>
#include <QQuickWindow>

namespace glimmet {

/// What all items of the panel have in common for assistive programs, where the toolkit's own answer does not
/// do. Such an item has no children of its own to tell of. Its role, its name and its description are what
/// its `Accessible` properties say.
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
    QAccessible::Role role() const override;
    /// Whether it is out of use, to be seen at all, in view, and the one of several that counts. The toolkit
    /// calls in view also what is scrolled away.
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;

protected:
    QQuickItem &item() const { return *static_cast<QQuickItem *>(object()); }
    /// The `Accessible` property of that name; nothing once the item is on its way out.
    QVariant told(const char *property) const;
};

} // namespace glimmet
