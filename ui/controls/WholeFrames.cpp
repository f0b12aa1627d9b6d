#include "ui/controls/WholeFrames.h"

#include <QQuickWindow>
#include <QSGSimpleRectNode>

#include <cmath>
#include <limits>

namespace glimmet {

namespace {

bool isWhole(qreal scale)
{
    return qFuzzyCompare(scale, std::round(scale));
}

/// A clear rectangle that calls itself changed before each frame. What lies under it is painted with it.
class ChangedRectangle final : public QSGSimpleRectNode {
public:
    explicit ChangedRectangle(const QQuickWindow &window)
        : m_window(window)
    {
        setColor(Qt::transparent);
        setFlag(UsePreprocess);
    }

    void preprocess() override
    {
        if (!isWhole(m_window.effectiveDevicePixelRatio()))
            markDirty(DirtyMaterial);
    }

private:
    const QQuickWindow &m_window;
};

} // namespace

WholeFrames::WholeFrames(QQuickWindow &window)
    : QQuickItem(window.contentItem())
{
    setFlag(ItemHasContents);
    setZ(std::numeric_limits<qreal>::max());
    connect(parentItem(), &QQuickItem::widthChanged, this, &WholeFrames::fit);
    connect(parentItem(), &QQuickItem::heightChanged, this, &WholeFrames::fit);
    fit();
}

void WholeFrames::fit()
{
    setSize(parentItem()->size());
}

QSGNode *WholeFrames::updatePaintNode(QSGNode *before, UpdatePaintNodeData *)
{
    auto *node =
        before != nullptr ? static_cast<ChangedRectangle *>(before) : new ChangedRectangle(*window());
    node->setRect(boundingRect());
    return node;
}

} // namespace glimmet
