#include "platform/desktop/I3Ipc.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <cstring>

namespace glimmet::I3Ipc {
namespace {

const QByteArray magic = QByteArrayLiteral("i3-ipc");
constexpr qsizetype headSize = 6 + 2 * sizeof(quint32);
constexpr quint32 mostPayload = 1 << 20;

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
    QByteArray payload = buffer.mid(headSize, size);
    buffer.remove(0, headSize + qsizetype(size));
    return payload;
}

bool isFocusEvent(const QByteArray &payload)
{
    const QJsonObject event = QJsonDocument::fromJson(payload).object();
    return event.contains(QLatin1String("container"))
        && event.value(QLatin1String("change")) == QLatin1String("focus");
}

} // namespace glimmet::I3Ipc
