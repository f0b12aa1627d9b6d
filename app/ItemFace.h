#pragma once

#include "core/TickerMode.h"
#include "platform/SingleShot.h"
#include "platform/desktop/ColorScheme.h"
#include "platform/desktop/StatusNotifierItem.h"

#include <QFlags>
#include <QString>

namespace glimmet {

/// What is seen of an item: its label, its pictures and its tooltip, each as the host takes it. Main thread.
class ItemFace {
public:
    /// What is known of the host.
    struct Manner {
        StatusNotifierItem::Presentation presentation = StatusNotifierItem::Presentation::Icon;
        bool hearsLabels = true; ///< false: it would be woken by each for nothing
        bool takesWidePictures = false;
        bool isBarDark = false; ///< whatever the desktop wants of windows
    };
    /// What a tooltip would lie over.
    enum class Cover { Panel = 1, Menu = 2 };

    /// What it is given outlives it.
    ItemFace(StatusNotifierItem &item, Timers &timers);

    void setManner(const Manner &manner);
    bool showsMenu() const { return m_manner.presentation == StatusNotifierItem::Presentation::Menu; }
    void setText(const QString &text);
    void setMode(TickerMode mode);
    void setColorScheme(ColorScheme scheme);
    /// Whether a host is there to be told of a tooltip.
    void setWatched(bool isWatched) { m_isWatched = isWatched; }
    /// Whether a feed is read, which has the text in the place of a wide picture.
    void setFed(bool isFed);
    void setCovered(Cover cover, bool isCovered);

private:
    bool paintsText() const { return m_manner.takesWidePictures && !m_isFed; }
    ColorScheme bar() const { return m_manner.isBarDark ? ColorScheme::Dark : m_scheme; }
    void updateLabel();
    void updateIcons();
    void updatePictures();
    void updateToolTip();
    void announceToolTip();

    StatusNotifierItem &m_item;
    SingleShot m_toolTipTimer;
    Manner m_manner;
    QList<NotifierPixmap> m_icons; ///< the mode's symbol, where the host shows pictures
    QString m_text;
    TickerMode m_mode = TickerMode::Clock;
    ColorScheme m_scheme = ColorScheme::Light;
    bool m_isWatched = false;
    bool m_isFed = false;
    bool m_isToolTipStale = false;
    QFlags<Cover> m_covers;
};

} // namespace glimmet
