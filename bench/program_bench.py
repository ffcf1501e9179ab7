#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What Tarvik costs and how fast it reacts, as a whole program inside the virtual desktop.

usage: program_bench.py TARVIK TOOL SLEEPER [IDLE-SECONDS]
"""
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

from gi.repository import Gio, GLib

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "tests" / "support"))
from waiting import eventually  # noqa: E402

TARVIK, TOOL, SLEEPER = sys.argv[1:4]
IDLE_SECONDS = float(sys.argv[4]) if len(sys.argv) > 4 else 300
POLL_PERIOD = 5
SETTINGS = ("com.morvanta.Tarvik", "/com/morvanta/Tarvik", "com.morvanta.Tarvik.Settings1")
LOGIND = ("org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager")


class Inhibitions:
    """Follows what logind says is inhibited; reading it again costs nothing of what is measured."""

    def __init__(self):
        self.bus = Gio.bus_get_sync(Gio.BusType.SYSTEM)
        self.idle = False
        self.changed_at = 0
        self.bus.signal_subscribe(
            LOGIND[0], "org.freedesktop.DBus.Properties", "PropertiesChanged", LOGIND[1], None,
            Gio.DBusSignalFlags.NONE, self.on_change,
        )
        self.context = GLib.MainContext.default()

    def on_change(self, _bus, _sender, _path, _interface, _signal, parameters):
        changed = parameters.unpack()[1]
        if "BlockInhibited" in changed:
            self.idle = "idle" in changed["BlockInhibited"].split(":")
            self.changed_at = time.monotonic()

    def wait_for(self, idle, since, patience=15):
        """Milliseconds from `since` until logind has announced the state."""
        def has_said():
            self.context.iteration(False)
            return self.idle == idle

        eventually(has_said, f"logind says idle={idle}", patience, period=0)
        return (self.changed_at - since) * 1000


def cpu_milliseconds(pid):
    """CPU time of all threads, from the scheduler's own account."""
    return sum(int((task / "schedstat").read_text().split()[0]) for task in pathlib.Path(f"/proc/{pid}/task").iterdir()) / 1e6


def children_milliseconds(pid):
    fields = pathlib.Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[13]) + int(fields[14])) * 1000 / os.sysconf("SC_CLK_TCK")


def wakeups(pid):
    total = 0
    for task in pathlib.Path(f"/proc/{pid}/task").iterdir():
        for line in (task / "status").read_text().splitlines():
            if line.startswith("voluntary_ctxt_switches"):
                total += int(line.split()[1])
    return total


def memory(pid):
    """(PSS, private dirty) in MiB."""
    fields = {}
    for line in pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()[1:]:
        name, _, rest = line.partition(":")
        fields[name] = int(rest.split()[0]) / 1024
    return fields["Pss"], fields["Private_Dirty"]


def start():
    process = subprocess.Popen([TARVIK], stderr=subprocess.DEVNULL)
    eventually(lambda: subprocess.run([TOOL, "status"], capture_output=True, check=False).returncode != 2, "Tarvik answers", period=0.002)
    return process


def row(what, value, target=""):
    print(f"{what:<58} {value:<28} {target}", flush=True)


def bench_start():
    costs = []
    for _ in range(5):
        process = start()
        costs.append(cpu_milliseconds(process.pid))
        process.terminate()
        process.wait()
    row("CPU from the start to the first answer (median of 5)", f"{statistics.median(costs):.1f} ms", "at most 60 ms")


def bench_process(inhibitions):
    taken, released = [], []
    for _ in range(4):
        began = time.monotonic()
        agent = subprocess.Popen(["claude"], executable=SLEEPER)
        taken.append(inhibitions.wait_for(True, began))
        began = time.monotonic()
        agent.kill()
        agent.wait()
        released.append(inhibitions.wait_for(False, began))
    limit = f"at most {POLL_PERIOD * 1000 + 50} ms"
    row("A process starts -> the inhibitor in logind (worst of 4)", f"{max(taken):.0f} ms", limit)
    row("It ends -> released (worst of 4)", f"{max(released):.0f} ms", limit)


def bench_hook(inhibitions):
    taken, released = [], []
    for number in range(50):
        for action, idle, times in (("UserPromptSubmit", True, taken), ("Stop", False, released)):
            payload = f'{{"session_id":"{number}","hook_event_name":"{action}"}}'.encode()
            hook = subprocess.Popen([TOOL, "hook", "--tool", "claude"], stdin=subprocess.PIPE)
            began = time.monotonic()
            hook.stdin.write(payload)
            hook.stdin.close()
            times.append(inhibitions.wait_for(idle, began))
            hook.wait()
    row("A hook event -> the inhibitor in logind (median of 50)", f"{statistics.median(taken):.1f} ms", "at most 10 ms")
    row("The turn ends -> released (median of 50)", f"{statistics.median(released):.1f} ms", "at most 10 ms")


def bench_setting(inhibitions):
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    taken, released = [], []
    agent = subprocess.Popen(["claude"], executable=SLEEPER)
    inhibitions.wait_for(True, 0)
    for _ in range(20):
        for enabled, times in ((False, released), (True, taken)):
            began = time.monotonic()
            bus.call(SETTINGS[0], SETTINGS[1], "org.freedesktop.DBus.Properties", "Set",
                     GLib.Variant("(ssv)", (SETTINGS[2], "isEnabled", GLib.Variant("b", enabled))),
                     None, Gio.DBusCallFlags.NONE, -1, None, None)
            times.append(inhibitions.wait_for(enabled, began))
    agent.kill()
    agent.wait()
    inhibitions.wait_for(False, 0)
    row("A settings change -> released (median of 20)", f"{statistics.median(released):.1f} ms", "at most 20 ms")
    row("It is taken back -> the inhibitor in logind (median)", f"{statistics.median(taken):.1f} ms", "at most 20 ms")


def bench_idle(process):
    pid = process.pid
    cpu, children, woken = cpu_milliseconds(pid), children_milliseconds(pid), wakeups(pid)
    time.sleep(IDLE_SECONDS)
    minutes = IDLE_SECONDS / 60
    scans = IDLE_SECONDS / POLL_PERIOD
    woken = wakeups(pid) - woken
    pss, dirty = memory(pid)
    row(f"Idle for {IDLE_SECONDS:.0f} s: CPU a minute, without ps", f"{(cpu_milliseconds(pid) - cpu) / minutes:.1f} ms")
    row("... CPU a minute of ps", f"{(children_milliseconds(pid) - children) / minutes:.0f} ms")
    row("... wake-ups a scan", f"{woken / scans:.2f} ({woken / minutes:.0f} a minute)", "at most 4")
    row("... PSS", f"{pss:.1f} MiB", "at most 9 MiB")
    row("... private dirty", f"{dirty:.2f} MiB", "at most 2 MiB")


def main():
    with tempfile.TemporaryDirectory() as config:
        os.environ["XDG_CONFIG_HOME"] = config
        bench_start()
        process = start()
        inhibitions = Inhibitions()
        bench_process(inhibitions)
        bench_hook(inhibitions)
        bench_setting(inhibitions)
        bench_idle(process)
        process.terminate()
        process.wait()


if __name__ == "__main__":
    main()
