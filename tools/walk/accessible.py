"""What a program tells a screen reader, read over the accessibility bus as a whole tree.

The bus is asked directly and every question anew: the usual client library keeps what it once read,
and drops it only in a main loop of its own.
"""

import dataclasses

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

ACCESSIBLE = "org.a11y.atspi.Accessible"
ACTION = "org.a11y.atspi.Action"
COMPONENT = "org.a11y.atspi.Component"
PROPERTIES = "org.freedesktop.DBus.Properties"
NULL_PATH = "/org/a11y/atspi/null"

# Bits of the state set, as the AT-SPI interface numbers them.
STATES = {1: "active", 4: "checked", 8: "enabled", 11: "focusable", 12: "focused",
          22: "selectable", 23: "selected", 24: "sensitive", 25: "showing", 30: "visible",
          32: "indeterminate"}


class Gone(Exception):
    """The program, or one of its nodes, went while it was asked."""


@dataclasses.dataclass
class Node:
    """One node as it was when it was read. `box` is x, y, width, height on the screen."""

    path: str
    role: str
    name: str
    description: str
    states: frozenset
    box: tuple
    parent: "Node | None" = dataclasses.field(default=None, repr=False, compare=False)
    children: list = dataclasses.field(default_factory=list, repr=False)

    def walk(self):
        """This node and all below it, in the order of a screen reader."""
        yield self
        for child in self.children:
            yield from child.walk()

    def all(self, role=None, name=None):
        """Those of that role and that name."""
        return [node for node in self.walk() if role in (None, node.role)
                and name in (None, node.name)]

    def find(self, role=None, name=None):
        """The first of that role and name, or nothing."""
        found = self.all(role, name)
        return found[0] if found else None

    def starting(self, role, beginning):
        """The first of that role whose name begins so, or nothing."""
        for node in self.walk():
            if node.role == role and node.name.startswith(beginning):
                return node
        return None

    def focused(self):
        """All nodes that say the keyboard is on them."""
        return [node for node in self.walk() if "focused" in node.states]

    def above(self):
        """Those that this one lies in, the nearest first."""
        node = self.parent
        while node is not None:
            yield node
            node = node.parent

    def is_available(self):
        return self.description != "unavailable"

    def drawn(self, indent=0):
        """The tree as lines of text, for people."""
        lines = ["%s%s %r%s %s %s" % (
            "  " * indent, self.role, self.name,
            " (%s)" % self.description if self.description else "",
            "%d,%d %dx%d" % self.box, " ".join(sorted(self.states - {
                "enabled", "sensitive", "showing", "visible", "focusable", "selectable"})))]
        for child in self.children:
            lines += child.drawn(indent + 1)
        return lines


class AccessibilityBus:
    """The accessibility bus of one desktop."""

    def __init__(self, session_address):
        session = _connect(session_address)
        answer = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress",
                                   None, None, Gio.DBusCallFlags.NONE, -1, None)
        self._session = session
        self._bus = _connect(answer.unpack()[0])

    def application(self, pid):
        """The program with that process, or None while it is not on the bus."""
        try:
            children = self._ask([("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root",
                                   ACCESSIBLE, "GetChildren", None)])[0][0]
        except Gone:
            return None
        for name, path in children:
            try:
                owner = self._ask([("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                    "org.freedesktop.DBus", "GetConnectionUnixProcessID",
                                    GLib.Variant("(s)", (name,)))])[0][0]
            except Gone:
                continue
            if owner == pid:
                return Application(self, name, path)
        return None

    def _ask(self, calls):
        """The answers to all calls, which are under way together."""
        answers = [None] * len(calls)
        left = len(calls)

        def take(bus, result, place):
            nonlocal left
            left -= 1
            try:
                answers[place] = bus.call_finish(result).unpack()
            except GLib.Error as error:
                answers[place] = error

        for place, (name, path, interface, method, arguments) in enumerate(calls):
            self._bus.call(name, path, interface, method, arguments, None,
                           Gio.DBusCallFlags.NONE, 120_000, None, take, place)
        context = GLib.MainContext.default()
        while left:
            context.iteration(True)
        for answer in answers:
            if isinstance(answer, GLib.Error):
                raise Gone(answer.message)
        return answers


class Application:
    """One program on the accessibility bus."""

    def __init__(self, bus, name, path):
        self._bus = bus
        self._name = name
        self._path = path

    def tree(self):
        """Everything on view that it tells now, also what a list has scrolled away. Raises Gone when
        that changed meanwhile."""
        root = self._nodes([self._path])[0]
        level = [root]
        while level:
            lists = self._ask_each([node.path for node in level], ACCESSIBLE, "GetChildren")
            below = []
            for node, (children,) in zip(level, lists):
                paths = [path for _, path in children if path != NULL_PATH]
                node.children = [(path, node) for path in paths]
                below += node.children
            made = self._nodes([path for path, _ in below])
            for node in level:
                node.children = []
            level = []
            for node, (_, parent) in zip(made, below):
                # The toolkit leaves what is hidden in the tree, and readers pass it over.
                if "visible" in node.states:
                    node.parent = parent
                    parent.children.append(node)
                    level.append(node)
        return root

    def actions(self, node):
        """The names of what can be done to a node."""
        return [name for name, _, _ in
                self._ask_each([node.path], ACTION, "GetActions")[0][0]]

    def act(self, node, action):
        """Does what a screen reader's user asks for. Raises Gone without such an action."""
        names = self.actions(node)
        if action not in names:
            raise Gone("%s has %s, not %s" % (node.name, names, action))
        self._ask_each([node.path], ACTION, "DoAction", GLib.Variant("(i)", (names.index(action),)))

    def _ask_each(self, paths, interface, method, arguments=None):
        return self._bus._ask([(self._name, path, interface, method, arguments) for path in paths])

    def _nodes(self, paths):
        def get(name):
            return self._ask_each(paths, PROPERTIES, "Get", GLib.Variant("(ss)", (ACCESSIBLE, name)))

        roles = self._ask_each(paths, ACCESSIBLE, "GetRoleName")
        states = self._ask_each(paths, ACCESSIBLE, "GetState")
        names = get("Name")
        descriptions = get("Description")
        boxes = self._boxes(paths)
        return [Node(path, role[0], name[0], description[0], _state_names(state[0]), box)
                for path, role, name, description, state, box
                in zip(paths, roles, names, descriptions, states, boxes)]

    def _boxes(self, paths):
        if paths == [self._path]:
            return [(0, 0, 0, 0)]  # the program itself lies nowhere
        return [box for box, in self._ask_each(paths, COMPONENT, "GetExtents",
                                               GLib.Variant("(u)", (0,)))]


def _state_names(words):
    bits = words[0] | words[1] << 32
    return frozenset(name for bit, name in STATES.items() if bits >> bit & 1)


def _connect(address):
    return Gio.DBusConnection.new_for_address_sync(
        address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
        Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
