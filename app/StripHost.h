#pragma once

#include "app/MenuBarHost.h"
#include "platform/desktop/ColorScheme.h"

#include <QRasterWindow>

#include <memory>

namespace glimmet {

/// The strip's window: one line of text at the right, on the whole width of its screen.
class StripWindow final : public QRasterWindow {
    Q_OBJECT

public:
    StripWindow();

    void setText(const QString &text);
    void setColorScheme(ColorScheme scheme);
    /// The text's middle at the strip's lower edge, logical.
    QPoint anchor() const;

signals:
    void clicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    int textWidth() const;

    QString m_text;
    ColorScheme m_scheme = ColorScheme::Light;
};

/// Shows the text in a strip of our own at the upper edge of the primary screen, for desktops that have no
/// place for items. The window exists only while it is shown.
class StripHost final : public MenuBarHost {
    Q_OBJECT

public:
    using MenuBarHost::MenuBarHost;
    ~StripHost() override;

    bool isAvailable() const override { return true; }
    QString place() const override { return QStringLiteral("a strip"); }
    void setText(const QString &text) override;
    void setShown(bool shown) override;
    void setColorScheme(ColorScheme scheme) override;
    std::optional<QPoint> anchor() const override;

private:
    void show();
    void place();

    QString m_text;
    ColorScheme m_scheme = ColorScheme::Light;
    std::unique_ptr<StripWindow> m_window;
    QMetaObject::Connection m_screenConnection;
    int m_barHeight = 0; ///< of another program's bar at the screen's upper edge, logical
};

} // namespace glimmet
