#include "platform/UserRegion.h"

#include <cmath>
#include <ctime>

namespace glimmet {

namespace {

/// The script stands between the language and the territory, which may be missing.
QByteArray withScript(QByteArray name, const char *script)
{
    const qsizetype territory = name.indexOf('_');
    return name.insert(territory < 0 ? name.size() : territory, script);
}

} // namespace

QByteArray icuLocaleName(const QByteArray &posixName)
{
    const QByteArray name =
        posixName.left(posixName.indexOf('.') < 0 ? posixName.size() : posixName.indexOf('.'));
    QByteArray language = name.left(name.indexOf('@') < 0 ? name.size() : name.indexOf('@'));
    if (language.isEmpty() || language == "C" || language == "POSIX")
        return "en_US_POSIX";
    // The two scripts that POSIX names by a modifier; the others ("@euro") say nothing about a clock.
    if (posixName.endsWith("@latin"))
        return withScript(language, "_Latn");
    if (posixName.endsWith("@cyrillic"))
        return withScript(language, "_Cyrl");
    return language;
}

QByteArray SystemRegion::localeName() const
{
    for (const char *variable : { "LC_ALL", "LC_TIME", "LANG" }) {
        const QByteArray value = qgetenv(variable);
        if (!value.isEmpty())
            return icuLocaleName(value);
    }
    return icuLocaleName("C");
}

int SystemRegion::utcOffset(Instant moment) const
{
    // Looks at /etc/localtime again, so that a changed zone counts at once.
    tzset();
    const auto seconds = static_cast<time_t>(std::floor(moment.unixMilliseconds() / 1000.0));
    tm local{};
    if (localtime_r(&seconds, &local) == nullptr)
        return 0;
    return static_cast<int>(local.tm_gmtoff);
}

} // namespace glimmet
