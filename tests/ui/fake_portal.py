#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""fake_portal.py [NAME=VALUE...]: the desktop portal, as far as it tells how windows are to look, and has files chosen.

NAME: dark, contrast, animations (0 or 1), text (such as 1.5), accent (rrggbb, or nothing for none), file (the absolute path of
the one that the user chooses, or nothing to cancel). Prints "ready". Takes further NAME=VALUE pairs from its input and prints
"told NAME=VALUE" for each.
"""
import os
import sys

from gi.repository import Gio, GLib

XML = """<node><interface name="org.freedesktop.portal.Settings">
  <method name="ReadAll"><arg type="as" direction="in"/><arg type="a{sa{sv}}" direction="out"/></method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface><interface name="org.freedesktop.portal.FileChooser">
  <method name="OpenFile"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="a{sv}" direction="in"/>
    <arg type="o" direction="out"/></method>
  <property name="version" type="u" access="read"/>
</interface></node>"""
PATH = "/org/freedesktop/portal/desktop"
APPEARANCE = "org.freedesktop.appearance"
INTERFACE = "org.gnome.desktop.interface"


def colour(text):
    # The portal's way to say that there is none.
    components = tuple(int(text[at:at + 2], 16) / 255 for at in (0, 2, 4)) if text else (-1.0, -1.0, -1.0)
    return GLib.Variant("(ddd)", components)


SETTINGS = {
    "dark": (APPEARANCE, "color-scheme", lambda text: GLib.Variant("u", 1 if text == "1" else 2)),
    "contrast": (APPEARANCE, "contrast", lambda text: GLib.Variant("u", int(text))),
    "accent": (APPEARANCE, "accent-color", colour),
    "animations": (INTERFACE, "enable-animations", lambda text: GLib.Variant("b", text == "1")),
    "text": (INTERFACE, "text-scaling-factor", lambda text: GLib.Variant("d", float(text))),
}


class FakePortal:
    def __init__(self, pairs):
        self.loop = GLib.MainLoop()
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.groups = {APPEARANCE: {}, INTERFACE: {}}
        self.file = ""
        for pair in pairs:
            self.take(pair)
        settings, files = Gio.DBusNodeInfo.new_for_xml(XML).interfaces
        self.bus.register_object(PATH, settings, self.called, None, None)
        self.bus.register_object(PATH, files, self.choose, lambda *_: GLib.Variant("u", 3), None)
        Gio.bus_own_name_on_connection(self.bus, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE,
                                       lambda *_: print("ready", flush=True), None)
        GLib.io_add_watch(sys.stdin.fileno(), GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, self.read)

    def take(self, pair):
        """Returns where the setting is kept; nothing for a file."""
        name, _, text = pair.partition("=")
        if name == "file":
            self.file = text
            return None
        group, key, variant = SETTINGS[name]
        self.groups[group][key] = variant(text)
        return group, key

    def called(self, _bus, _sender, _path, _interface, _method, _arguments, invocation):
        invocation.return_value(GLib.Variant("(a{sa{sv}})", (self.groups,)))

    def choose(self, bus, sender, _path, _interface, _method, arguments, invocation):
        token = arguments.unpack()[2]["handle_token"]
        request = f"{PATH}/request/{sender[1:].replace('.', '_')}/{token}"
        invocation.return_value(GLib.Variant("(o)", (request,)))
        results = {"uris": GLib.Variant("as", [GLib.filename_to_uri(self.file)])} if self.file else {}
        bus.emit_signal(None, request, "org.freedesktop.portal.Request", "Response",
                        GLib.Variant("(ua{sv})", (0 if self.file else 1, results)))

    def read(self, *_):
        pairs = os.read(sys.stdin.fileno(), 4096).decode()
        for pair in pairs.split():
            place = self.take(pair)
            if place:
                group, key = place
                self.bus.emit_signal(None, PATH, "org.freedesktop.portal.Settings", "SettingChanged",
                                     GLib.Variant("(ssv)", (group, key, self.groups[group][key])))
                self.bus.flush_sync()
            print("told", pair, flush=True)
        if not pairs:
            self.loop.quit()
        return bool(pairs)


if __name__ == "__main__":
    FakePortal(sys.argv[1:]).loop.run()
