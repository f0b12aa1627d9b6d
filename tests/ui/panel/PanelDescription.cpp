#include "tests/ui/panel/PanelDescription.h"

#include "ui/controls/RoundedBox.h"
#include "ui/panel/Contrast.h"

#include <QFont>
#include <QHash>
#include <QImage>
#include <QQuickItem>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace glimmet {
namespace {

constexpr double tolerance = 1;
constexpr double measureTolerance = 0.01; // which a line of a file is exact to
constexpr int colorTolerance = 2;
constexpr int surfaceInset = 4;

/// The QML type of an item, or its C++ class without the toolkit's prefix.
QString typeOf(const QQuickItem &item)
{
    QString name = QString::fromLatin1(item.metaObject()->className());
    const qsizetype generated = name.indexOf(QStringLiteral("_QML"));
    if (generated > 0)
        name.truncate(generated);
    for (const QString &prefix : { QStringLiteral("glimmet::"), QStringLiteral("QQuick") }) {
        if (name.startsWith(prefix))
            name.remove(0, prefix.size());
    }
    return name;
}

QString colorText(const QVariant &color)
{
    return color.value<QColor>().name(QColor::HexArgb);
}

bool isText(const QQuickItem &item)
{
    return item.inherits("QQuickText") || item.inherits("QQuickTextInput");
}

bool isSurface(const QQuickItem &item)
{
    return qobject_cast<const RoundedBox *>(&item) != nullptr || item.inherits("QQuickRectangle");
}

bool isFilled(const QQuickItem &item)
{
    return isSurface(item) && item.property("color").value<QColor>().alpha() > 0;
}

QString styleOf(const QQuickItem &item)
{
    if (const auto *box = qobject_cast<const RoundedBox *>(&item))
        return QStringLiteral("%1 border %2 %3 radius %4")
            .arg(colorText(box->color()), colorText(box->borderColor()))
            .arg(box->borderWidth())
            .arg(box->radius());
    if (item.inherits("glimmet::SymbolImage"))
        return item.property("name").toString() + u' ' + colorText(item.property("color"));
    QString style = colorText(item.property("color"));
    if (isText(item)) {
        const QFont font = item.property("font").value<QFont>();
        style += QStringLiteral(" %1px %2").arg(font.pixelSize()).arg(font.weight());
    }
    return style;
}

QString textOf(const QQuickItem &item)
{
    return isText(item) ? item.property(item.inherits("QQuickTextInput") ? "displayText" : "text").toString()
                        : QString();
}

double measureOf(const QQuickItem &item)
{
    if (!isText(item))
        return 0;
    const QFont font = item.property("font").value<QFont>();
    // Nothing but what the description tells, so that no other change passes for one of the font.
    QFont plain(font.families());
    plain.setPixelSize(font.pixelSize());
    plain.setWeight(font.weight());
    // As the toolkit does it: with what the last letter has beyond its own width.
    QTextLayout layout(textOf(item), plain);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line.isValid() ? line.naturalTextWidth() : 0;
}

/// Where a surface's color is looked for.
QPointF pointOf(const QRectF &area)
{
    return { area.left() + std::min<double>(surfaceInset, area.width() / 2), area.center().y() };
}

QColor pixelOf(const QQuickItem &item, const QRectF &area, const QImage &picture)
{
    if (!isFilled(item))
        return {};
    const QPointF point = pointOf(area);
    return picture.rect().contains(point.toPoint()) ? picture.pixelColor(point.toPoint()) : QColor();
}

QColor commonestColor(const QImage &picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    const auto byCount = [&counts](QRgb one, QRgb other) { return counts[one] < counts[other]; };
    const QList<QRgb> colors = counts.keys();
    return colors.isEmpty() ? QColor() : QColor(*std::max_element(colors.begin(), colors.end(), byCount));
}

bool isDrawn(const QQuickItem &item)
{
    return isText(item) || isSurface(item) || item.inherits("QQuickPaintedItem");
}

/// Where an item stands in the tree.
struct Surroundings {
    QString component; ///< that it belongs to
    double opacity = 1; ///< of all around it
};

/// Hands every visible item below `item` to `visit`, with its surroundings.
template <typename Visit>
void walk(const QQuickItem &item, const Surroundings &surroundings, const Visit &visit)
{
    const double opacity = surroundings.opacity * item.opacity();
    if (!item.isVisible() || opacity <= 0)
        return;
    const bool isComponent = QByteArray(item.metaObject()->className()).contains("_QML");
    visit(item, surroundings.component, opacity);
    for (const QQuickItem *child : item.childItems())
        walk(*child, { isComponent ? typeOf(item) : surroundings.component, opacity }, visit);
}

QString opacityText(double opacity)
{
    return opacity < 1 ? QStringLiteral(" opacity %1").arg(opacity, 0, 'f', 2) : QString();
}

QStringList channels(const QColor &color)
{
    return { QString::number(color.red()), QString::number(color.green()), QString::number(color.blue()) };
}

/// `slack`: to the sides.
bool isNear(const QRectF &one, const QRectF &other, double slack)
{
    const auto within = [](double most, double distance) { return std::abs(distance) <= most; };
    return within(tolerance + slack, one.x() - other.x()) && within(tolerance, one.y() - other.y())
        && within(tolerance + slack, one.right() - other.right())
        && within(tolerance, one.bottom() - other.bottom());
}

bool isNear(const QColor &one, const QColor &other)
{
    return one.isValid() == other.isValid() && std::abs(one.red() - other.red()) <= colorTolerance
        && std::abs(one.green() - other.green()) <= colorTolerance
        && std::abs(one.blue() - other.blue()) <= colorTolerance;
}

/// The component says where to look; what is drawn may move to another one.
QString typeIn(const QString &what)
{
    return what.section(u'.', -1);
}

bool isSame(const DrawnItem &one, const DrawnItem &other, double slack)
{
    return typeIn(one.what) == typeIn(other.what) && one.text == other.text && one.style == other.style
        && isNear(one.area, other.area, slack);
}

/// Whether a letter may be where the surface's color was looked for.
bool isUnderText(const DrawnItem &surface, const QList<DrawnItem> &all)
{
    return std::any_of(all.begin(), all.end(), [&](const DrawnItem &other) {
        return !other.text.isEmpty() && other.area.contains(pointOf(surface.area));
    });
}

bool areBeside(const QRectF &one, const QRectF &other)
{
    return one.top() < other.bottom() && other.top() < one.bottom();
}

/// By how much the font sets the texts beside `item` otherwise than it did.
double slackOf(const DrawnItem &item, const QList<DrawnItem> &expected, const QList<DrawnItem> &actual)
{
    double slack = 0;
    for (qsizetype i = 0; i < std::min(expected.size(), actual.size()); ++i) {
        const bool isSameText = expected[i].text == actual[i].text && expected[i].style == actual[i].style;
        const double difference = std::abs(expected[i].measure - actual[i].measure);
        // The panel gives every text whole pixels.
        if (isSameText && difference > measureTolerance && areBeside(item.area, expected[i].area))
            slack += std::ceil(difference);
    }
    return slack;
}

bool isAsItWas(qsizetype i, const QList<DrawnItem> &expected, const QList<DrawnItem> &actual)
{
    const double slack = slackOf(expected[i], expected, actual);
    // Another release of the font draws other letters.
    const bool isOtherLetter = slack > 0 && isUnderText(expected[i], expected);
    return isSame(expected[i], actual[i], slack)
        && (isOtherLetter || isNear(expected[i].pixel, actual[i].pixel));
}

} // namespace

