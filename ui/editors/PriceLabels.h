#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// How the choices of the price editor look in the panel.
class PriceLabels : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// Seconds that a price may stay, in the order of their chips.
    Q_PROPERTY(QList<int> intervals READ intervals CONSTANT)

public:
    static QList<int> intervals();
    /// Such as "5s".
    Q_INVOKABLE static QString intervalLabel(int seconds);
};

} // namespace glimmet
