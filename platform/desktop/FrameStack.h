#pragma once

#include "platform/SingleShot.h"
#include "platform/desktop/Frames.h"

#include <QList>
#include <QObject>
#include <QRect>
#include <QSocketNotifier>

#include <memory>

struct xcb_connection_t;

namespace glimmet {

/// Keeps a window that goes past i3 among the frames which that one puts around all others: above those of
/// its screen, but below one that fills it; menus and lockers, which have no frame, stay above it. i3 makes
/// its frames anew when it restarts, and tells of no work area, so this looks again whenever a window of the
/// root comes, goes or moves. It has a connection of its own. Main thread.
class FrameStack final : public QObject {
    Q_OBJECT

public:
    /// `window` stays as long as this does; `timers` outlives it.
    FrameStack(quint32 window, Timers &timers, QObject *parent = nullptr);
    ~FrameStack() override;

    /// Where the window is, in native pixels of the root window. Before the first call nothing is kept.
    void setScreen(const QRect &screen);

    /// Where bars are, in native pixels of the root window.
    const QList<QRect> &bars() const { return m_bars; }

signals:
    void barsChanged();

private:
    void readEvents();
    void look();

    xcb_connection_t *m_connection;
    FrameAtoms m_atoms;
    quint32 m_window;
    QRect m_screen;
    QList<QRect> m_bars;
    SingleShot m_lookTimer;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace glimmet
