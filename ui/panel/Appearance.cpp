#include "ui/panel/Appearance.h"

#include <QFontDatabase>
#include <QQmlEngine>

namespace glimmet {

Appearance::Appearance(QQmlEngine *engine)
    : QObject(engine)
{
}

Appearance *Appearance::create(QQmlEngine *engine, QJSEngine *)
{
    auto *appearance = engine->findChild<Appearance *>(QString(), Qt::FindDirectChildrenOnly);
    if (appearance == nullptr)
        appearance = new Appearance(engine);
    QJSEngine::setObjectOwnership(appearance, QJSEngine::CppOwnership);
    return appearance;
}

void Appearance::setLook(const DesktopLook &look)
{
    m_look = look;
    m_colors = panelColors(look.scheme);
    m_shades = Shades(look);
    emit changed();
}

void Appearance::setAttended(bool isAttended)
{
    if (isAttended == m_isAttended)
        return;
    m_isAttended = isAttended;
    emit attendedChanged();
}

QColor Appearance::accentOnInk() const
{
    return panelColors(m_look.scheme == ColorScheme::Dark ? ColorScheme::Light : ColorScheme::Dark).accent;
}

QString Appearance::monospacedFamily() const
{
    return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

} // namespace glimmet
