#include "feed/BusCalls.h"

#include "feed/BusNames.h"
#include "feed/LabelWatch.h"
#include "platform/bus/SessionBusAddress.h"

namespace glimmet {
namespace {

constexpr int patience = 5000; // ms

/// A click on the item, as hosts tell of it. A place below zero is none: glimmet looks where the pointer is.
constexpr const char *click = "SecondaryActivate";

GVariant *nowhere()
{
    return g_variant_new("(ii)", -1, -1);
}

/// The answer to a call of glimmet, or null and why there is none.
Owned<GVariant> ask(const char *path, const char *interface, const char *method, GVariant *arguments,
    const char *type, Answer &outcome)
{
    const Owned<GVariant> owned(g_variant_ref_sink(arguments));
    const std::string address = sessionBusAddress();
    const Owned<GDBusConnection> connection(address.empty()
            ? nullptr
            : g_dbus_connection_new_for_address_sync(
                  address.c_str(), asBusClient, nullptr, nullptr, nullptr));
    outcome = Answer::NoBus;
    if (!connection)
        return nullptr;
    Owned<GVariant> answer(
        g_dbus_connection_call_sync(connection.get(), busNames::program, path, interface, method, owned.get(),
            G_VARIANT_TYPE(type), G_DBUS_CALL_FLAGS_NO_AUTO_START, patience, nullptr, nullptr));
    outcome = answer ? Answer::Given : Answer::NotRunning;
    return answer;
}

} // namespace

void askForPanel(GDBusConnection *connection)
{
    g_dbus_connection_call(connection, busNames::program, busNames::itemPath, busNames::item, click,
        nowhere(), nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, patience, nullptr, nullptr, nullptr);
}

Answer openPanel()
{
    Answer outcome{};
    ask(busNames::itemPath, busNames::item, click, nowhere(), "()", outcome);
    return outcome;
}

Answer readText(FeedText &text)
{
    Answer outcome{};
    const Owned<GVariant> answer = ask(busNames::itemPath, busNames::properties, "Get",
        g_variant_new("(ss)", busNames::item, busNames::label), "(v)", outcome);
    const char *label = answer ? labelIn(answer.get()) : nullptr;
    if (label)
        text = label;
    return outcome;
}

} // namespace glimmet
