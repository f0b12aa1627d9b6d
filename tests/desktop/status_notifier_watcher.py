"""A host for menu-bar items that does nothing but be there: a program that can be killed and started again.

It prints one line for each item that registers: the item's bus name and path."""

import sys

from gi.repository import Gio, GLib

NAME = "org.kde.StatusNotifierWatcher"
PATH = "/StatusNotifierWatcher"
INTERFACE = f"""<node><interface name='{NAME}'>
  <method name='RegisterStatusNotifierItem'><arg type='s' direction='in'/></method>
  <method name='RegisterStatusNotifierHost'><arg type='s' direction='in'/></method>
  <property name='RegisteredStatusNotifierItems' type='as' access='read'/>
  <property name='IsStatusNotifierHostRegistered' type='b' access='read'/>
  <property name='ProtocolVersion' type='i' access='read'/>
  <signal name='StatusNotifierItemRegistered'><arg type='s'/></signal>
  <signal name='StatusNotifierItemUnregistered'><arg type='s'/></signal>
  <signal name='StatusNotifierHostRegistered'/>
</interface></node>"""


class StatusNotifierWatcher:
    def __init__(self, connection):
        self._connection = connection
        self._items = []
        interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        connection.register_object(PATH, interface, self._called, self._get)

    def _called(self, _connection, sender, _path, _interface, method, arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            self._register(sender, arguments.unpack()[0])
        invocation.return_value(None)

    def _register(self, sender, service):
        # An item names itself either by its path or by its bus name.
        item = f"{sender} {service}" if service.startswith("/") else f"{service} /StatusNotifierItem"
        self._items.append(item.replace(" ", ""))
        print(item, flush=True)
        self._connection.emit_signal(None, PATH, NAME, "StatusNotifierItemRegistered",
                                     GLib.Variant("(s)", (self._items[-1],)))

    def _get(self, _connection, _sender, _path, _interface, name):
        return {"RegisteredStatusNotifierItems": GLib.Variant("as", self._items),
                "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
                "ProtocolVersion": GLib.Variant("i", 0)}[name]


def serve():
    watchers = []
    Gio.bus_own_name(Gio.BusType.SESSION, NAME, Gio.BusNameOwnerFlags.NONE,
                     lambda connection, _name: watchers.append(StatusNotifierWatcher(connection)),
                     None, lambda *_: sys.exit("lost the bus or the name"))
    GLib.MainLoop().run()


if __name__ == "__main__":
    serve()
