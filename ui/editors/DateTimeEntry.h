#pragma once

#include "platform/Instant.h"
#include "ui/editors/CalendarMonth.h"
#include "ui/editors/DateTimeFields.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace glimmet {

class TickerViewModel;

/// A moment to come that the user enters: its rows are the fields of the date and time, in the order and the
/// words of the user's locale, as the eye meets them from left to right.
///
/// While fields are entered one by one they may name a past moment or a day that the month does not have;
/// `settle` makes them the nearest moment that can be: not before the minute that it is now.
class DateTimeEntry : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It belongs to a form.")
    Q_PROPERTY(glimmet::CalendarMonth *calendar READ calendar CONSTANT)

public:
    enum Role {
        NameRole = Qt::UserRole, ///< "name", what the field is for
        TextRole, ///< "text", as it is shown
        WidestRole, ///< "widest", a text as wide as the field gets
        NumberRole, ///< "number"
        LowestRole, ///< "lowest"
        HighestRole, ///< "highest"
        SeparatorRole, ///< "separator", what stands behind it
        StartsTimeRole ///< "startsTime", it is the first one behind the date
    };

    explicit DateTimeEntry(QObject *parent = nullptr);

    /// Whose clock and region count. `ticker` outlives the entry or its use.
    void setTicker(const TickerViewModel *ticker);
    CalendarMonth *calendar() { return &m_calendar; }

    /// One day from now, in the locale as it is now.
    void reset();
    /// What was entered, and never before now.
    Instant settledMoment();

    /// Changes a field by so many steps, as the arrow keys do.
    Q_INVOKABLE void step(int row, int steps);
    Q_INVOKABLE void setNumber(int row, int number);
    /// What a key does in a field. The row that has the keyboard afterwards; -1 where the key means nothing
    /// here.
    Q_INVOKABLE int pressKey(int row, int key, const QString &text);
    /// The keyboard left the field: what was typed so far counts.
    Q_INVOKABLE void finish(int row);
    /// The keyboard left all fields.
    Q_INVOKABLE void settle();
    /// The keyboard left the fields and the calendar.
    Q_INVOKABLE void leave();
    Q_INVOKABLE void toggleCalendar();

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    void takeConventions(const DateTimeConventions &conventions);
    bool changeByKey(int row, int key);
    void setFields(const DateTimeFields &fields);
    void setMoment(Instant moment);
    void followClock();
    void renewDefault();
    void chooseDay(QDate date);
    int typeDigit(int row, int digit);
    bool typeDayPeriod(int row, const QString &text);
    void refresh();
    QDate today() const;
    FieldRules rules() const;
    bool isRow(int row) const { return row >= 0 && row < m_places.size(); }
    DateTimeField fieldAt(int row) const { return m_places.at(row).field; }
    QString textOf(const FieldPlace &place, int number) const;
    QString widestText(const FieldPlace &place) const;
    QString shownText(int row) const;
    QDate shownDate() const;

    struct Typing {
        int row = -1;
        TypedNumber number;
    };

    const TickerViewModel *m_ticker = nullptr;
    CalendarMonth m_calendar;
    DateTimeConventions m_conventions;
    QList<FieldPlace> m_places;
    Instant m_moment; ///< as it was settled last
    DateTimeFields m_settled; ///< the fields of that moment
    DateTimeFields m_fields; ///< as they are shown
    bool m_isDefault = true;
    std::optional<Typing> m_typing;
};

} // namespace glimmet
