#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""panel_open_wayland.py TARVIK_UI: milliseconds from a click on the tray to the panel on the screen of a Wayland compositor.

One row each: with a process that is started for it, with one that lingers, and what it takes to look at the screen at all,
which is part of the other two.
"""
import os
import pathlib
import subprocess
import sys
import tempfile

from panel_open import CLICK, EXPOSE_WAIT, Ui, milliseconds, row, summary

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "ui"))
from offline import Offline  # noqa: E402
from sway import Sway  # noqa: E402
from waiting import eventually  # noqa: E402

RUNS = 15
# Inside the panel that the click opens, and free of text.
BLANK = "1110,180"


def pixel():
    return subprocess.run(["grim", "-g", f"{BLANK} 1x1", "-t", "ppm", "-"], check=True, capture_output=True).stdout[-3:]


def wait(is_there):
    eventually(is_there, "the screen changes", EXPOSE_WAIT, period=0)


def main(executable):
    cold, warm, looks = [], [], []
    empty = pixel()

    def open_panel(ui):
        ui.click()
        wait(lambda: pixel() != empty)

    def start_and_open(ui):
        ui.start()
        open_panel(ui)
    for _ in range(RUNS):
        looks.append(milliseconds(pixel))
        ui = Ui(executable)
        cold.append(milliseconds(lambda process=ui: start_and_open(process)))
        ui.click()
        wait(lambda: pixel() == empty)
        warm.append(milliseconds(lambda process=ui: open_panel(process)))
        ui.stop()
        wait(lambda: pixel() == empty)
    row(f"Click to the screen, process started for it (of {RUNS})", summary(cold), "at most 150 ms")
    row(f"Click to the screen, process lingering (of {RUNS})", summary(warm), "at most 30 ms")
    row("  a look at the screen, included in both", summary(looks))


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    with tempfile.TemporaryDirectory() as runtime:
        os.environ["XDG_RUNTIME_DIR"] = runtime
        session = Sway()
        tarvik = Offline(sys.argv[1])
        try:
            session.seat.move(*CLICK)
            main(sys.argv[1])
        finally:
            tarvik.end()
            session.close()
