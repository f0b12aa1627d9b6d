#pragma once

#include "app/ItemHost.h"
#include "app/StripHost.h"

#include <QTimer>

namespace glimmet {

/// Shows the ticker's text in the place that the desktop has for it: as an item where a host shows items,
/// else in the strip. The strip waits some seconds, so that it does not flash up at login or while a panel
/// restarts.
class MenuBar final : public QObject {
    Q_OBJECT

public:
    explicit MenuBar(SessionBus &bus, QObject *parent = nullptr);

    /// Shows `text`; line breaks and control characters are cleaned away.
    void setText(const QString &text);
    void setColorScheme(ColorScheme scheme);
    /// Where the panel drops down from, in native pixels; none while that is not known.
    std::optional<QPoint> anchor() const;

signals:
    void clicked();
    void openChosen();
    void quitChosen();
    /// Tells in words where the text is shown.
    void moved(const QString &place);

private:
    void chooseHost();
    void showStrip();

    ItemHost m_item;
    StripHost m_strip;
    QTimer m_patience;
    QString m_rawText;
};

} // namespace glimmet
