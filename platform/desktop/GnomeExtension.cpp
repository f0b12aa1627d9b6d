#include "platform/desktop/GnomeExtension.h"

#include "platform/bus/BusCalls.h"
#include "platform/bus/SessionBus.h"
#include "platform/desktop/CurrentDesktop.h"

#include <QDBusArgument>
#include <QDBusPendingReply>
#include <QProcess>
#include <QStandardPaths>
#include <QVariantMap>

#include <glib.h>

#include <memory>
#include <utility>

namespace glimmet {
namespace {

const QString schema = QStringLiteral("org.gnome.shell");
const QString enabledKey = QStringLiteral("enabled-extensions");
const QString disabledKey = QStringLiteral("disabled-extensions");

using Variant = std::unique_ptr<GVariant, decltype(&g_variant_unref)>;
using Text = std::unique_ptr<char, decltype(&g_free)>;

/// What the shell says of an extension's state.
enum class StateInShell { Active = 1, Activating = 8 };

QDBusMessage shellCall(const QString &method, const QString &uuid)
{
    const QString shell = QStringLiteral("org.gnome.Shell");
    QDBusMessage call = QDBusMessage::createMethodCall(
        shell, QStringLiteral("/org/gnome/Shell"), QStringLiteral("org.gnome.Shell.Extensions"), method);
    call << uuid;
    call.setAutoStartService(false);
    return call;
}

bool isActive(const QVariantMap &about)
{
    const auto state = static_cast<StateInShell>(about.value(QStringLiteral("state")).toInt());
    return state == StateInShell::Active || state == StateInShell::Activating;
}

void setContained(QStringList &list, const QString &text, bool isContained)
{
    list.removeAll(text);
    if (isContained)
        list.append(text);
}

} // namespace

std::optional<QStringList> listOfGnome(const QByteArray &text)
{
    const Variant value(g_variant_parse(G_VARIANT_TYPE_STRING_ARRAY, text.constData(),
                            text.constData() + text.size(), nullptr, nullptr),
        [](GVariant *variant) {
            if (variant != nullptr)
                g_variant_unref(variant);
        });
    if (!value)
        return std::nullopt;
    QStringList list;
    for (gsize i = 0; i < g_variant_n_children(value.get()); ++i) {
        const char *entry = nullptr;
        g_variant_get_child(value.get(), i, "&s", &entry);
        list.append(QString::fromUtf8(entry));
    }
    return list;
}

QString gnomeText(const QStringList &list)
{
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE_STRING_ARRAY);
    for (const QString &entry : list)
        g_variant_builder_add(&builder, "s", entry.toUtf8().constData());
    const Variant value(g_variant_ref_sink(g_variant_builder_end(&builder)), &g_variant_unref);
    // With its type, since an empty list has none that could be seen.
    const Text text(g_variant_print(value.get(), TRUE), &g_free);
    return QString::fromUtf8(text.get());
}

GnomeExtension::GnomeExtension(const SessionBus &bus, QString uuid, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
    , m_uuid(std::move(uuid))
{
}

bool GnomeExtension::isOffered() const
{
    const QString about =
        QStringLiteral("gnome-shell/extensions/") + m_uuid + QStringLiteral("/metadata.json");
    return currentDesktops().contains("GNOME")
        && !QStandardPaths::locate(QStandardPaths::GenericDataLocation, about).isEmpty();
}

void GnomeExtension::look(const Found &found)
{
    const auto lookAtSettings = [this, found] {
        readLists([this, found](const std::optional<Lists> &lists) {
            const bool isEnabled =
                lists && lists->enabled.contains(m_uuid) && !lists->disabled.contains(m_uuid);
            found({ isEnabled, false });
        });
    };
    // Qt answers no call of a connection that was closed.
    if (!m_bus.isConnected())
        return lookAtSettings();
    const QDBusMessage call = shellCall(QStringLiteral("GetExtensionInfo"), m_uuid);
    callLater(
        m_bus.connection(), call, this, [found, lookAtSettings](const QDBusPendingReply<QVariantMap> &reply) {
            if (reply.isError() || reply.value().isEmpty())
                return lookAtSettings();
            found({ isActive(reply.value()), true });
        });
}

void GnomeExtension::setEnabled(bool isEnabled, const Completion &completion)
{
    if (!m_bus.isConnected())
        return enableInSettings(isEnabled, completion);
    const QString method = isEnabled ? QStringLiteral("EnableExtension") : QStringLiteral("DisableExtension");
    callLater(m_bus.connection(), shellCall(method, m_uuid), this,
        [this, isEnabled, completion](const QDBusPendingReply<bool> &reply) {
            if (reply.isError() || !reply.value())
                return enableInSettings(isEnabled, completion);
            completion(std::nullopt);
        });
}

void GnomeExtension::enableInSettings(bool isEnabled, const Completion &completion)
{
    readLists([this, isEnabled, completion](std::optional<Lists> lists) {
        if (!lists)
            return completion(QStringLiteral("GNOME's settings cannot be read"));
        setContained(lists->enabled, m_uuid, isEnabled);
        setContained(lists->disabled, m_uuid, false);
        writeLists(*lists, completion);
    });
}

void GnomeExtension::readLists(const ListsRead &read)
{
    runTool({ QStringLiteral("get"), schema, enabledKey }, [this, read](bool, const QByteArray &output) {
        const std::optional<QStringList> enabled = listOfGnome(output);
        if (!enabled)
            return read(std::nullopt);
        runTool({ QStringLiteral("get"), schema, disabledKey },
            [read, enabled](bool, const QByteArray &disabled) {
                read(Lists{ *enabled, listOfGnome(disabled).value_or(QStringList()) });
            });
    });
}

void GnomeExtension::writeLists(const Lists &lists, const Completion &completion)
{
    const auto finish = [completion](bool isWell, const QByteArray &) {
        completion(isWell ? std::optional<QString>() : QStringLiteral("GNOME's settings cannot be written"));
    };
    const auto writeEnabled = [this, lists, finish](bool isWell, const QByteArray &) {
        if (!isWell)
            return finish(false, {});
        runTool({ QStringLiteral("set"), schema, enabledKey, gnomeText(lists.enabled) }, finish);
    };
    runTool({ QStringLiteral("set"), schema, disabledKey, gnomeText(lists.disabled) }, writeEnabled);
}

void GnomeExtension::runTool(const QStringList &arguments, const ToolEnded &ended)
{
    auto *tool = new QProcess(this);
    connect(tool, &QProcess::finished, this, [tool, ended](int status, QProcess::ExitStatus exit) {
        tool->deleteLater();
        ended(status == 0 && exit == QProcess::NormalExit, tool->readAllStandardOutput());
    });
    connect(tool, &QProcess::errorOccurred, this, [tool, ended](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return;
        tool->deleteLater();
        ended(false, {});
    });
    tool->start(QStringLiteral("gsettings"), arguments);
}

} // namespace glimmet
