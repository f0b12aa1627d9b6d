#include "platform/desktop/AutostartEntry.h"

#include "platform/ProgramName.h"

#include <glib.h>

#include <memory>

namespace glimmet {
namespace {

constexpr char group[] = G_KEY_FILE_DESKTOP_GROUP;
constexpr char enabledKey[] = "X-GNOME-Autostart-enabled";

using KeyFile = std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)>;
using Text = std::unique_ptr<char, decltype(&g_free)>;
using Arguments = std::unique_ptr<char *, decltype(&g_strfreev)>;

KeyFile newKeyFile()
{
    return { g_key_file_new(), &g_key_file_unref };
}

QString textOf(GKeyFile &entry, const char *key)
{
    const Text text(g_key_file_get_string(&entry, group, key, nullptr), &g_free);
    return QString::fromUtf8(text.get());
}

void setText(GKeyFile &entry, const char *key, const QString &text)
{
    g_key_file_set_string(&entry, group, key, text.toUtf8().constData());
}

/// A path as one argument of a command line: in quotes, where four characters are escaped; a percent sign
/// would begin a field code.
QString quoted(const QString &path)
{
    QString argument;
    for (const QChar character : path) {
        if (QStringLiteral("\"`$\\").contains(character))
            argument += u'\\';
        argument += character;
        if (character == u'%')
            argument += character;
    }
    return u'"' + argument + u'"';
}

/// The program of a command line; empty where there is none.
QString programOf(const QString &commandLine)
{
    char **arguments = nullptr;
    if (g_shell_parse_argv(commandLine.toUtf8().constData(), nullptr, &arguments, nullptr) == FALSE)
        return {};
    const Arguments owner(arguments, &g_strfreev);
    return QString::fromUtf8(arguments[0]).replace(QStringLiteral("%%"), QStringLiteral("%"));
}

bool isDisabled(GKeyFile &entry)
{
    const bool isSwitchedOff = g_key_file_has_key(&entry, group, enabledKey, nullptr) != FALSE
        && g_key_file_get_boolean(&entry, group, enabledKey, nullptr) == FALSE;
    return isSwitchedOff
        || g_key_file_get_boolean(&entry, group, G_KEY_FILE_DESKTOP_KEY_HIDDEN, nullptr) != FALSE;
}

} // namespace

QByteArray autostartEntry(const QString &executable)
{
    const KeyFile entry = newKeyFile();
    setText(*entry, G_KEY_FILE_DESKTOP_KEY_TYPE, QStringLiteral("Application"));
    setText(*entry, G_KEY_FILE_DESKTOP_KEY_NAME, QStringLiteral("glimmet"));
    setText(*entry, G_KEY_FILE_DESKTOP_KEY_EXEC, quoted(executable));
    setText(*entry, G_KEY_FILE_DESKTOP_KEY_TRY_EXEC, executable);
    setText(*entry, G_KEY_FILE_DESKTOP_KEY_ICON, programName);
    setText(*entry, G_KEY_FILE_DESKTOP_KEY_TERMINAL, QStringLiteral("false"));
    setText(*entry, enabledKey, QStringLiteral("true"));
    gsize length = 0;
    const Text content(g_key_file_to_data(entry.get(), &length, nullptr), &g_free);
    return { content.get(), static_cast<qsizetype>(length) };
}

LoginItemStatus statusOfAutostartEntry(
    const QByteArray &content, const std::function<bool(const QString &)> &isExecutable)
{
    const KeyFile entry = newKeyFile();
    const auto length = static_cast<gsize>(content.size());
    if (g_key_file_load_from_data(entry.get(), content.constData(), length, G_KEY_FILE_NONE, nullptr) == FALSE
        || textOf(*entry, G_KEY_FILE_DESKTOP_KEY_TYPE) != u"Application")
        return LoginItemStatus::NotFound;
    if (isDisabled(*entry))
        return LoginItemStatus::RequiresApproval;
    const QString tried = textOf(*entry, G_KEY_FILE_DESKTOP_KEY_TRY_EXEC);
    const QString program = programOf(textOf(*entry, G_KEY_FILE_DESKTOP_KEY_EXEC));
    const bool isThere =
        (tried.isEmpty() || isExecutable(tried)) && !program.isEmpty() && isExecutable(program);
    return isThere ? LoginItemStatus::Enabled : LoginItemStatus::NotFound;
}

} // namespace glimmet
