#pragma once

#include "platform/desktop/BarColors.h"

#include <QObject>
#include <QPoint>
#include <QString>

#include <optional>

namespace glimmet {

/// The strip on the screen, from its first text on until it is destroyed. Main thread.
class StripFace : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    virtual void setText(const QString &text) = 0;
    virtual void setColors(const BarColors &colors) = 0;
    /// Where the panel drops down from, in native pixels: the middle of the lower edge.
    virtual std::optional<QPoint> anchor() const = 0;

signals:
    void clicked();
    /// The user has dragged it to this distance of its right end from the screen's, in logical pixels.
    void dragged(int inset);
};

} // namespace glimmet
