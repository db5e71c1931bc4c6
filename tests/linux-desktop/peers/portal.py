"""A settings portal. Input: set GROUP KEY VALUE, where the value is a GVariant's text."""

from bus_peer import emit, say, serve
from gi.repository import GLib

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
INTERFACE = "org.freedesktop.portal.Settings"
XML = """<node><interface name="org.freedesktop.portal.Settings">
  <method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="v" direction="out"/></method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""

values = {}


def called(_method, arguments, _sender):
    return GLib.Variant("(v)", (GLib.Variant("v", values[arguments]),))


def command(words):
    if words[0] == "set":
        group, key, text = words[1:]
        values[group, key] = GLib.Variant.parse(None, text, None, None)
        emit(PATH, INTERFACE, "SettingChanged", "(ssv)", group, key, values[group, key])
        say("set")


serve(NAME, PATH, XML, called, command)
