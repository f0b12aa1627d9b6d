#pragma once

#include "core/TickerMode.h"
#include "platform/desktop/ColorScheme.h"

#include <QObject>
#include <QPoint>

#include <optional>

namespace glimmet {

/// A place in the desktop's menu bar that can show one line of text. Main thread.
class MenuBarHost : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Whether the desktop has this place now.
    virtual bool isAvailable() const = 0;
    /// Whether something of it is on the screen to be clicked.
    virtual bool isSeen() const { return isAvailable(); }
    /// The place in words, as in "shown as an item".
    virtual QString place() const = 0;
    /// The text to show, already fit for one line. Kept while the host is not shown.
    virtual void setText(const QString &text) = 0;
    /// Whether the text is here, and not in another host.
    virtual void setShown(bool shown) = 0;
    /// Whether it is in one that goes before this one.
    virtual void setOutranked(bool) {}
    /// What the text is about, told before the text itself.
    virtual void setMode(TickerMode) {}
    /// The desktop's, for a host that paints by itself.
    virtual void setColorScheme(ColorScheme) {}
    /// Whether the panel is open, over which nothing of the host's shall lie.
    virtual void setPanelOpen(bool) {}
    /// Where the panel drops down from, in native pixels of the root window; none while that is not known.
    virtual std::optional<QPoint> anchor() const = 0;
    /// Whether that is on the edge that the panel hangs from. Otherwise it is a place inside the bar, and
    /// some desktops tell of none.
    virtual bool knowsEdge() const { return false; }

signals:
    void availabilityChanged();
    /// The user clicked the text, with any button.
    void clicked();
    /// The user pressed something of the desktop's own, of which the X server may not tell.
    void pressedElsewhere();
    /// Chosen in the menu of a host that keeps it open.
    void openChosen();
    void quitChosen();
};

} // namespace glimmet
