#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""panel_open.py TARVIK_UI [OPENINGS]: what the panel costs. Run it inside scripts/desktop.

One row each, with what it should be: milliseconds from a click on the tray to the first frame, with a process that is
started for it and with one that lingers; CPU of the open panel with the dot pulsing and with an idle one, the X server's
apart; CPU and wake-ups of the closed one; memory (PSS) open and closed, and how the process's own grows over many
openings.
"""
import ctypes
import pathlib
import statistics
import subprocess
import sys
import time

from gi.repository import Gio, GLib

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "tests" / "support"))
from offline import Offline  # noqa: E402
from waiting import eventually  # noqa: E402

NAME = "com.morvanta.TarvikUi"
EXPOSE_WAIT = 10
# What is measured is as exact as this.
LOOK_PERIOD = 0.0005
COLD_RUNS = 9
MEASURED_SECONDS = 20
CLICK = (1150, 14)
# Inside the panel that this click opens, and free of text.
BLANK = (1120, 180)
SURFACE = 0xFBFBFC

x11 = ctypes.CDLL("libX11.so.6")
x11.XOpenDisplay.restype = ctypes.c_void_p
x11.XDefaultRootWindow.restype = ctypes.c_ulong
x11.XGetImage.restype = ctypes.c_void_p
x11.XGetPixel.restype = ctypes.c_ulong


class Screen:
    """Looks at one pixel of the display where the panel's surface comes to lie."""

    def __init__(self):
        self.display = ctypes.c_void_p(x11.XOpenDisplay(None))
        self.root = ctypes.c_ulong(x11.XDefaultRootWindow(self.display))

    def pixel(self):
        image = ctypes.c_void_p(x11.XGetImage(self.display, self.root, *BLANK, 1, 1, ctypes.c_ulong(0xFFFFFFFF), 2))
        value = x11.XGetPixel(image, 0, 0) & 0xFFFFFF
        x11.XFree(image)
        return value

    def wait(self, shown):
        eventually(lambda: (self.pixel() == SURFACE) == shown,
                   lambda: f"the panel is {'shown' if shown else 'gone'}: pixel {self.pixel():06x}", EXPOSE_WAIT, LOOK_PERIOD)


class Process:
    """What one process has used so far."""

    def __init__(self, pid):
        self.directory = pathlib.Path(f"/proc/{pid}")

    def memory(self, kind):
        """Megabytes of one kind of the memory's roll-up."""
        rollup = (self.directory / "smaps_rollup").read_text(encoding="utf-8")
        return int(next(line.split()[1] for line in rollup.splitlines() if line.startswith(f"{kind}:"))) / 1024

    def pss(self):
        return self.memory("Pss")

    def own(self):
        """What no other program can ever share: other Qt programs that come and go do not change it."""
        return self.memory("Private_Dirty")

    def cpu_seconds(self):
        # Of all threads, in nanoseconds; the ticks of "stat" are too coarse.
        return sum(int((task / "schedstat").read_text(encoding="utf-8").split()[0]) for task in (self.directory / "task").iterdir()) / 1e9

    def wakeups(self):
        return sum(int(line.split()[1]) for task in (self.directory / "task").iterdir()
                   for line in (task / "status").read_text(encoding="utf-8").splitlines()
                   if line.startswith("voluntary_ctxt_switches"))


class Ui:
    def __init__(self, executable):
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.executable = executable
        self.process = None

    def owned(self):
        return self.bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "NameHasOwner",
                                  GLib.Variant("(s)", (NAME,)), None, 0, -1, None).unpack()[0]

    def start(self):
        self.process = subprocess.Popen([self.executable])
        eventually(self.owned, "the UI process is up", period=LOOK_PERIOD)

    def click(self):
        self.bus.call_sync(NAME, "/com/morvanta/TarvikUi", NAME + ".Windows1", "ShowPanel",
                           GLib.Variant("(iis)", (*CLICK, "")), None, 0, -1, None)

    def stop(self):
        self.process.terminate()
        self.process.wait()


def row(what, value, target=""):
    print(f"{what:<58} {value:<28} {target}", flush=True)


def milliseconds(action):
    began = time.monotonic()
    action()
    return 1000 * (time.monotonic() - began)


def summary(values):
    return f"{statistics.median(values):.0f} ms ({min(values):.0f}-{max(values):.0f})"


def settle(process):
    """Until it has had nothing to do for a second."""
    while True:
        before = process.wakeups()
        time.sleep(1)
        if process.wakeups() == before:
            return


def cost(*processes):
    """Percent of one core and wake-ups a second of each."""
    before = [(process.cpu_seconds(), process.wakeups()) for process in processes]
    began = time.monotonic()
    time.sleep(MEASURED_SECONDS)
    seconds = time.monotonic() - began
    return [(100 * (process.cpu_seconds() - cpu) / seconds, (process.wakeups() - wakeups) / seconds)
            for process, (cpu, wakeups) in zip(processes, before)]


def main(executable, openings):
    tarvik = Offline(executable)
    screen, ui = Screen(), Ui(executable)
    server = Process(int(subprocess.run(["pgrep", "-x", "Xvfb"], capture_output=True, text=True, check=True).stdout))

    def open_panel():
        ui.click()
        screen.wait(True)

    def close_panel():
        ui.click()
        screen.wait(False)

    cold, used = [], []
    for _ in range(COLD_RUNS):
        cold.append(milliseconds(lambda: (ui.start(), open_panel())))
        used.append(1000 * Process(ui.process.pid).cpu_seconds())
        close_panel()
        ui.stop()
    row(f"Click to first frame, process started for it (of {COLD_RUNS})", summary(cold), "at most 150 ms")
    row("  CPU of the process until then", summary(used))

    ui.start()
    process = Process(ui.process.pid)
    open_panel()
    # The first seconds are those of opening.
    time.sleep(2)
    (cpu, wakeups), (server_cpu, _) = cost(process, server)
    row("Open, the dot pulsing: CPU", f"{cpu:.1f} %, {wakeups:.0f} wake-ups/s", "at most 2 %")
    row("  the X server meanwhile", f"{server_cpu:.1f} %")
    row("Open: PSS", f"{process.pss():.1f} MB")
    tarvik.enter("asleep")
    settle(process)
    (cpu, wakeups), (server_cpu, _) = cost(process, server)
    row("Open, nothing moving: CPU", f"{cpu:.2f} %, {wakeups:.1f} wake-ups/s", "none")
    tarvik.enter("awake")
    close_panel()
    settle(process)
    (cpu, wakeups), (server_cpu, _) = cost(process, server)
    row("Closed: CPU", f"{cpu:.2f} %, {wakeups:.1f} wake-ups/s", "none")
    row("Closed: PSS", f"{process.pss():.1f} MB")

    warm, sizes = [], []
    for count in range(1, openings + 1):
        warm.append(milliseconds(open_panel))
        close_panel()
        if count in (openings // 10, openings):
            sizes.append(process.own())
    row(f"Click to first frame, process lingering (of {openings})", summary(warm), "at most 30 ms")
    row(f"Own memory after {openings // 10} openings, and after {openings}", f"{sizes[0]:.2f} MB, {sizes[1]:.2f} MB", "the same")
    ui.stop()
    tarvik.end()


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    main(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 1000)
