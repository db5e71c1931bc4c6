"""What the peers of these tests have in common: an object on the session bus, commands a line on
standard input, lines on standard output. Ends at end of input."""

import sys

from gi.repository import Gio, GLib

LOOP = GLib.MainLoop()
BUS = Gio.bus_get_sync(Gio.BusType.SESSION)


def say(*words):
    print(*words, flush=True)


def serve(name, path, xml, called, command=lambda words: None, property_of=None):
    """Owns `name` and answers `path`. `called(method, arguments, sender)` returns what the method
    returns, a tuple or None, or raises KeyError; `command(words)` obeys a line of input."""

    def on_call(_connection, sender, _path, _interface, method, parameters, invocation):
        try:
            result = called(method, parameters.unpack(), sender)
        except KeyError as error:
            invocation.return_dbus_error("org.example.Unknown", str(error))
            return
        invocation.return_value(result)

    def on_property(_connection, _sender, _path, _interface, key):
        return property_of(key)

    for interface in Gio.DBusNodeInfo.new_for_xml(xml).interfaces:
        BUS.register_object(path, interface, on_call, on_property if property_of else None, None)

    def on_input(channel, _condition):
        line = channel.readline()
        if not line:
            LOOP.quit()
            return False
        command(line.rstrip("\n").split("\t"))
        return True

    GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, on_input)
    Gio.bus_own_name_on_connection(BUS, name, Gio.BusNameOwnerFlags.NONE, None,
                                   lambda *_: sys.exit("the name was lost"))
    LOOP.run()


def emit(path, interface, signal, signature, *values):
    BUS.emit_signal(None, path, interface, signal, GLib.Variant(signature, values))
