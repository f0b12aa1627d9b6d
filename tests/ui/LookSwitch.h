#pragma once

#include <QObject>

namespace glimmet {

class Appearance;

/// Lets a QML test be the desktop that says how the panel shall look.
class LookSwitch : public QObject {
    Q_OBJECT

public:
    Q_INVOKABLE void wish(bool dark, bool lessMotion);
    /// Whether the panel is being used.
    Q_INVOKABLE void setAttended(bool isAttended);

private:
    Appearance &appearance();
};

} // namespace glimmet
