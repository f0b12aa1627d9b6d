#include "platform/DateWords.h"

#include "platform/IcuDates.h"

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

/// What is quoted in the pattern of a long date, such as the "de" of "24 de diciembre de 2027".
QStringList linkingWords(const icu::Locale &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status))
        return {};
    const QString pattern = toQString(generator->getBestPattern(icu::UnicodeString(u"yMMMMEEEEd"), status));
    const QStringList pieces = pattern.split(u'\'');
    QStringList quoted;
    for (qsizetype i = 1; i < pieces.size(); i += 2)
        quoted.append(pieces.at(i).split(u' ', Qt::SkipEmptyParts));
    return quoted;
}

} // namespace

DateWords dateWords(const QByteArray &localeName)
{
    const icu::Locale locale = gregorian(localeName);
    UErrorCode status = U_ZERO_ERROR;
    const Symbols symbols(locale, status);
    QStringList others = weekdays(symbols) + linkingWords(locale);
    others.removeDuplicates();
    QList<QStringList> names = months(symbols);
    for (QStringList &month : names)
        month.removeDuplicates();
    return { names, others };
}

} // namespace glimmet
