"""The accessibility tree as an assistive program sees it, over its own bus."""

from gi.repository import GLib

from desktop.bus import Bus
from desktop.processes import wait_for
from desktop.screen import Area

ACCESSIBLE = "org.a11y.atspi.Accessible"
REGISTRY = "org.a11y.atspi.Registry"
ROOT = "/org/a11y/atspi/accessible/root"
ON_SCREEN = GLib.Variant("(u)", (0,))


class Node:
    """One object of the tree. Everything is asked afresh, so a node of a closed window answers with GLib.Error."""

    def __init__(self, bus, name, path):
        self._bus, self._name, self._path = bus, name, path

    def _call(self, interface, method, arguments=None):
        return self._bus.call(self._name, self._path, f"org.a11y.atspi.{interface}", method, arguments, 2000)

    @property
    def name(self):
        return self._bus.get(self._name, self._path, ACCESSIBLE, "Name")

    @property
    def description(self):
        return self._bus.get(self._name, self._path, ACCESSIBLE, "Description")

    @property
    def role(self):
        return self._call("Accessible", "GetRoleName")[0]

    @property
    def area(self):
        return Area(*self._call("Component", "GetExtents", ON_SCREEN)[0])

    @property
    def text(self):
        return self._call("Text", "GetText", GLib.Variant("(ii)", (0, -1)))[0]

    def has_state(self, number):
        low, high = self._call("Accessible", "GetState")[0]
        return bool((low | high << 32) >> number & 1)

    @property
    def checked(self):
        return self.has_state(4)

    @property
    def active(self):
        """Whether a window has the keyboard."""
        return self.has_state(1)

    @property
    def focused(self):
        return self.has_state(12)

    @property
    def enabled(self):
        return self.has_state(8)

    @property
    def showing(self):
        return self.has_state(25)

    def children(self):
        return [Node(self._bus, *child) for child in self._call("Accessible", "GetChildren")[0]]

    def walk(self):
        """This node and all below it, parents first; what vanishes on the way is left out."""
        yield self
        for child in self._children_left():
            yield from child.walk()

    def branches(self, depth):
        """The nodes so many levels below this one."""
        if depth == 0:
            return [self]
        return [node for child in self._children_left() for node in child.branches(depth - 1)]

    def _children_left(self):
        try:
            return self.children()
        except GLib.Error:
            return []

    def press(self):
        """Does what the object does first: a press, a click, a toggle."""
        self._call("Action", "DoAction", GLib.Variant("(i)", (0,)))

    def write(self, text):
        self._call("EditableText", "SetTextContents", GLib.Variant("(s)", (text,)))

    def is_called(self, name, roles=()):
        try:
            return self.name == name and (not roles or self.role in roles)
        except GLib.Error:
            return False

    def is_described(self, description):
        try:
            return self._bus.get(self._name, self._path, ACCESSIBLE, "Description") == description
        except GLib.Error:
            return False

    def find(self, name, *roles):
        return next((node for node in self.walk() if node.is_called(name, roles)), None)

    def find_all(self, name, *roles):
        return [node for node in self.walk() if node.is_called(name, roles)]


class AccessibilityTree:
    """All programs of a desktop that speak to assistive ones. `connect` makes the client of the bus at an address."""

    def __init__(self, session_bus, connect=Bus):
        address = session_bus.call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress")[0]
        self._bus = connect(address)
        # Where something was found the last time, for programs that are too large to be searched each time.
        self.known_parts = {}

    def program(self, name, seconds=10):
        """The root of the program with this name, once it has come."""
        def found():
            try:
                return next((node for node in self._programs() if node.is_called(name)), None)
            except GLib.Error:
                return None

        return wait_for(found, seconds, f"“{name}” in the accessibility tree")

    def follow_announcements(self, handler):
        """Calls `handler(text)` for all that any program wants to be said; returns how to stop it."""
        return self._bus.follow(None, "org.a11y.atspi.Event.Object", "Announcement",
                                lambda _kind, _politeness, _unused, text, _properties: handler(text))

    def _programs(self):
        return Node(self._bus, REGISTRY, ROOT).children()

    def close(self):
        self._bus.close()


def find_when_there(root, name, *roles, seconds=15):
    """The object of this name (and one of the roles, where given), once the tree has it."""
    return wait_for(lambda: root.find(name, *roles), seconds, f"“{name}” in the accessibility tree")
