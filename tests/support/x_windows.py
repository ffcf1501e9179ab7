# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""Which windows are to be seen on the X display."""
import subprocess
import time

PATIENCE = 30


def x_windows(*criteria):
    """The visible windows that xdotool(1) finds by these options of its search."""
    end = time.monotonic() + PATIENCE
    while True:
        found = subprocess.run(["xdotool", "search", "--onlyvisible", *criteria], capture_output=True, text=True, check=False, timeout=PATIENCE)
        # A search ends early, and says so, when any window goes meanwhile.
        if not found.stderr:
            return found.stdout.split()
        assert time.monotonic() < end, f"xdotool cannot search: {found.stderr}"
