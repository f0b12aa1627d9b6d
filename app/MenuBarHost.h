#pragma once

#include <QObject>
#include <QPoint>

#include <optional>

namespace glimmet {

/// A place in the desktop's menu bar that can show one line of text. Main thread.
class MenuBarHost : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// The text to show, already fit for one line. Kept while the host is not shown.
    virtual void setText(const QString &text) = 0;
    virtual void setShown(bool shown) = 0;
    /// Where the panel drops down from, in native pixels of the root window; none while that is not known.
    virtual std::optional<QPoint> anchor() const = 0;

signals:
    /// The user clicked the text, with any button.
    void clicked();
};

} // namespace glimmet
