#include "tests/ui/LookSwitch.h"

#include "ui/panel/Appearance.h"

#include <QQmlEngine>

namespace glimmet {

void LookSwitch::wish(bool dark, bool lessMotion)
{
    appearance().setLook({ dark ? ColorScheme::Dark : ColorScheme::Light, lessMotion });
}

void LookSwitch::setAttended(bool isAttended)
{
    appearance().setAttended(isAttended);
}

Appearance &LookSwitch::appearance()
{
    const int type = qmlTypeId("Glimmet", 1, 0, "Appearance");
    return *qmlEngine(this)->singletonInstance<Appearance *>(type);
}

} // namespace glimmet
