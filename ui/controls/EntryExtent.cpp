#include "ui/controls/EntryExtent.h"

#include "ui/controls/TextExtent.h"

#include <algorithm>
#include <cmath>

namespace glimmet {

QSizeF EntryExtent::of(const QString &text, qreal listWidth) const
{
    const bool breaks = m_wrapWidth > 0;
    const QSizeF words = textExtent(text, m_font, breaks ? std::optional(m_wrapWidth) : std::nullopt);
    const qreal width = std::min(std::ceil(words.width()) + m_horizontalPadding, listWidth);
    return { breaks ? listWidth : width,
        std::ceil(std::max(words.height(), m_leastHeight)) + m_verticalPadding };
}

} // namespace glimmet
