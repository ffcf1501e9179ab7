#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""panel_open.py TARVIK_UI [OPENINGS]: what the panel costs. Run it inside scripts/desktop.

Prints, for a click on the tray: milliseconds to the mapped panel with a cold and with a lingering process; memory (PSS)
with the panel open and closed; CPU with the dot pulsing and with the panel closed; growth over many openings.
"""
import ctypes
import os
import pathlib
import statistics
import subprocess
import sys
import time

from gi.repository import Gio, GLib

FAKE = str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "ui" / "fake_tarvik.py")
NAME = "com.morvanta.TarvikUi"
EXPOSE_WAIT = 10
COLD_RUNS = 7
MEASURED_SECONDS = 10

x11 = ctypes.CDLL("libX11.so.6")
x11.XOpenDisplay.restype = ctypes.c_void_p
x11.XDefaultRootWindow.restype = ctypes.c_ulong


class Screen:
    """Looks at one pixel of the display where the panel's surface comes to lie."""

    def __init__(self, x, y):
        self.display = ctypes.c_void_p(x11.XOpenDisplay(None))
        self.root = ctypes.c_ulong(x11.XDefaultRootWindow(self.display))
        self.at = (x, y)
        x11.XGetImage.restype = ctypes.c_void_p
        x11.XGetPixel.restype = ctypes.c_ulong

    def pixel(self):
        image = ctypes.c_void_p(x11.XGetImage(self.display, self.root, *self.at, 1, 1, ctypes.c_ulong(0xFFFFFFFF), 2))
        value = x11.XGetPixel(image, 0, 0) & 0xFFFFFF
        x11.XFree(image)
        return value

    def shows_panel(self):
        return self.pixel() == 0xFBFBFC

    def wait(self, shown):
        deadline = time.monotonic() + EXPOSE_WAIT
        while self.shows_panel() != shown:
            if time.monotonic() > deadline:
                sys.exit(f"The panel is not {'shown' if shown else 'gone'} after {EXPOSE_WAIT} s: pixel {self.pixel():06x}.")
            time.sleep(0.0005)


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
        while not self.owned():
            time.sleep(0.0005)

    def click(self):
        self.bus.call_sync(NAME, "/com/morvanta/TarvikUi", NAME + ".Windows1", "ShowPanel",
                           GLib.Variant("(iis)", (1150, 14, "")), None, 0, -1, None)

    def stop(self):
        self.process.terminate()
        self.process.wait()

    def pss(self):
        rollup = pathlib.Path(f"/proc/{self.process.pid}/smaps_rollup").read_text(encoding="utf-8")
        return int(next(line.split()[1] for line in rollup.splitlines() if line.startswith("Pss:"))) / 1024

    def cpu_seconds(self):
        fields = pathlib.Path(f"/proc/{self.process.pid}/stat").read_text(encoding="utf-8").rpartition(")")[2].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def wakeups(self):
        return sum(int(line.split()[1]) for task in pathlib.Path(f"/proc/{self.process.pid}/task").iterdir()
                   for line in (task / "status").read_text(encoding="utf-8").splitlines()
                   if line.startswith("voluntary_ctxt_switches"))

    def cost(self):
        """CPU percent and wake-ups a second."""
        cpu, wakeups, began = self.cpu_seconds(), self.wakeups(), time.monotonic()
        time.sleep(MEASURED_SECONDS)
        seconds = time.monotonic() - began
        return 100 * (self.cpu_seconds() - cpu) / seconds, (self.wakeups() - wakeups) / seconds


def milliseconds(action):
    began = time.monotonic()
    action()
    return 1000 * (time.monotonic() - began)


def summary(values):
    return f"{statistics.median(values):.0f} ({min(values):.0f}-{max(values):.0f})"


def main(executable, openings):
    fake = subprocess.Popen(["/usr/bin/python3", FAKE, "awake"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
    fake.stdout.readline()
    screen, ui = Screen(1120, 180), Ui(executable)

    def open_panel():
        ui.click()
        screen.wait(True)

    def close_panel():
        ui.click()
        screen.wait(False)

    cold = []
    for _ in range(COLD_RUNS):
        cold.append(milliseconds(lambda: (ui.start(), open_panel())))
        close_panel()
        ui.stop()
    print(f"click to panel, process started for it: {summary(cold)} ms")

    ui.start()
    open_panel()
    time.sleep(1)
    print(f"open: {ui.pss():.1f} MB PSS; pulsing: {'%.1f %% CPU, %.0f wake-ups/s' % ui.cost()}")
    close_panel()
    time.sleep(1)
    print(f"closed: {ui.pss():.1f} MB PSS; {'%.1f %% CPU, %.1f wake-ups/s' % ui.cost()}")
    warm, sizes = [], []
    for count in range(openings):
        warm.append(milliseconds(open_panel))
        close_panel()
        if count in (openings // 10, openings - 1):
            sizes.append(ui.pss())
    print(f"click to panel, process lingering: {summary(warm)} ms")
    print(f"after {openings // 10} openings {sizes[0]:.1f} MB, after {openings} {sizes[-1]:.1f} MB")
    ui.stop()
    fake.kill()


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    main(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 200)
