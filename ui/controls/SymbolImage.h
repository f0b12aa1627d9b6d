#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QSvgRenderer>

#include <memory>

namespace glimmet {

/// One of the project's own symbols, named after its file, drawn in one colour at the screen's full
/// resolution.
class SymbolImage : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    /// The edge of the square that the symbol fills.
    Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged)
    /// Degrees clockwise by which the drawing is turned; unlike a turned item it keeps its soft edges.
    Q_PROPERTY(qreal turn READ turn WRITE setTurn NOTIFY turnChanged)

public:
    explicit SymbolImage(QQuickItem *parent = nullptr);

    QString name() const { return m_name; }
    void setName(const QString &name);
    QColor color() const { return m_color; }
    void setColor(const QColor &color);
    qreal size() const { return m_size; }
    void setSize(qreal size);
    qreal turn() const { return m_turn; }
    void setTurn(qreal degrees);

    void paint(QPainter *painter) override;

signals:
    void nameChanged();
    void colorChanged();
    void sizeChanged();
    void turnChanged();

private:
    QString m_name;
    QColor m_color = Qt::black;
    qreal m_size = 0;
    qreal m_turn = 0;
    std::shared_ptr<QSvgRenderer> m_drawing; ///< that all images of the name have
};

} // namespace glimmet
