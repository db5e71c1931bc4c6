"""A file manager. Prints what it is to show. With the argument "refusing" it answers errors."""

import sys

from bus_peer import say, serve

XML = """<node><interface name="org.freedesktop.FileManager1">
  <method name="ShowItems"><arg type="as" direction="in"/><arg type="s" direction="in"/></method>
</interface></node>"""


def called(method, arguments, _sender):
    if "refusing" in sys.argv:
        raise KeyError("refused")
    say(method, *arguments[0])


serve("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", XML, called)
