#pragma once

#include "ui/controls/ItemAccessible.h"

namespace glimmet {

/// What assistive programs are told of a button, a choice or a switch. It offers one thing to do, and the
/// keyboard.
class ControlAccessible final : public ItemAccessible, public QAccessibleActionInterface {
public:
    using ItemAccessible::ItemAccessible;

    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString &action) override;
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    bool isCheckable() const { return role() != QAccessible::Button; }
    /// What a click does.
    const QString &ownAction() const
    {
        return role() == QAccessible::CheckBox ? toggleAction() : pressAction();
    }
};

} // namespace glimmet
