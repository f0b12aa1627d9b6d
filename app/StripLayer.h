#pragma once

#include "app/StripFace.h"
#include "app/StripPicture.h"
#include "platform/SingleShot.h"

#include <QPointF>

#include <memory>
#include <optional>

namespace glimmet {

class LayerSurface;
class WaylandConnection;
struct LayerPlace;

/// The strip as a surface on a layer of a Wayland compositor, at the upper edge of its first output, below a
/// bar that is there. Where that is, only the pointer's place tells: a click looks for it.
class StripLayer final : public StripFace {
    Q_OBJECT

public:
    /// `connection` outlives it.
    StripLayer(WaylandConnection &connection, Timers &timers, int inset);
    ~StripLayer() override;

    void setText(const QString &text) override;
    void setColors(const BarColors &colors) override;
    /// As if there were no bar beside it until a click has told.
    std::optional<QPoint> anchor() const override;

private:
    void makeSurface();
    void beginDrag();
    void fit();
    void draw();
    LayerPlace place();
    void cover();
    int length() const;
    void handlePress(QPointF position, quint32 button);
    void handleMove(QPointF position);
    void handleMoveOverCover(QPointF position);
    void moveTo(int along);
    void handleLeaving();
    void handleRelease(quint32 button);
    void notePlace(QPointF position);
    void endSearch();
    void giveUp();
    void endLater(bool isClick);
    void end(bool isClick);

    WaylandConnection &m_connection;
    std::unique_ptr<LayerSurface> m_surface;
    /// What is seen of it while it is dragged: compositors differ in what positions in a surface that moves
    /// mean, so the pressed one stays where it is.
    std::unique_ptr<LayerSurface> m_dragged;
    /// Over the whole output from a press on: some compositors leave the pointer to what it moves over while
    /// a button is down, others when it is let go.
    std::unique_ptr<LayerSurface> m_cover;
    StripText m_text;
    BarColors m_colors;
    QSize m_size{ 0, 0 };
    int m_inset;
    StripPress m_press;
    int m_pressedStart = 0; ///< where the strip began at the press, from the output's left edge
    int m_below = 0; ///< from the pointer down to the strip's lower edge
    bool m_isPlaced = false; ///< by the present press
    bool m_isClicked = false; ///< and the click is held back until the pointer is found
    std::optional<int> m_lowerEdge; ///< from the output's upper edge, as the last press told
    SingleShot m_search; ///< while the pointer is nowhere
};

} // namespace glimmet