QString DrawnItem::toLine() const
{
    const QString place = QStringLiteral("%1,%2 %3x%4")
                              .arg(area.x(), 0, 'f', 1)
                              .arg(area.y(), 0, 'f', 1)
                              .arg(area.width(), 0, 'f', 1)
                              .arg(area.height(), 0, 'f', 1);
    const QString seen = pixel.isValid() ? channels(pixel).join(u',') : QString();
    QStringList fields{ what, place, text, style, seen };
    if (measure > 0)
        fields.append(QString::number(measure, 'f', 2));
    return fields.join(u'\t');
}

DrawnItem DrawnItem::fromLine(const QString &line)
{
    const QStringList fields = line.split(u'\t');
    DrawnItem item{ fields.value(0), {}, fields.value(2), fields.value(3), {}, fields.value(5).toDouble() };
    const QStringList place = QString(fields.value(1)).replace(u' ', u',').replace(u'x', u',').split(u',');
    item.area = { place.value(0).toDouble(), place.value(1).toDouble(), place.value(2).toDouble(),
        place.value(3).toDouble() };
    const QStringList seen = fields.value(4).split(u',', Qt::SkipEmptyParts);
    if (seen.size() == 3)
        item.pixel = QColor(seen[0].toInt(), seen[1].toInt(), seen[2].toInt());
    return item;
}

QList<DrawnItem> drawnItems(QQuickWindow &window)
{
    const QImage picture = window.grabWindow();
    QList<DrawnItem> items;
    walk(*window.contentItem(), {}, [&](const QQuickItem &item, const QString &component, double opacity) {
        if (!isDrawn(item) || item.width() <= 0 || item.height() <= 0)
            return;
        const QRectF area = item.mapRectToScene({ 0, 0, item.width(), item.height() });
        items.append({ component + u'.' + typeOf(item), area, textOf(item),
            styleOf(item) + opacityText(opacity), pixelOf(item, area, picture), measureOf(item) });
    });
    return items;
}

QList<ShownText> shownTexts(QQuickWindow &window)
{
    const QImage picture = window.grabWindow();
    QList<ShownText> texts;
    walk(*window.contentItem(), {}, [&](const QQuickItem &item, const QString &, double opacity) {
        if (!item.isEnabled() || textOf(item).isEmpty() || item.width() <= 0 || item.height() <= 0)
            return;
        const QRect area = item.mapRectToScene({ 0, 0, item.width(), item.height() }).toRect();
        const QColor color = item.property("color").value<QColor>();
        const QColor ground = commonestColor(picture.copy(area & picture.rect()));
        const QColor seen = laidOver(atOpacity(color, color.alphaF() * opacity), ground);
        texts.append({ textOf(item), seen, ground });
    });
    return texts;
}

QStringList differences(const QList<DrawnItem> &expected, const QList<DrawnItem> &actual)
{
    QStringList found;
    for (qsizetype i = 0; i < std::max(expected.size(), actual.size()); ++i) {
        const QString wanted = i < expected.size() ? expected[i].toLine() : QStringLiteral("nothing");
        const QString drawn = i < actual.size() ? actual[i].toLine() : QStringLiteral("nothing");
        if (i >= expected.size() || i >= actual.size() || !isAsItWas(i, expected, actual))
            found.append(QStringLiteral("expected %1\n     got %2").arg(wanted, drawn));
    }
    return found;
}

} // namespace glimmet
