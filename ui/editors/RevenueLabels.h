#pragma once

#include <QList>
#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// How the revenue choices look in the panel. QML takes enumerators as numbers.
class RevenueLabels : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// The choices in the order of their chips.
    Q_PROPERTY(QList<int> providers READ providers CONSTANT)
    Q_PROPERTY(QList<int> metrics READ metrics CONSTANT)
    Q_PROPERTY(QList<int> periods READ periods CONSTANT)
    /// The codes that are offered for the platforms that are asked in a currency.
    Q_PROPERTY(QStringList currencies READ currencies CONSTANT)

public:
    static QList<int> providers();
    static QList<int> metrics();
    static QList<int> periods();
    static QStringList currencies();

    Q_INVOKABLE static QString providerLabel(int provider);
    Q_INVOKABLE static QString providerSymbol(int provider);
    Q_INVOKABLE static QString metricLabel(int metric);
    /// What a screen reader says for the metric's chip; no mode card is called so.
    Q_INVOKABLE static QString metricName(int metric);
    Q_INVOKABLE static QString metricSymbol(int metric);
    Q_INVOKABLE static QString periodLabel(int period);
    Q_INVOKABLE static QString periodSymbol(int period);
    /// What there is to say about the periods where the platform does not heed them; empty elsewhere.
    Q_INVOKABLE static QString periodNote(int provider);
};

} // namespace glimmet
