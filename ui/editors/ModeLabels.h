#pragma once

#include "core/TickerMode.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// How each display mode looks in the panel.
class ModeLabels : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// The modes in the order of their cards. QML takes enumerators as numbers.
    Q_PROPERTY(QList<int> all READ all CONSTANT)

public:
    static QList<int> all();
    Q_INVOKABLE static QString label(int mode);
    /// The name of the symbol on the mode's card.
    Q_INVOKABLE static QString symbol(int mode);
};

} // namespace glimmet
