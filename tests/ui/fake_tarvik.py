#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""fake_tarvik.py [STATE]: offers on the session bus what the UI process observes, in one of a few states.

STATE: awake (default), asleep, paused, off, session, long. "off" is also what becomes of any state when the windows set
isEnabled to false. Prints "ready", and every request that it gets, one a line, without those that come whenever a window becomes
active. Reads further states from its input, and
properties as NAME=JSON, each on a line of its own, and prints "entered" and the line for each.
"""
import json
import os
import pathlib
import sys
import time

from gi.repository import Gio, GLib

CONTRACTS = pathlib.Path(__file__).resolve().parents[2] / "src" / "dbus" / "contracts"
STATUS = "com.morvanta.Tarvik.Status1"
SETTINGS = "com.morvanta.Tarvik.Settings1"
OTHERS = tuple(f"com.morvanta.Tarvik.{name}1" for name in ("Hooks", "Journal", "LidClosed", "Updater"))
RESULTS = {
    "Install": GLib.Variant("(b)", (False,)),
    "Uninstall": GLib.Variant("(b)", (False,)),
    "ExportText": GLib.Variant("(s)", ("",)),
}
INITIAL = {"b": True, "i": 20, "u": 0, "s": "", "d": 0.0}

NAMES = ("IsAwake", "IsPaused", "Title", "Reason", "Subtitle", "Details", "IsTimedSessionActive")
STATES = {
    "awake": (True, False, "Awake", "Awake · 2 agents, 1 app", "Claude Code, Codex +1 more", "charging 80% · lid closed", False),
    "asleep": (False, False, "Watching", "Dozing — nothing to watch", "Nothing running to keep awake for", "", False),
    "paused": (False, True, "Paused", "Paused — on battery", "running on battery", "running warm", False),
    "off": (False, True, "Off", "Off", "Not watching", "on battery 64%", False),
    "session": (True, False, "Awake", "Awake — 60 min left", "Timed session", "charging 80% · 60 min left", True),
    "long": (True, False, "Awake", "Awake · 12 agents, 34 apps and a very long headline", "Visual Studio Code Insiders <b>Nightly</b>, "
             "Cursor Agent (CLI) +44 more, and then some that nobody expected", "charging 80% · running very hot · lid closed · "
             "959 min left · and more", True),
}


class FakeTarvik:
    def __init__(self, state):
        self.loop = GLib.MainLoop()
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.types = {}
        self.interfaces = {}
        self.values = {}
        for interface in (STATUS, SETTINGS, *OTHERS):
            self.values[interface] = {}
            info = Gio.DBusNodeInfo.new_for_xml((CONTRACTS / f"{interface}.xml").read_text(encoding="utf-8")).interfaces[0]
            for item in info.properties:
                self.types[item.name] = item.signature
                self.interfaces[item.name] = interface
                self.values[interface][item.name] = INITIAL.get(item.signature, [])
            self.bus.register_object("/com/morvanta/Tarvik", info, self.called, self.get, self.set)
        self.enter(state)
        Gio.bus_own_name_on_connection(self.bus, "com.morvanta.Tarvik", Gio.BusNameOwnerFlags.NONE, lambda *_: self.say("ready"), None)
        GLib.io_add_watch(sys.stdin.fileno(), GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, self.read)

    def say(self, *words):
        print(*words, flush=True)

    def enter(self, line):
        name, is_property, text = line.partition("=")
        if is_property:
            value = json.loads(text)
            # The bindings take no lists for structures.
            self.change(self.interfaces[name], {name: [tuple(row) for row in value] if self.types[name].startswith("a(") else value})
        else:
            self.enter_state(line)

    def enter_state(self, state):
        changed = dict(zip(NAMES, STATES[state]))
        changed["SessionEnd"] = time.time() + 3600 if changed["IsTimedSessionActive"] else 0.0
        self.change(STATUS, changed)
        self.change(SETTINGS, {"isEnabled": state != "off"})

    def change(self, interface, changed):
        self.values[interface].update(changed)
        variants = {name: GLib.Variant(self.types[name], value) for name, value in changed.items()}
        self.bus.emit_signal(None, "/com/morvanta/Tarvik", "org.freedesktop.DBus.Properties", "PropertiesChanged",
                             GLib.Variant("(sa{sv}as)", (interface, variants, [])))

    def get(self, _bus, _sender, _path, interface, name):
        return GLib.Variant(self.types[name], self.values[interface][name])

    def set(self, _bus, _sender, _path, interface, name, value):
        self.say("set", name, value.unpack())
        self.change(interface, {name: value.unpack()})
        if name == "isEnabled":
            self.enter_state("awake" if value.unpack() else "off")
        return True

    def called(self, _bus, _sender, _path, _interface, method, arguments, invocation):
        if method != "RefreshHelperStatus":
            self.say(method, *arguments.unpack())
        if method == "SetTimedSession":
            self.enter_state("session" if arguments.unpack()[0] > 0 else "awake")
        # No agent's file can be written.
        invocation.return_value(RESULTS.get(method))
        if method == "Quit":
            GLib.idle_add(self.loop.quit)

    def read(self, *_):
        lines = os.read(sys.stdin.fileno(), 65536).decode()
        for line in lines.splitlines():
            self.enter(line)
            self.bus.flush_sync()
            self.say("entered", line)
        return bool(lines)


if __name__ == "__main__":
    FakeTarvik(sys.argv[1] if len(sys.argv) > 1 else "awake").loop.run()
