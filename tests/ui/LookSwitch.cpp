#include "tests/ui/LookSwitch.h"

#include "ui/panel/Appearance.h"

#include <QQmlEngine>

namespace glimmet {

void LookSwitch::wish(bool dark, bool lessMotion)
{
    const int type = qmlTypeId("Glimmet", 1, 0, "Appearance");
    qmlEngine(this)->singletonInstance<Appearance *>(type)->setLook(
        { dark ? ColorScheme::Dark : ColorScheme::Light, lessMotion });
}

} // namespace glimmet
