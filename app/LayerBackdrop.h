#pragma once

#include "app/PanelBackdrop.h"
#include "platform/SingleShot.h"
#include "platform/desktop/I3Connection.h"

#include <QSize>

#include <memory>
#include <vector>

namespace glimmet {

class LayerSurface;
class WaylandConnection;
struct WaylandOutput;

/// Whether the compositor puts X windows where it likes, and tells of the pointer only on its layers, which
/// it has.
bool needsLayers(const WaylandConnection &connection);

/// Where a panel drops down from if the pointer is at `pointer` on an output of this geometry, of which
/// `free` is not taken by bars: the inner edge of the bar under the pointer, else the pointer itself.
QPoint besideBar(QPoint pointer, const QRect &output, QSize free);

/// A clear surface over every output of a Wayland compositor, also over its bars.
class LayerBackdrop final : public PanelBackdrop {
    Q_OBJECT

public:
    /// `connection` and `timers` outlive it; the connection has layers. `swayPath`: of the socket over which
    /// sway tells of its windows; empty elsewhere.
    LayerBackdrop(
        WaylandConnection &connection, const QByteArray &swayPath, Timers &timers, QObject *parent = nullptr);
    ~LayerBackdrop() override;

    void letThrough(const QRect &place) override;
    void setOpen(bool isOpen) override;

private:
    struct Cover;

    void coverAll();
    bool hasAllOutputs() const;
    void seekPointer();
    void takePresses(Cover &cover) const;

    WaylandConnection &m_connection;
    I3Connection m_sway;
    std::vector<std::unique_ptr<Cover>> m_covers;
    QRect m_hole;
    bool m_isOpen = false;
    SingleShot m_seekTimer; ///< until the pointer is found
    int m_seeks = 0;
};

} // namespace glimmet
