#pragma once

#include <QObject>

namespace glimmet {

/// Lets a QML test be the desktop that says how the panel shall look.
class LookSwitch : public QObject {
    Q_OBJECT

public:
    Q_INVOKABLE void wish(bool dark, bool lessMotion);
};

} // namespace glimmet
