#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""fake_plasmashell.py X Y WIDTH HEIGHT: tells on the session bus, as plasmashell does, what its panels leave of a screen.

Prints "ready", and the name of every screen that it is asked for.
"""
import sys

from gi.repository import Gio, GLib

INTERFACE = Gio.DBusNodeInfo.new_for_xml("""<node><interface name="org.kde.PlasmaShell.StrutManager">
<method name="availableScreenRect"><arg type="s" direction="in"/><arg type="(iiii)" direction="out"/></method>
</interface></node>""").interfaces[0]


def main(rectangle):
    def called(_bus, _sender, _path, _interface, _method, arguments, invocation):
        print(*arguments.unpack(), flush=True)
        invocation.return_value(GLib.Variant("((iiii))", (rectangle,)))

    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    bus.register_object("/StrutManager", INTERFACE, called, None, None)
    Gio.bus_own_name_on_connection(bus, "org.kde.plasmashell", Gio.BusNameOwnerFlags.NONE, lambda *_: print("ready", flush=True), None)
    GLib.MainLoop().run()


if __name__ == "__main__":
    main(tuple(map(int, sys.argv[1:])))
