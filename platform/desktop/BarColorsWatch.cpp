#include "platform/desktop/BarColorsWatch.h"

#include "platform/desktop/X11.h"

#include <utility>

namespace glimmet {

QByteArray BarColorsWatch::defaultPath()
{
    return X11::isI3() ? X11::rootText("I3_SOCKET_PATH") : qgetenv("SWAYSOCK");
}

BarColorsWatch::BarColorsWatch(const QByteArray &path, QObject *parent)
    : QObject(parent)
    , m_connection(path)
{
    connect(&m_connection, &I3Connection::received, this, &BarColorsWatch::handle);
    ask({});
}

void BarColorsWatch::handle(const QByteArray &payload)
{
    if (!std::exchange(m_knowsBar, true)) {
        const QString bar = I3Ipc::firstBar(payload);
        bar.isEmpty() ? m_connection.end() : ask(bar.toUtf8());
        return;
    }
    m_connection.end();
    if (const std::optional<BarColors> colors = I3Ipc::barColors(payload))
        emit found(*colors);
}

void BarColorsWatch::ask(const QByteArray &bar)
{
    m_connection.send(I3Ipc::Type::GetBarConfig, bar);
}

} // namespace glimmet
