#include "app/ItemFace.h"

#include "app/ItemPicture.h"
#include "platform/Text.h"

#include <array>
#include <chrono>
#include <utility>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

/// A host reads the whole item anew when it is told of a tooltip, and hardly anybody looks at that.
constexpr auto toolTipPause = 10s;
/// Letters that MATE's panel has room for; it draws a longer label over what is beside it.
constexpr int longestLabel = 60;
/// The sizes of icons that panels ask for, also at twice the scale.
constexpr std::array iconSizes{ 22, 44, 64 };
/// A text is painted for twice the scale: panels shrink it to their own height.
constexpr int widePictureHeight = 44;

} // namespace

ItemFace::ItemFace(StatusNotifierItem &item, Timers &timers)
    : m_item(item)
    , m_toolTipTimer(timers, toolTipPause, [this] {
        if (m_isToolTipStale)
            announceToolTip();
    })
{
}

void ItemFace::setManner(const Manner &manner)
{
    m_manner = manner;
    m_item.setPresentation(manner.presentation);
    m_item.setLabelHeard(manner.hearsLabels);
    updateLabel();
    updateIcons();
}

void ItemFace::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    updateLabel();
    if (paintsText())
        updatePictures();
    updateToolTip();
}

void ItemFace::setMode(TickerMode mode)
{
    if (mode == m_mode)
        return;
    m_mode = mode;
    updateIcons();
    if (m_isToolTipStale)
        announceToolTip();
    // The text of the new mode follows, and is told at once.
    m_toolTipTimer.stop();
}

void ItemFace::setColorScheme(ColorScheme scheme)
{
    if (scheme == m_scheme)
        return;
    m_scheme = scheme;
    updateIcons();
}

void ItemFace::setFed(bool isFed)
{
    if (isFed == m_isFed)
        return;
    m_isFed = isFed;
    m_item.setFollowed(isFed);
    if (m_manner.takesWidePictures)
        updatePictures();
}

void ItemFace::setCovered(Cover cover, bool isCovered)
{
    if (m_covers.testFlag(cover) == isCovered)
        return;
    m_covers.setFlag(cover, isCovered);
    m_toolTipTimer.stop();
    updateToolTip();
}

void ItemFace::updateLabel()
{
    const bool isShort = m_manner.presentation == StatusNotifierItem::Presentation::Label;
    m_item.setLabel(isShort ? shortened(m_text, longestLabel) : m_text);
}

void ItemFace::updateIcons()
{
    if (m_manner.presentation != StatusNotifierItem::Presentation::Icon)
        return;
    m_icons.clear();
    for (const int size : iconSizes)
        m_icons.append(notifierPixmap(modePicture(m_mode, size, bar())));
    updatePictures();
}

void ItemFace::updatePictures()
{
    if (m_manner.presentation != StatusNotifierItem::Presentation::Icon)
        return;
    QList<NotifierPixmap> pictures = m_icons;
    if (paintsText())
        pictures.append(notifierPixmap(textPicture(m_text, widePictureHeight, bar())));
    m_item.setPictures(std::move(pictures));
}

void ItemFace::updateToolTip()
{
    m_item.setToolTip(m_covers ? QString() : m_text);
    if (showsMenu() || !m_isWatched)
        return;
    if (m_toolTipTimer.isRunning())
        m_isToolTipStale = true;
    else
        announceToolTip();
}

void ItemFace::announceToolTip()
{
    m_isToolTipStale = false;
    m_item.announceToolTip();
    m_toolTipTimer.start();
}

} // namespace glimmet
