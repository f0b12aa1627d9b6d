"""A settings portal: tells programs the desktop's appearance and takes changes of it.

A bare session has no portal of its own, so this one answers as a desktop's would. Run as a program of its own, it
serves until its bus goes."""

from gi.repository import Gio, GLib

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
SETTINGS = "org.freedesktop.portal.Settings"
CONTROL = "me.kerno.VirtualDesktop"
IN = "<arg type='s' direction='in'/>"
INTERFACES = f"""<node><interface name='{SETTINGS}'>
  <method name='Read'>{IN}{IN}<arg type='v' direction='out'/></method>
  <method name='ReadOne'>{IN}{IN}<arg type='v' direction='out'/></method>
  <method name='ReadAll'><arg type='as' direction='in'/><arg type='a{{sa{{sv}}}}' direction='out'/></method>
  <signal name='SettingChanged'><arg type='s'/><arg type='s'/><arg type='v'/></signal>
  <property name='version' type='u' access='read'/></interface>
  <interface name='{CONTROL}'>
  <method name='Change'>{IN}{IN}<arg type='v' direction='in'/></method>
  </interface></node>"""


class SettingsPortal:
    def __init__(self, connection):
        self._connection = connection
        self._values = {
            ("org.freedesktop.appearance", "color-scheme"): GLib.Variant("u", 0),
            ("org.gnome.desktop.interface", "enable-animations"): GLib.Variant("b", True),
            ("org.gnome.desktop.interface", "text-scaling-factor"): GLib.Variant("d", 1.0),
        }
        for interface in Gio.DBusNodeInfo.new_for_xml(INTERFACES).interfaces:
            connection.register_object(PATH, interface, self._called, lambda *_: GLib.Variant("u", 2))

    def _called(self, _connection, _sender, _path, _interface, method, arguments, invocation):
        reply = getattr(self, f"_{method}")(*arguments.unpack()[:2], arguments, invocation)
        if reply is not None:
            invocation.return_value(reply)

    def _value(self, namespace, key, invocation):
        value = self._values.get((namespace, key))
        if value is None:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", f"no setting {namespace} {key}")
        return value

    def _Read(self, namespace, key, _arguments, invocation):
        value = self._value(namespace, key, invocation)
        # The older call wraps its answer in a second variant, and clients rely on it.
        return GLib.Variant("(v)", (GLib.Variant("v", value),)) if value is not None else None

    def _ReadOne(self, namespace, key, _arguments, invocation):
        value = self._value(namespace, key, invocation)
        return GLib.Variant("(v)", (value,)) if value is not None else None

    def _ReadAll(self, namespaces, *_):
        groups = {}
        for (namespace, key), value in self._values.items():
            if not namespaces or any(namespace.startswith(wanted.rstrip("*")) for wanted in namespaces):
                groups.setdefault(namespace, {})[key] = value
        return GLib.Variant("(a{sa{sv}})", (groups,))

    def _Change(self, namespace, key, arguments, _invocation):
        value = arguments.get_child_value(2).get_variant()
        self._values[(namespace, key)] = value
        self._connection.emit_signal(None, PATH, SETTINGS, "SettingChanged",
                                     GLib.Variant("(ssv)", (namespace, key, value)))
        return GLib.Variant("()", ())


def serve():
    loop = GLib.MainLoop()
    portals = []
    Gio.bus_own_name(Gio.BusType.SESSION, NAME, Gio.BusNameOwnerFlags.NONE,
                     lambda connection, _name: portals.append(SettingsPortal(connection)),
                     None, lambda *_: loop.quit())
    loop.run()


if __name__ == "__main__":
    serve()
