#include "ui/panel/PanelAccessibility.h"

#include "ui/controls/ControlAccessible.h"
#include "ui/controls/FieldAccessible.h"
#include "ui/editors/SegmentAccessible.h"

#include <algorithm>
#include <array>

namespace glimmet {

namespace {

/// The types of the panel's files whose items the program itself tells of, and with them those made from
/// them: Qt asks for each type that an object has, beginning with its own.
constexpr std::array texts{ "InkText" };
constexpr std::array segments{ "DateTimeSegment" };
constexpr std::array fields{ "BorderedField" };
constexpr std::array controls{ "PlainButton", "Choice", "CalendarDay", "GlimmetToggle" };

/// Whether the engine made the object from one of these types' files.
template <std::size_t count> bool isOf(const std::array<const char *, count> &types, const QString &className)
{
    return std::any_of(types.begin(), types.end(), [&](const char *type) {
        return className.startsWith(QLatin1String(type) + QStringLiteral("_QMLTYPE"));
    });
}

QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    auto *item = qobject_cast<QQuickItem *>(object);
    if (item == nullptr)
        return nullptr;
    if (isOf(texts, className))
        return new ItemAccessible(*item);
    if (isOf(fields, className))
        return new FieldAccessible(*item);
    if (isOf(segments, className))
        return new SegmentAccessible(*item);
    if (isOf(controls, className))
        return new ControlAccessible(*item);
    return nullptr;
}

} // namespace

void installPanelAccessibility()
{
    QAccessible::installFactory(makeInterface);
}

} // namespace glimmet
