"""A desktop's notifications, as far as a program on the bus knows: they are kept, and the test chooses."""

from gi.repository import Gio, GLib

NAME = "org.freedesktop.Notifications"
PATH = "/org/freedesktop/Notifications"
INTERFACE = """<node><interface name="org.freedesktop.Notifications">
  <method name="Notify">
    <arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
    <arg type="a{sv}" direction="in"/><arg type="i" direction="in"/><arg type="u" direction="out"/>
  </method>
  <method name="CloseNotification"><arg type="u" direction="in"/></method>
  <signal name="ActionInvoked"><arg type="u"/><arg type="s"/></signal>
</interface></node>"""


class Notifications:
    """Each of `shown` is (summary, body, actions); the first has the number 1."""

    def __init__(self, address):
        self.shown = []
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self._connection = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        self._connection.set_exit_on_close(False)
        interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        self._connection.register_object(PATH, interface, self._handle, None, None)
        self._connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                   "RequestName", GLib.Variant("(su)", (NAME, 0)), None, Gio.DBusCallFlags.NONE,
                                   5000, None)

    def _handle(self, _connection, _sender, _path, _interface, method, values, invocation):
        if method == "Notify":
            _, _, _, summary, body, actions, _, _ = values.unpack()
            self.shown.append((summary, body, actions))
            invocation.return_value(GLib.Variant("(u)", (len(self.shown),)))
        else:
            invocation.return_value(None)

    def choose(self, number, action):
        self._connection.emit_signal(None, PATH, NAME, "ActionInvoked", GLib.Variant("(us)", (number, action)))

    def close(self):
        self._connection.close_sync(None)
