#include "platform/desktop/BarColors.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace glimmet::I3Ipc {
namespace {

/// "#rrggbb", or with the opacity behind it; what shows through a bar is not known, so that is left out.
QColor colorOf(const QJsonValue &value, const QColor &usual)
{
    const QColor color(value.toString().left(7));
    return color.isValid() ? color : usual;
}

} // namespace

QString firstBar(const QByteArray &payload)
{
    return QJsonDocument::fromJson(payload).array().first().toString();
}

std::optional<BarColors> barColors(const QByteArray &payload)
{
    const QJsonDocument document = QJsonDocument::fromJson(payload);
    if (!document.isObject() || !document.object().contains(QLatin1String("id")))
        return std::nullopt;
    const QJsonObject colors = document.object().value(QLatin1String("colors")).toObject();
    const BarColors found{ colorOf(colors.value(QLatin1String("background")), Qt::black),
        colorOf(colors.value(QLatin1String("statusline")), Qt::white) };
    return found.background == found.ink ? std::nullopt : std::optional(found);
}

} // namespace glimmet::I3Ipc
