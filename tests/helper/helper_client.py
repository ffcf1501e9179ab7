#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""A program that calls the background helper: one connection to the system bus, told what to do line by line.

Each line of the standard input is a JSON list, a method and its arguments as GVariant text; each line of the output the
answer, {"value": [...]} or {"error": NAME}. "interactive" before the method lets polkit ask the user.
"""
import json
import sys

from gi.repository import Gio, GLib

LABEL = "com.morvanta.Tarvik.helper"
PATH = "/com/morvanta/Tarvik/Helper"
PROTOCOL = "com.morvanta.Tarvik.HelperProtocol1"
TIMEOUT = 60_000


def connect():
    """A connection of its own: the bus tells callers apart by theirs."""
    return Gio.DBusConnection.new_for_address_sync(
        Gio.dbus_address_get_for_bus_sync(Gio.BusType.SYSTEM),
        Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None,
    )


def call(connection, method, arguments=None, flags=Gio.DBusCallFlags.NONE):
    """The values of the reply; a GLib.Error has the error that came instead."""
    parameters = GLib.Variant.parse(None, arguments) if isinstance(arguments, str) else arguments
    return connection.call_sync(LABEL, PATH, PROTOCOL, method, parameters, None, flags, TIMEOUT).unpack()


def main():
    connection = connect()
    print(json.dumps(connection.get_unique_name()), flush=True)
    for line in sys.stdin:
        words = json.loads(line)
        flags = Gio.DBusCallFlags.NONE
        if words[0] == "interactive":
            flags = Gio.DBusCallFlags.ALLOW_INTERACTIVE_AUTHORIZATION
            words = words[1:]
        try:
            answer = {"value": call(connection, *words, flags=flags)}
        except GLib.Error as error:
            answer = {"error": Gio.DBusError.get_remote_error(error)}
        print(json.dumps(answer), flush=True)


if __name__ == "__main__":
    main()
