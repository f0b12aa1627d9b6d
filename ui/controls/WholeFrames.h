#pragma once

#include <QQuickItem>

namespace glimmet {

/// Has its window painted as a whole, whenever anything in it is, where the screen's scale is no whole
/// number. The toolkit's painter paints what has changed in areas of whole logical pixels; these end amid the
/// screen's pixels there, which every painting then rounds in its own way and leaves traces of what was
/// before. It lies over everything, is not seen itself and causes no painting.
class WholeFrames : public QQuickItem {
    Q_OBJECT

public:
    /// Over all of `window`, which owns it.
    explicit WholeFrames(QQuickWindow &window);

protected:
    QSGNode *updatePaintNode(QSGNode *before, UpdatePaintNodeData *data) override;

private:
    void fit();
};

} // namespace glimmet
