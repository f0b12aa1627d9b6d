#include "platform/DateTimeConventions.h"

#include "platform/IcuDates.h"

#include <unicode/calendar.h>
#include <unicode/dcfmtsym.h>
#include <unicode/dtfmtsym.h>
#include <unicode/dtptngen.h>
#include <unicode/ubidi.h>

#include <algorithm>
#include <optional>
#include <span>

namespace glimmet {
namespace {

constexpr int daysInWeek = 7;

/// A field, or the letters between two.
struct Piece {
    std::optional<DateTimeField> field;
    QString text; ///< the field's letters in the pattern, or what stands there
};

std::optional<DateTimeField> fieldOf(QChar letter)
{
    switch (letter.unicode()) {
    case u'y':
        return DateTimeField::Year;
    case u'M':
    case u'L':
        return DateTimeField::Month;
    case u'd':
        return DateTimeField::Day;
    case u'h':
    case u'H':
    case u'K':
    case u'k':
        return DateTimeField::Hour;
    case u'm':
        return DateTimeField::Minute;
    case u'a':
        return DateTimeField::DayPeriod;
    default:
        return std::nullopt;
    }
}

/// The pieces of a pattern (https://unicode.org/reports/tr35/tr35-dates.html#Date_Format_Patterns). Letters
/// of fields that are not asked for do not come up.
QList<Piece> piecesOf(const QString &pattern)
{
    QList<Piece> pieces;
    bool isQuoted = false;
    for (const QChar letter : pattern) {
        if (letter == u'\'') {
            isQuoted = !isQuoted;
            continue;
        }
        const auto field = isQuoted ? std::nullopt : fieldOf(letter);
        if (pieces.isEmpty() || pieces.last().field != field)
            pieces.append(Piece{ field, QString() });
        pieces.last().text += letter;
    }
    return pieces;
}

/// What a piece looks like to the rules for mixed directions.
QString sample(const Piece &piece, const DateTimeConventions &conventions)
{
    if (!piece.field)
        return piece.text;
    if (*piece.field == DateTimeField::DayPeriod)
        return conventions.dayPeriods.first();
    return localizedNumber(1, static_cast<int>(piece.text.size()), conventions.zeroDigit);
}

/// Where the letters of `text` stand on the line, counted from the left.
QList<int> placesOnLine(const QString &text, bool isRightToLeft)
{
    QList<int> places(text.size());
    UBiDi *line = ubidi_open();
    UErrorCode status = U_ZERO_ERROR;
    ubidi_setPara(line, reinterpret_cast<const UChar *>(text.utf16()), static_cast<int32_t>(text.size()),
        isRightToLeft ? UBIDI_RTL : UBIDI_LTR, nullptr, &status);
    ubidi_getLogicalMap(line, places.data(), &status);
    ubidi_close(line);
    return places;
}

/// The pieces as the eye meets them from left to right.
QList<Piece> fromLeftToRight(
    const QList<Piece> &pieces, bool isRightToLeft, const DateTimeConventions &conventions)
{
    QString text;
    QList<qsizetype> starts;
    for (const Piece &piece : pieces) {
        starts.append(text.size());
        text += sample(piece, conventions);
    }
    const QList<int> places = placesOnLine(text, isRightToLeft);
    QList<std::pair<int, Piece>> placed;
    for (qsizetype i = 0; i < pieces.size(); ++i)
        placed.append({ places.at(starts.at(i)), pieces.at(i) });
    std::stable_sort(
        placed.begin(), placed.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    QList<Piece> ordered;
    for (const auto &[place, piece] : placed)
        ordered.append(piece);
    return ordered;
}

/// Marks of direction have done their work once the pieces stand in their order.
QString withoutMarks(QString text)
{
    text.removeIf([](QChar letter) { return letter.category() == QChar::Other_Format; });
    return text;
}

/// The fields of pieces that stand from left to right.
QList<FieldPlace> placesOf(const QList<Piece> &pieces)
{
    QList<FieldPlace> places;
    for (const Piece &piece : pieces) {
        if (piece.field)
            places.append({ *piece.field, static_cast<int>(piece.text.size()),
                static_cast<int>(places.size()), QString() });
        else if (!places.isEmpty())
            places.last().separator += withoutMarks(piece.text);
    }
    return places;
}

/// A pattern has its pieces in the order in which they are read.
QList<FieldPlace> inReadingOrder(const QList<FieldPlace> &places, const QList<Piece> &pieces)
{
    QList<FieldPlace> ordered;
    for (const Piece &piece : pieces) {
        for (const FieldPlace &place : places) {
            if (piece.field == place.field)
                ordered.append(place);
        }
    }
    return ordered;
}

QList<FieldPlace> places(
    const icu::Locale &locale, const char16_t *skeleton, const DateTimeConventions &conventions)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status))
        return {};
    const QString pattern = toQString(generator->getBestPattern(icu::UnicodeString(skeleton), status));
    const QList<Piece> pieces = piecesOf(pattern);
    return inReadingOrder(placesOf(fromLeftToRight(pieces, conventions.isRightToLeft, conventions)), pieces);
}

