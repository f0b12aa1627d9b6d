#include "feed/LabelWatch.h"

#include "feed/BusNames.h"

namespace glimmet {

const char *labelIn(GVariant *answer)
{
    const Owned<GVariant> boxed(g_variant_get_child_value(answer, 0));
    const Owned<GVariant> label(g_variant_get_variant(boxed.get()));
    const bool isText = g_variant_is_of_type(label.get(), G_VARIANT_TYPE_STRING);
    return isText ? g_variant_get_string(label.get(), nullptr) : nullptr;
}

LabelWatch::LabelWatch(GDBusConnection *connection, std::function<void(const FeedText &)> heard)
    : m_connection(connection)
    , m_heard(std::move(heard))
{
    const auto appeared = [](GDBusConnection *, const char *, const char *owner, gpointer self) {
        static_cast<LabelWatch *>(self)->follow(owner);
    };
    const auto vanished = [](GDBusConnection *, const char *, gpointer self) {
        auto *watch = static_cast<LabelWatch *>(self);
        watch->leave();
        watch->m_heard(std::nullopt);
    };
    m_watch = g_bus_watch_name_on_connection(
        m_connection, busNames::program, G_BUS_NAME_WATCHER_FLAGS_NONE, appeared, vanished, this, nullptr);
}

LabelWatch::~LabelWatch()
{
    leave();
    g_bus_unwatch_name(m_watch);
}

void LabelWatch::follow(const char *owner)
{
    leave();
    const auto changed = [](GDBusConnection *, const char *, const char *, const char *, const char *,
                             GVariant *values, gpointer self) {
        const char *label = nullptr;
        if (g_variant_is_of_type(values, G_VARIANT_TYPE("(ss)"))) {
            g_variant_get(values, "(&s&s)", &label, nullptr);
            static_cast<LabelWatch *>(self)->hear(label);
        }
    };
    m_subscription = g_dbus_connection_signal_subscribe(m_connection, owner, busNames::item,
        busNames::newLabel, busNames::itemPath, nullptr, G_DBUS_SIGNAL_FLAGS_NONE, changed, this, nullptr);

    const auto answered = [](GObject *connection, GAsyncResult *result, gpointer self) {
        GError *error = nullptr;
        const Owned<GVariant> answer(
            g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, &error));
        const Owned<GError> failure(error);
        // A program that is just starting has no item yet, and tells of the label once it has.
        if (answer)
            static_cast<LabelWatch *>(self)->hear(labelIn(answer.get()));
    };
    m_question.reset(g_cancellable_new());
    g_dbus_connection_call(m_connection, owner, busNames::itemPath, busNames::properties, "Get",
        g_variant_new("(ss)", busNames::item, busNames::label), G_VARIANT_TYPE("(v)"),
        G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, m_question.get(), answered, this);
}

void LabelWatch::leave()
{
    // A question that is cancelled is answered all the same, with an error.
    if (m_question)
        g_cancellable_cancel(m_question.get());
    m_question.reset();
    if (m_subscription != 0)
        g_dbus_connection_signal_unsubscribe(m_connection, std::exchange(m_subscription, 0));
}

void LabelWatch::hear(const char *label)
{
    // It is empty only before the first text.
    if (label && *label)
        m_heard(FeedText(label));
}

} // namespace glimmet
