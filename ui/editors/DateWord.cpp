#include "ui/editors/DateWord.h"

#include <algorithm>
#include <functional>

namespace glimmet {

namespace {

using Fits = std::function<bool(const QString &name)>;

bool hasDigit(const QString &name)
{
    return std::any_of(name.cbegin(), name.cend(), [](QChar character) { return character.isDigit(); });
}

bool anyFits(const QStringList &names, const Fits &fits)
{
    return std::any_of(names.cbegin(), names.cend(),
        [&](const QString &name) { return !hasDigit(name) && fits(foldedLetters(name)); });
}

/// The months, from 1, of which a name fits.
QList<int> monthsThatFit(const DateWords &language, const Fits &fits)
{
    QList<int> months;
    for (int i = 0; i < language.months.size(); ++i) {
        if (anyFits(language.months.at(i), fits))
            months.append(i + 1);
    }
    return months;
}

bool isOther(const DateWords &language, const Fits &fits)
{
    static const QStringList ofEnglish{ QStringLiteral("st"), QStringLiteral("nd"), QStringLiteral("rd"),
        QStringLiteral("th"), QStringLiteral("of"), QStringLiteral("the") };
    return anyFits(language.others, fits) || anyFits(ofEnglish, fits);
}

DateWord wordOf(const QString &typed, const DateWords &language)
{
    const Fits isWhole = [&](const QString &name) { return name == typed; };
    const Fits begins = [&](const QString &name) { return name.startsWith(typed); };
    if (const QList<int> months = monthsThatFit(language, isWhole); months.size() == 1)
        return { DateWordKind::Month, months.first() };
    if (isOther(language, isWhole))
        return { DateWordKind::Other };
    const QList<int> months = monthsThatFit(language, begins);
    if (months.isEmpty())
        return {};
    return months.size() == 1 ? DateWord{ DateWordKind::Month, months.first() }
                              : DateWord{ DateWordKind::MonthBeginning };
}

} // namespace

QString foldedLetters(const QString &text)
{
    QString letters = text.toCaseFolded();
    letters.removeIf([](QChar character) { return !character.isLetter(); });
    return letters;
}

bool beginsHourWord(const QString &letters, const QList<DateWords> &languages)
{
    const QString typed = foldedLetters(letters);
    const Fits begins = [&](const QString &name) { return name.startsWith(typed); };
    return !typed.isEmpty()
        && std::any_of(languages.cbegin(), languages.cend(),
            [&](const DateWords &language) { return anyFits(language.ofHour, begins); });
}

DateWord dateWordOf(const QString &letters, const QList<DateWords> &languages)
{
    const QString typed = foldedLetters(letters);
    if (typed.isEmpty())
        return {};
    for (const DateWords &language : languages) {
        if (const DateWord word = wordOf(typed, language); word.kind != DateWordKind::None)
            return word;
    }
    const bool beginsOther =
        std::any_of(languages.cbegin(), languages.cend(), [&](const DateWords &language) {
            return isOther(language, [&](const QString &name) { return name.startsWith(typed); });
        });
    return { beginsOther ? DateWordKind::Other : DateWordKind::None };
}

} // namespace glimmet
