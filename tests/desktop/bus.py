"""A connection to one message bus, for calls, properties and signals in plain Python values."""

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib

from desktop.processes import wait_for

DAEMON = ("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus")
PROPERTIES = "org.freedesktop.DBus.Properties"


def connect_when_there(address, seconds=10):
    """A client of a bus that is just starting: its socket exists a moment before it answers."""
    def connected():
        try:
            return Bus(address)
        except GLib.Error:
            return None

    return wait_for(connected, seconds, f"the bus at {address}")


class Bus:
    """One client of the bus at `address`. A bus that goes away closes the connection and nothing else."""

    def __init__(self, address):
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self._connection = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        self._connection.set_exit_on_close(False)

    def call(self, name, path, interface, method, arguments=None, timeout=15_000):
        """Returns the reply's values as a tuple; a D-Bus error raises GLib.Error."""
        reply = self._connection.call_sync(name, path, interface, method, arguments, None,
                                           Gio.DBusCallFlags.NONE, timeout, None)
        return reply.unpack()

    def get(self, name, path, interface, prop):
        return self.call(name, path, PROPERTIES, "Get", GLib.Variant("(ss)", (interface, prop)))[0]

    def set(self, name, path, interface, prop, value):
        self.call(name, path, PROPERTIES, "Set", GLib.Variant("(ssv)", (interface, prop, value)))

    def owner(self, name):
        """The unique name behind a well-known one, None where nobody owns it."""
        try:
            return self.call(*DAEMON, "GetNameOwner", GLib.Variant("(s)", (name,)))[0]
        except GLib.Error:
            return None

    def process_of(self, name):
        return self.call(*DAEMON, "GetConnectionUnixProcessID", GLib.Variant("(s)", (name,)))[0]

    def follow(self, name, interface, signal, handler, path=None):
        """Calls `handler(*values)` for every such signal (of the object at `path`, where given) while events are
        dispatched; returns how to stop it."""
        def arrived(_connection, _sender, _path, _interface, _signal, values):
            handler(*values.unpack())

        subscription = self._connection.signal_subscribe(name, interface, signal, path, None,
                                                         Gio.DBusSignalFlags.NONE, arrived)
        return lambda: self._connection.signal_unsubscribe(subscription)

    def close(self):
        if not self._connection.is_closed():
            try:
                self._connection.close_sync(None)
            except GLib.Error:
                pass  # The bus went first.
