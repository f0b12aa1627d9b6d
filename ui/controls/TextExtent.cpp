#include "ui/controls/TextExtent.h"

#include <QTextLayout>

#include <algorithm>
#include <limits>

namespace glimmet {

QSizeF textExtent(const QString &text, const QFont &font, std::optional<qreal> wrapWidth)
{
    QString lines = text;
    lines.replace(u'\n', QChar::LineSeparator);
    QTextLayout layout(lines, font);
    QTextOption option;
    option.setWrapMode(wrapWidth ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    option.setUseDesignMetrics(true); // As the text item does, so that texts can be scaled.
    layout.setTextOption(option);
    QSizeF extent(0, 0);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(wrapWidth.value_or(std::numeric_limits<int>::max()));
        extent.setWidth(std::max(extent.width(), line.naturalTextWidth()));
        extent.rheight() += line.height();
    }
    layout.endLayout();
    return extent;
}

} // namespace glimmet
