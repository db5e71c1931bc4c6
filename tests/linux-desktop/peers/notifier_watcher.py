"""A watcher of status notifier items, and the panel that is registered with it. Prints each item.
Input: press; tooltip; panel there / panel gone."""

from bus_peer import BUS, emit, say, serve
from gi.repository import Gio, GLib

NAME = "org.kde.StatusNotifierWatcher"
PATH = "/StatusNotifierWatcher"
XML = """<node><interface name="org.kde.StatusNotifierWatcher">
  <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
  <method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
  <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <property name="ProtocolVersion" type="i" access="read"/>
  <signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
  <signal name="StatusNotifierHostRegistered"/>
  <signal name="StatusNotifierHostUnregistered"/>
</interface></node>"""

items = []
panel = True


def called(method, arguments, sender):
    if method == "RegisterStatusNotifierItem":
        service = arguments[0] if not arguments[0].startswith("/") else sender
        items.append(service)
        emit(PATH, NAME, "StatusNotifierItemRegistered", "(s)", service)
        say("item")


def property_of(key):
    if key == "IsStatusNotifierHostRegistered":
        return GLib.Variant("b", panel)
    if key == "RegisteredStatusNotifierItems":
        return GLib.Variant("as", items)
    return GLib.Variant("i", 0)


def ask(method, interface, arguments, answered):
    BUS.call(items[-1], "/StatusNotifierItem", interface, method, arguments, None,
             Gio.DBusCallFlags.NONE, -1, None,
             lambda bus, result: answered(bus.call_finish(result)))


def command(words):
    global panel
    if words[0] == "press":
        ask("Activate", "org.kde.StatusNotifierItem", GLib.Variant("(ii)", (5, 5)),
            lambda answer: say("pressed"))
    elif words[0] == "tooltip":
        ask("Get", "org.freedesktop.DBus.Properties",
            GLib.Variant("(ss)", ("org.kde.StatusNotifierItem", "ToolTip")),
            lambda answer: say(*[part for part in answer.unpack()[0][2:] if part]))
    elif words[0] == "panel":
        panel = words[1] == "there"
        signal = "StatusNotifierHostRegistered" if panel else "StatusNotifierHostUnregistered"
        BUS.emit_signal(None, PATH, NAME, signal, None)
        say("panel", words[1])


serve(NAME, PATH, XML, called, command, property_of)
