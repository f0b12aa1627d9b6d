#pragma once

#include "platform/Instant.h"
#include "ui/editors/CalendarMonth.h"
#include "ui/editors/DateTimeInput.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

class TickerViewModel;

/// A moment to come that the user enters: its rows are the fields of the date and time in the order in which
/// the user's locale reads and writes them, each knowing what stands to its left on the line. `DateTimeInput`
/// says what typing means.
///
/// While fields are entered one by one they may name a past moment or a day that the month does not have;
/// `settle` makes them the nearest moment that can be: not before the minute that it is now. `note` says so
/// until the user enters something else.
///
/// Where the time zone changes meanwhile, what the user entered stays as it is shown and means the new zone's
/// clock: it was read off a timetable or an invitation, not off a count of seconds. A proposal that the user
/// has not touched is a day ahead by the new clock, and the calendar's today is the new zone's.
class DateTimeEntry : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It belongs to a form.")
    Q_PROPERTY(glimmet::CalendarMonth *calendar READ calendar CONSTANT)
    /// Why the moment is another one than was entered; empty where it is not.
    Q_PROPERTY(QString note READ note NOTIFY noteChanged)

public:
    enum Role {
        NameRole = Qt::UserRole, ///< "name", what the field is for
        TextRole, ///< "text", as it is shown
        WidestRole, ///< "widest", a text as wide as the field gets
        NumberRole, ///< "number"
        LowestRole, ///< "lowest"
        HighestRole, ///< "highest"
        SeparatorRole, ///< "separator", what stands to its right
        LeftRowRole, ///< "leftRow", the field to its left; -1 for none
        FollowsGapRole ///< "followsGap", it is the left one of the date or of the time, the other to its left
    };

    explicit DateTimeEntry(QObject *parent = nullptr);

    /// Whose clock and region count. `ticker` outlives the entry or its use.
    void setTicker(const TickerViewModel *ticker);
    CalendarMonth *calendar() { return &m_calendar; }
    QString note() const { return m_note; }

    /// One day from now, in the locale as it is now. The note stays: it tells of the moment that was taken.
    void reset();
    /// Begins with a moment that was entered before. While nothing is changed it stays the very same, also
    /// one that has passed.
    void begin(Instant moment);
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
    /// Settles what is about to count. False where that moved the moment and the user is told of it only now:
    /// the next call takes it.
    Q_INVOKABLE bool settleAsSeen();
    /// The keyboard left the fields and the calendar.
    Q_INVOKABLE void leave();
    Q_INVOKABLE void toggleCalendar();

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void noteChanged();

private:
    void takeConventions(const DateTimeConventions &conventions);
    bool changeByKey(int row, int key);
    void setFields(const DateTimeFields &fields);
    void setMoment(Instant moment);
    void setNote(const QString &note);
    void settleFields(Instant earliest);
    void followClock();
    void renewDefault();
    void chooseDay(QDate date);
    int typeText(int row, const QString &text);
    void forgetTyping();
    void refresh();
    QDate today() const;
    /// What the clock shows at the moment as it was settled last.
    DateTimeFields settledFields() const;
    FieldRules rules() const;
    InputRules inputRules() const;
    std::optional<int> rowByKey(int key, int row) const;
    int rowAtColumn(int column) const;
    bool isRow(int row) const { return row >= 0 && row < m_places.size(); }
    DateTimeField fieldAt(int row) const { return m_places.at(row).field; }
    QString monthBeingTyped(const FieldPlace &place) const;
    QString textOf(const FieldPlace &place, int number) const;
    QString widestText(const FieldPlace &place) const;
    QString shownText(int row) const;
    QDate shownDate() const;

    const TickerViewModel *m_ticker = nullptr;
    CalendarMonth m_calendar;
    DateTimeConventions m_conventions;
    QList<DateWords> m_languages; ///< the locale's and English
    QList<FieldPlace> m_places; ///< the columns are those of the whole line
    int m_gapColumn = 0; ///< the first one of the right group
    Instant m_moment; ///< as it was settled last
    DateTimeInput m_input; ///< the fields as they are shown, and what is being typed
    QString m_note;
    bool m_isDefault = true;
    bool m_isAsBegun = false; ///< the moment was given, and nothing was changed since
};

} // namespace glimmet
