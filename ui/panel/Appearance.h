#pragma once

#include "platform/desktop/DesktopLook.h"
#include "ui/panel/PanelColors.h"
#include "ui/panel/Shades.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace glimmet {

/// The look that the desktop asks of the panel, read by the theme. Each engine has its own, as a child: the
/// one that was given to it, else a light one.
class Appearance : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QColor background READ background NOTIFY changed)
    Q_PROPERTY(QColor ink READ ink NOTIFY changed)
    Q_PROPERTY(QColor accent READ accent NOTIFY changed)
    Q_PROPERTY(QColor accentOnInk READ accentOnInk NOTIFY changed)
    Q_PROPERTY(glimmet::Shades shades READ shades NOTIFY changed)
    Q_PROPERTY(QColor knob READ knob CONSTANT)
    Q_PROPERTY(bool animates READ animates NOTIFY changed)
    Q_PROPERTY(bool isAttended READ isAttended NOTIFY attendedChanged)
    Q_PROPERTY(QString monospacedFamily READ monospacedFamily CONSTANT)

public:
    explicit Appearance(QQmlEngine *engine);
    /// How QML finds the engine's own.
    static Appearance *create(QQmlEngine *engine, QJSEngine *);

    void setLook(const DesktopLook &look);

    QColor background() const { return m_colors.background; }
    QColor ink() const { return m_colors.ink; }
    QColor accent() const { return m_colors.accent; }
    /// The highlight on a fill of ink, where day and night change places.
    QColor accentOnInk() const;
    /// The same colours at any opacity.
    Shades shades() const { return m_shades; }
    /// The moving part of a switch, the same light one day and night.
    QColor knob() const { return panelColors(ColorScheme::Light).background; }
    /// False where the desktop's user wants nothing to move for show.
    bool animates() const { return !m_look.reducesMotion; }
    /// False while nobody seems to look: then nothing needs to move that only says that the panel is alive.
    bool isAttended() const { return m_isAttended; }
    void setAttended(bool isAttended);
    /// The desktop's own font for codes and keys.
    QString monospacedFamily() const;

signals:
    void changed();
    void attendedChanged();

private:
    DesktopLook m_look;
    PanelColors m_colors = panelColors(m_look.scheme);
    Shades m_shades;
    bool m_isAttended = true;
};

} // namespace glimmet
