#include "platform/desktop/BarColors.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <cstring>

namespace glimmet::I3Ipc {
namespace {

const QByteArray magic = QByteArrayLiteral("i3-ipc");
constexpr qsizetype headSize = 6 + 2 * sizeof(quint32);
constexpr quint32 mostPayload = 1 << 20;

/// "#rrggbb", or with the opacity behind it; what shows through a bar is not known, so that is left out.
QColor colorOf(const QJsonValue &value, const QColor &usual)
{
    const QColor color(value.toString().left(7));
    return color.isValid() ? color : usual;
}

} // namespace

QByteArray message(Type type, const QByteArray &payload)
{
    const std::array<quint32, 2> numbers{ static_cast<quint32>(payload.size()), static_cast<quint32>(type) };
    return magic + QByteArray(reinterpret_cast<const char *>(numbers.data()), sizeof(numbers)) + payload;
}

std::optional<QByteArray> takePayload(QByteArray &buffer)
{
    if (buffer.size() < headSize)
        return std::nullopt;
    quint32 size = 0;
    std::memcpy(&size, buffer.constData() + magic.size(), sizeof(size));
    if (!buffer.startsWith(magic) || size > mostPayload) {
        buffer.clear();
        return std::nullopt;
    }
    if (buffer.size() < headSize + qsizetype(size))
        return std::nullopt;
    const QByteArray payload = buffer.mid(headSize, size);
    buffer.remove(0, headSize + qsizetype(size));
    return payload;
}

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