Qt::DayOfWeek firstDayOf(const icu::Locale &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(locale, status));
    if (U_FAILURE(status))
        return Qt::Monday;
    const UCalendarDaysOfWeek day = calendar->getFirstDayOfWeek(status);
    // ICU counts from Sunday, which is 1.
    return day == UCAL_SUNDAY ? Qt::Sunday : static_cast<Qt::DayOfWeek>(day - UCAL_SUNDAY);
}

QStringList weekdaysFrom(Qt::DayOfWeek first, const icu::DateFormatSymbols &symbols)
{
    int32_t count = 0;
    const auto *listed =
        symbols.getWeekdays(count, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::SHORT);
    const std::span names(listed, static_cast<std::size_t>(count));
    QStringList weekdays;
    for (int i = 0; i < daysInWeek && count > daysInWeek; ++i)
        weekdays.append(toQString(names[UCAL_SUNDAY + (first + i) % daysInWeek]));
    return weekdays;
}

QStringList dayPeriodsOf(const icu::DateFormatSymbols &symbols)
{
    int32_t count = 0;
    const auto *listed = symbols.getAmPmStrings(count);
    const std::span names(listed, static_cast<std::size_t>(count));
    return { toQString(names[0]), toQString(names[1]) };
}

char32_t zeroDigitOf(const icu::Locale &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::DecimalFormatSymbols symbols(locale, status);
    return static_cast<char32_t>(
        symbols.getConstSymbol(icu::DecimalFormatSymbols::kZeroDigitSymbol).char32At(0));
}

} // namespace

DateTimeConventions dateTimeConventions(const QByteArray &localeName)
{
    const icu::Locale locale = gregorian(localeName);
    UErrorCode status = U_ZERO_ERROR;
    const icu::DateFormatSymbols symbols(locale, status);
    DateTimeConventions conventions;
    conventions.isRightToLeft = locale.isRightToLeft() != 0;
    conventions.dayPeriods = dayPeriodsOf(symbols);
    conventions.zeroDigit = zeroDigitOf(locale);
    conventions.firstDayOfWeek = firstDayOf(locale);
    conventions.weekdays = weekdaysFrom(conventions.firstDayOfWeek, symbols);
    conventions.dateFields = places(locale, u"yMMdd", conventions);
    conventions.timeFields = places(locale, u"jmm", conventions);
    conventions.uses12Hours = std::any_of(conventions.timeFields.cbegin(), conventions.timeFields.cend(),
        [](const FieldPlace &place) { return place.field == DateTimeField::DayPeriod; });
    return conventions;
}

QString localizedNumber(int number, int digits, char32_t zeroDigit)
{
    QString text;
    for (const QChar digit : QString::number(number).rightJustified(digits, u'0')) {
        const char32_t character = zeroDigit + static_cast<char32_t>(digit.digitValue());
        text += QString::fromUcs4(&character, 1);
    }
    return text;
}

int digitValue(const QString &text)
{
    const QList<uint> characters = text.toUcs4();
    return characters.size() == 1 ? QChar::digitValue(characters.first()) : -1;
}

} // namespace glimmet
