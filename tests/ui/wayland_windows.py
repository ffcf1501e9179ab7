# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What the tests of the built UI process on a real Wayland compositor have in common."""
import os
import tempfile

from sway import Sway
from windows import WindowsTestCase, eventually


class WaylandWindowsTestCase(WindowsTestCase):
    bar = "top"
    environment = {}

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        os.environ["XDG_RUNTIME_DIR"] = directory.name
        self.sway = Sway(self.bar)
        self.addCleanup(self.sway.close)
        self.sway.start_bar()
        edge = 0 if self.bar == "top" else -1
        eventually(lambda: not any(self.sway.rows()[edge][-30:]), "the bar is up")
        # An X server, which is not there, must not be tried.
        self.start_windows(DISPLAY=":65000", **self.environment)
