"""A notification server that reads no markup. Prints each notification with its number, and whether
it takes another's place. Input: close NUMBER; texts, which lets the number of each answer wait."""

import sys

from bus_peer import emit, say, serve
from gi.repository import GLib

NAME = "org.freedesktop.Notifications"
PATH = "/org/freedesktop/Notifications"
XML = """<node><interface name="org.freedesktop.Notifications">
  <method name="GetCapabilities"><arg type="as" direction="out"/></method>
  <method name="Notify"><arg type="s" direction="in"/><arg type="u" direction="in"/>
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="as" direction="in"/><arg type="a{sv}" direction="in"/><arg type="i" direction="in"/>
    <arg type="u" direction="out"/></method>
  <signal name="NotificationClosed"><arg type="u"/><arg type="u"/></signal>
</interface></node>"""

last = int(sys.argv[1]) if len(sys.argv) > 1 else 0


def called(method, arguments, _sender):
    global last
    if method == "GetCapabilities":
        return GLib.Variant("(as)", (["body"],))
    _program, replaced, _icon, title, body, actions, hints, _expiry = arguments
    number = replaced
    if replaced == 0:
        last += 1
        number = last
    extras = sorted(hints) + actions
    say("%d %s: %s | %s [%s]" % (number, "again" if replaced else "new", title, body,
                                 " ".join(extras)))
    return GLib.Variant("(u)", (number,))


def command(words):
    if words[0] == "close":
        emit(PATH, NAME, "NotificationClosed", "(uu)", int(words[1]), 2)
        say("closed")


serve(NAME, PATH, XML, called, command)
