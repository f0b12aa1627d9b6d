#pragma once

#include "app/StripFace.h"
#include "app/StripPicture.h"

#include <QPointF>

#include <memory>

namespace glimmet {

class LayerSurface;
class WaylandConnection;
struct LayerPlace;

/// The strip as a surface on a layer of a Wayland compositor, at the upper edge of its first output, below a
/// bar that is there.
class StripLayer final : public StripFace {
    Q_OBJECT

public:
    /// `connection` outlives it.
    StripLayer(WaylandConnection &connection, int inset);
    ~StripLayer() override;

    void setText(const QString &text) override;
    void setColorScheme(ColorScheme scheme) override;
    /// As if there were no bar beside it, of which only the pointer's place tells.
    std::optional<QPoint> anchor() const override;
    QPoint anchorFromPointer() const override { return m_anchorFromPointer; }

private:
    void makeSurface();
    void beginDrag();
    void fit();
    void draw();
    LayerPlace place();
    void cover();
    int length() const;
    void handlePress(QPointF position, quint32 button);
    void handleMove(int along);
    void handleLeaving();
    void handleRelease(quint32 button);

    WaylandConnection &m_connection;
    std::unique_ptr<LayerSurface> m_surface;
    /// What is seen of it while it is dragged: compositors differ in what positions in a surface that moves
    /// mean, so the pressed one stays where it is.
    std::unique_ptr<LayerSurface> m_dragged;
    /// Over the whole output while it is dragged: some compositors leave the pointer to what it moves
    /// over.
    std::unique_ptr<LayerSurface> m_cover;
    QString m_text;
    ColorScheme m_scheme = ColorScheme::Light;
    QSize m_size{ 0, 0 };
    int m_inset;
    StripPress m_press;
    int m_pressedStart = 0; ///< where the strip began at the press, from the output's left edge
    QPoint m_anchorFromPointer;
};

} // namespace glimmet
