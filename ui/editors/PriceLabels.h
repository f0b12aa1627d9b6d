#pragma once

#include "prices/PriceResult.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <optional>

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
    /// Why there is no price; empty where there is one.
    static QString trouble(std::optional<PriceFailure> failure);
    /// When a price came, such as "as of 14:32".
    static QString asOf(const QString &time);
};

} // namespace glimmet
