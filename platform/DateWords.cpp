#include "platform/DateWords.h"

#include "platform/IcuDates.h"

#include <QRegularExpression>

#include <unicode/dtfmtsym.h>
#include <unicode/dtptngen.h>

#include <algorithm>
#include <array>
#include <memory>
#include <span>

namespace glimmet {
namespace {

using Symbols = icu::DateFormatSymbols;

constexpr std::array contexts{ Symbols::FORMAT, Symbols::STANDALONE };

QStringList months(const Symbols &symbols, Symbols::DtContextType context, Symbols::DtWidthType width)
{
    constexpr int monthsOfYear = 12;
    int32_t count = 0;
    const auto *listed = symbols.getMonths(count, context, width);
    QStringList names;
    for (const auto &name : std::span(listed, static_cast<std::size_t>(count)))
        names.append(toQString(name));
    return names.mid(0, monthsOfYear);
}

QList<QStringList> months(const Symbols &symbols)
{
    QList<QStringList> all;
    for (const auto context : contexts) {
        for (const auto width : { Symbols::WIDE, Symbols::ABBREVIATED }) {
            const QStringList names = months(symbols, context, width);
            all.resize(std::max(all.size(), names.size()));
            for (qsizetype i = 0; i < names.size(); ++i)
                all[i].append(names.at(i));
        }
    }
    return all;
}

QStringList weekdays(const Symbols &symbols)
{
    QStringList names;
    for (const auto context : contexts) {
        for (const auto width : { Symbols::WIDE, Symbols::ABBREVIATED, Symbols::SHORT }) {
            int32_t count = 0;
            const auto *listed = symbols.getWeekdays(count, context, width);
            for (const auto &name : std::span(listed, static_cast<std::size_t>(count)))
                names.append(toQString(name));
        }
    }
    names.removeAll(QString());
    return names;
}

/// How the locale writes the parts that the skeleton names; empty where ICU cannot tell.
QString patternOf(const char16_t *skeleton, const icu::Locale &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status))
        return {};
    return toQString(generator->getBestPattern(icu::UnicodeString(skeleton), status));
}

/// What is quoted in a pattern, such as the "de" of "24 de diciembre de 2027" and the "um" before an hour.
QStringList linkingWords(const QString &pattern)
{
    const QStringList pieces = pattern.split(u'\'');
    QStringList quoted;
    for (qsizetype i = 1; i < pieces.size(); i += 2)
        quoted.append(pieces.at(i).split(u' ', Qt::SkipEmptyParts));
    return quoted;
}

/// What is written onto the month's name in a long date, such as the "ב" of "24 בדצמבר".
QString monthPrefix(const QString &longDate)
{
    // Only ASCII letters stand for parts of the date.
    static const QRegularExpression letters(
        QStringLiteral("([^\\W\\x00-\\x7F]+)MMM"), QRegularExpression::UseUnicodePropertiesOption);
    return letters.match(longDate).captured(1);
}

/// What is in the pattern of an hour besides the hour, be it quoted.
QStringList hourWords(QString pattern)
{
    static const QRegularExpression asciiLetters(QStringLiteral("[A-Za-z]"));
    const QStringList quoted = linkingWords(pattern);
    return quoted.isEmpty() ? pattern.remove(asciiLetters).split(u' ', Qt::SkipEmptyParts) : quoted;
}

QList<QStringList> withPrefix(QList<QStringList> months, const QString &prefix)
{
    if (prefix.isEmpty())
        return months;
    for (QStringList &names : months) {
        const QStringList bare = names;
        for (const QString &name : bare)
            names.append(prefix + name);
    }
    return months;
}

} // namespace

DateWords dateWords(const QByteArray &localeName)
{
    const icu::Locale locale = gregorian(localeName);
    UErrorCode status = U_ZERO_ERROR;
    const Symbols symbols(locale, status);
    const QString longDate = patternOf(u"yMMMMEEEEd", locale);
    QStringList others =
        weekdays(symbols) + linkingWords(longDate) + linkingWords(patternOf(u"MMMMdHm", locale));
    others.removeDuplicates();
    QList<QStringList> names = withPrefix(months(symbols), monthPrefix(longDate));
    for (QStringList &month : names)
        month.removeDuplicates();
    return { names, others, hourWords(patternOf(u"H", locale)) };
}

} // namespace glimmet
