#include "ui/controls/SymbolImage.h"

#include <QHash>
#include <QPainter>

namespace glimmet {

namespace {

QString symbolFile(const QString &name)
{
    return QStringLiteral(":/qt-project.org/imports/Glimmet/symbols/%1.svg").arg(name);
}

/// The drawing of a symbol, for as long as anything shows it: a list shows the same one in each row. Main
/// thread.
std::shared_ptr<QSvgRenderer> drawingOf(const QString &name)
{
    static QHash<QString, std::weak_ptr<QSvgRenderer>> known;
    std::weak_ptr<QSvgRenderer> &entry = known[name];
    std::shared_ptr<QSvgRenderer> drawing = entry.lock();
    if (!drawing)
        entry = drawing = std::make_shared<QSvgRenderer>(symbolFile(name));
    return drawing;
}

} // namespace

SymbolImage::SymbolImage(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void SymbolImage::setName(const QString &name)
{
    if (m_name == name)
        return;
    m_name = name;
    m_drawing = name.isEmpty() ? nullptr : drawingOf(name);
    emit nameChanged();
    update();
}

void SymbolImage::setColor(const QColor &color)
{
    if (m_color == color)
        return;
    m_color = color;
    emit colorChanged();
    update();
}

void SymbolImage::setSize(qreal size)
{
    if (qFuzzyCompare(m_size, size))
        return;
    m_size = size;
    setImplicitSize(size, size);
    emit sizeChanged();
}

void SymbolImage::setTurn(qreal degrees)
{
    if (qFuzzyCompare(1 + m_turn, 1 + degrees))
        return;
    m_turn = degrees;
    emit turnChanged();
    update();
}

void SymbolImage::paint(QPainter *painter)
{
    if (!m_drawing)
        return;
    const QPointF center = boundingRect().center();
    painter->save();
    painter->translate(center);
    painter->rotate(m_turn);
    painter->translate(-center);
    m_drawing->render(painter, boundingRect());
    painter->restore();
    // The drawings are black; what they cover takes the colour, with its opacity.
    painter->setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter->fillRect(boundingRect(), m_color);
}

} // namespace glimmet
