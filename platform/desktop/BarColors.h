#pragma once

#include <QByteArray>
#include <QColor>
#include <QString>

#include <optional>

namespace glimmet {

/// What a bar draws its text in; both are opaque.
struct BarColors {
    QColor background;
    QColor ink;

    friend bool operator==(const BarColors &, const BarColors &) = default;
};

namespace I3Ipc {

/// The first one in a list of bars' names; empty where there is none.
QString firstBar(const QByteArray &payload);

/// Those in a bar's configuration, which leaves out what its user has not set: the bar is black then, and
/// its text white. None where it is no configuration, or where nothing could be read in its colours.
std::optional<BarColors> barColors(const QByteArray &payload);

} // namespace I3Ipc
} // namespace glimmet
