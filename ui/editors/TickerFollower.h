#pragma once

#include "core/TickerViewModel.h"
#include "ui/editors/UsersDay.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// Says something of the ticker's in words, or as they are shown, and follows its changes. Without a ticker
/// there is nothing to say.
class TickerFollower : public QObject {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(glimmet::TickerViewModel *ticker READ ticker WRITE setTicker NOTIFY tickerChanged REQUIRED)

public:
    using QObject::QObject;

    TickerViewModel *ticker() const { return m_ticker; }
    void setTicker(TickerViewModel *ticker);

signals:
    void tickerChanged();

protected:
    /// Has `follow` called for every change that counts.
    virtual void watch(TickerViewModel &ticker) = 0;
    /// Looks at everything anew; there may be no ticker.
    virtual void follow() = 0;
    /// For `watch`: has `follow` called also where the user's day, clock or language is another than at the
    /// tick before.
    void watchDay(TickerViewModel &ticker);

private:
    void followDay();

    QPointer<TickerViewModel> m_ticker;
    UsersDay m_day; ///< at the last tick
};

} // namespace glimmet
