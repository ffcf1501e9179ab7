#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""From the plug to logind: how long a change of power takes to reach the inhibitor, through the real UPower.

usage: laptop_bench.py TARVIK TOOL SLEEPER, inside scripts/desktop --laptop
"""
import json
import os
import pathlib
import socket
import statistics
import subprocess
import sys
import tempfile
import time

from gi.repository import Gio, GLib

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "tests" / "support"))
from waiting import eventually  # noqa: E402

TARVIK, TOOL, SLEEPER = sys.argv[1:4]
ROUNDS = 20


def set_mains(state):
    """Changes the hardware; the moment when the kernel would have announced it."""
    with socket.socket(socket.AF_UNIX, socket.SOCK_STREAM) as connection:
        connection.connect(os.environ["TARVIK_DESKTOP"] + "/laptop")
        connection.send(b"\0".join((b"mains", state)))
        began = time.monotonic()
        assert connection.recv(1024) == b"ok"
    return began


def main():
    held = {"idle": False, "at": 0.0}

    def on_change(_bus, _sender, _path, _interface, _signal, parameters):
        changed = parameters.unpack()[1]
        if "BlockInhibited" in changed:
            held["idle"] = "idle" in changed["BlockInhibited"].split(":")
            held["at"] = time.monotonic()

    def wait_for(idle):
        def has_said():
            GLib.MainContext.default().iteration(False)
            return held["idle"] == idle

        eventually(has_said, f"logind says idle={idle}", period=0)
        return held["at"]

    with tempfile.TemporaryDirectory() as config:
        settings = pathlib.Path(config, "tarvik", "settings.json")
        settings.parent.mkdir()
        settings.write_text(json.dumps({"requireAC": True}), encoding="utf-8")
        os.environ["XDG_CONFIG_HOME"] = config
        bus = Gio.bus_get_sync(Gio.BusType.SYSTEM)
        bus.signal_subscribe(
            "org.freedesktop.login1", "org.freedesktop.DBus.Properties", "PropertiesChanged", "/org/freedesktop/login1",
            None, Gio.DBusSignalFlags.NONE, on_change,
        )
        agent = subprocess.Popen(["claude"], executable=SLEEPER)
        tarvik = subprocess.Popen([TARVIK], stderr=subprocess.DEVNULL)
        wait_for(True)
        times = {b"off": [], b"on": []}
        for _ in range(ROUNDS):
            for state in times:
                began = set_mains(state)
                times[state].append((wait_for(state == b"on") - began) * 1000)
        for state, what in ((b"off", "Unplugged -> released"), (b"on", "Plugged in -> held")):
            median, worst = statistics.median(times[state]), max(times[state])
            print(f"{what:<30} median {median:.1f} ms, worst of {ROUNDS} {worst:.1f} ms   at most 50 ms", flush=True)
        for process in (tarvik, agent):
            process.kill()
            process.wait()


if __name__ == "__main__":
    main()
