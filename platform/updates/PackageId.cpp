#include "platform/updates/PackageId.h"

#include <QStringList>
#include <QStringView>

namespace glimmet {
namespace {

struct VersionParts {
    QStringView epoch;
    QStringView upstream;
    QStringView revision;
};

VersionParts partsOf(QStringView version)
{
    const qsizetype colon = version.indexOf(u':');
    const QStringView rest = version.mid(colon + 1);
    const qsizetype hyphen = rest.lastIndexOf(u'-');
    return { version.left(std::max<qsizetype>(colon, 0)), hyphen < 0 ? rest : rest.left(hyphen),
        hyphen < 0 ? QStringView() : rest.mid(hyphen + 1) };
}

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

/// Takes the digits, or what are none, from the beginning of `text`.
QStringView take(QStringView &text, bool digits)
{
    qsizetype length = 0;
    while (length < text.size() && isDigit(text[length]) == digits)
        ++length;
    const QStringView taken = text.left(length);
    text = text.mid(length);
    return taken;
}

/// A tilde is before the end, the end before letters, and letters before everything else.
int weightAt(QStringView text, qsizetype position)
{
    if (position >= text.size())
        return 0;
    const char16_t character = text[position].unicode();
    const bool isLetter =
        (character >= u'a' && character <= u'z') || (character >= u'A' && character <= u'Z');
    return character == u'~' ? -1 : isLetter ? character : character + 0x10000;
}

int compareWords(QStringView one, QStringView other)
{
    for (qsizetype position = 0; position < std::max(one.size(), other.size()); ++position) {
        if (const int difference = weightAt(one, position) - weightAt(other, position))
            return difference;
    }
    return 0;
}

QStringView withoutZeros(QStringView digits)
{
    while (digits.startsWith(u'0'))
        digits = digits.mid(1);
    return digits;
}

/// As numbers of any length; none is 0.
int compareNumbers(QStringView one, QStringView other)
{
    one = withoutZeros(one);
    other = withoutZeros(other);
    if (one.size() != other.size())
        return one.size() < other.size() ? -1 : 1;
    return one.compare(other);
}

int comparePart(QStringView one, QStringView other)
{
    while (!one.isEmpty() || !other.isEmpty()) {
        if (const int difference = compareWords(take(one, false), take(other, false)))
            return difference;
        if (const int difference = compareNumbers(take(one, true), take(other, true)))
            return difference;
    }
    return 0;
}

} // namespace

std::optional<PackageId> packageIdFrom(const QString &text)
{
    const QStringList parts = text.split(u';');
    if (parts.size() != 4 || parts.first().isEmpty())
        return std::nullopt;
    return PackageId{ parts[0], parts[1], parts[2], parts[3] };
}

QString textOf(const PackageId &id)
{
    return QStringList{ id.name, id.version, id.architecture, id.data }.join(u';');
}

int compareVersions(const QString &one, const QString &other)
{
    const VersionParts mine = partsOf(one);
    const VersionParts theirs = partsOf(other);
    if (const int difference = compareNumbers(mine.epoch, theirs.epoch))
        return difference;
    if (const int difference = comparePart(mine.upstream, theirs.upstream))
        return difference;
    return comparePart(mine.revision, theirs.revision);
}

} // namespace glimmet
