#pragma once

#include "core/TickerViewModel.h"
#include "ui/editors/DateTimeEntry.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// A deadline that is being entered: a new one, or one that there is.
class DeadlineForm : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(glimmet::TickerViewModel *ticker READ ticker WRITE setTicker NOTIFY tickerChanged REQUIRED)
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    /// Whether the title is more than blanks.
    Q_PROPERTY(bool canAdd READ canAdd NOTIFY titleChanged)
    Q_PROPERTY(glimmet::DateTimeEntry *date READ date CONSTANT)

public:
    using QObject::QObject;

    TickerViewModel *ticker() const { return m_ticker; }
    void setTicker(TickerViewModel *ticker);
    QString title() const { return m_title; }
    void setTitle(const QString &title);
    bool canAdd() const;
    DateTimeEntry *date() { return &m_date; }

    /// Hands the deadline to the ticker and begins a new one; nothing happens while it cannot be added.
    Q_INVOKABLE void add();

    /// Begins with a deadline that there is, by its identity's text.
    Q_INVOKABLE void begin(const QString &id);
    /// Hands that deadline to the ticker as it is entered now.
    Q_INVOKABLE void save();

signals:
    void tickerChanged();
    void titleChanged();

private:
    TickerViewModel *m_ticker = nullptr;
    QUuid m_id; ///< of the deadline that there is
    QString m_title;
    DateTimeEntry m_date;
};

} // namespace glimmet
