#pragma once

#include "ui/controls/ItemAccessible.h"

namespace glimmet {

/// What assistive programs are told of a button: unlike by the toolkit's own answer, also that it is out of
/// use. Its name and whether it is selected are what its `Accessible` properties say.
class ButtonAccessible final : public ItemAccessible, public QAccessibleActionInterface {
public:
    using ItemAccessible::ItemAccessible;

    QAccessible::Role role() const override { return QAccessible::Button; }
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override { return { pressAction(), setFocusAction() }; }
    void doAction(const QString &action) override;
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    QVariant told(const char *property) const;
};

} // namespace glimmet
