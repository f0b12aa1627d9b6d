#pragma once

#include <QList>
#include <QRect>

#include <optional>

struct xcb_connection_t;

namespace glimmet {

/// One of the windows of the root that can be seen, lowest first in a list; and bars that i3 has taken away.
struct RootWindow {
    enum class Kind {
        Frame, ///< which i3 puts around another program's window
        Bar, ///< a frame with a bar in it
        CoveredBar, ///< the same, hidden by i3: something fills the screen, a container as well as a window
        FullScreen, ///< a frame with a window in it that fills its screen
        Other, ///< what goes past i3, such as menus and lockers
    };

    quint32 id = 0;
    QRect area; ///< in native pixels of the root window
    Kind kind = Kind::Other;
};

/// What the server calls what is asked about a frame, the same for as long as it runs.
struct FrameAtoms {
    quint32 windowType = 0;
    quint32 dock = 0;
    quint32 state = 0;
    quint32 fullScreen = 0;
};

/// Asks the server; like all calls with a connection it waits for the answers.
FrameAtoms frameAtoms(xcb_connection_t *connection);

QList<RootWindow> rootWindows(xcb_connection_t *connection, const FrameAtoms &atoms);

/// The areas of the bars among them, of covered ones too, which are back in a moment.
QList<QRect> barsAmong(const QList<RootWindow> &windows);

/// Where a window is to be put right above or right below another one.
struct StackPlace {
    enum class Side { Above, Below };

    quint32 sibling = 0;
    Side side = Side::Above;

    friend bool operator==(const StackPlace &, const StackPlace &) = default;
};

/// Where a window on `screen` has to go to be above all frames there, but below those that fill it, and below
/// all of them where its bar is covered; none where it is there, or where there are no frames. `screen` is in
/// native pixels of the root window.
std::optional<StackPlace> placeAmongFrames(
    const QList<RootWindow> &windows, quint32 own, const QRect &screen);

} // namespace glimmet
