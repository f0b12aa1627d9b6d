#pragma once

#include <gio/gio.h>
#include <glib-unix.h>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

/// Owners for what GLib hands out.
namespace glimmet {

struct GlibRelease {
    void operator()(GVariant *value) const { g_variant_unref(value); }
    void operator()(GError *error) const { g_error_free(error); }
    void operator()(GMainLoop *loop) const { g_main_loop_unref(loop); }
    template <typename Object> void operator()(Object *object) const { g_object_unref(object); }
};

template <typename Type> using Owned = std::unique_ptr<Type, GlibRelease>;

/// Calls a function from the main loop for as long as it lives. The function may destroy it.
class EventSource {
public:
    EventSource() = default;
    ~EventSource() { stop(); }
    EventSource(const EventSource &) = delete;
    EventSource &operator=(const EventSource &) = delete;

    /// Each time that one of `conditions` holds; hang-up and error always count.
    void watch(int descriptor, GIOCondition conditions, std::function<void()> use)
    {
        stop();
        m_id = g_unix_fd_add_full(
            G_PRIORITY_DEFAULT, descriptor, conditions,
            [](int, GIOCondition, gpointer data) { return call(data); }, kept(std::move(use)), forget);
    }
    /// Each time that `span` has passed.
    void repeat(std::chrono::seconds span, std::function<void()> use)
    {
        stop();
        m_id = g_timeout_add_seconds_full(
            G_PRIORITY_DEFAULT, guint(span.count()), call, kept(std::move(use)), forget);
    }
    void stop()
    {
        if (m_id != 0)
            g_source_remove(std::exchange(m_id, 0));
    }
    bool isRunning() const { return m_id != 0; }

private:
    using Function = std::function<void()>;

    static Function *kept(Function use) { return new Function(std::move(use)); }
    static gboolean call(gpointer data)
    {
        (*static_cast<Function *>(data))();
        return G_SOURCE_CONTINUE; // Where it is stopped meanwhile, this is not looked at.
    }
    static void forget(gpointer data) { delete static_cast<Function *>(data); }

    guint m_id = 0;
};

} // namespace glimmet
