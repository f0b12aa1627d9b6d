#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

/// What several sources of this room ask an X server. Every call waits for its answer.
namespace glimmet::xcb {

template <typename Reply> using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply> Owned<Reply> owned(Reply *reply)
{
    return Owned<Reply>(reply, &std::free);
}

/// The connection of Qt's own windows; null where they are not on an X server.
xcb_connection_t *qtsConnection();

xcb_window_t rootWindow(xcb_connection_t *x);

xcb_atom_t atom(xcb_connection_t *x, const QByteArray &name);

/// The value of a property, as bytes, at most 256; empty where there is none.
QByteArray property(xcb_connection_t *x, xcb_window_t window, xcb_atom_t name);

/// Whether a property that is a list of atoms has this one.
bool hasAtom(xcb_connection_t *x, xcb_window_t window, xcb_atom_t name, xcb_atom_t wanted);

} // namespace glimmet::xcb
