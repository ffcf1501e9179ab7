# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What the tests of the built UI process have in common: the process itself and the stand-in that it observes."""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from offline import Offline
from waiting import PATIENCE as DEADLINE, eventually

UI = os.environ["TARVIK_UI"]
FOLDER = pathlib.Path(__file__).parent
NAME = "com.morvanta.TarvikUi"


def is_on_bus(process):
    """Whether it is this UI process that has the name."""
    owner = subprocess.run(["busctl", "--user", "call", "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                            "GetConnectionUnixProcessID", "s", NAME], capture_output=True, text=True, check=False).stdout
    return owner == f"u {process.pid}\n"


def x_focus():
    """The window that the X server sends keys to."""
    return subprocess.run(["xdotool", "getwindowfocus", "-f"], capture_output=True, text=True, check=False, timeout=DEADLINE).stdout.strip()


class WindowsTestCase(unittest.TestCase):
    def start(self, *command, **options):
        process = subprocess.Popen(command, **options)

        def end():
            process.kill()
            process.wait()
            for stream in (process.stdin, process.stdout):
                if stream:
                    stream.close()
        self.addCleanup(end)
        return process

    def start_fake(self, script, *arguments):
        """Starts one of the stand-ins of this folder and waits until it is there."""
        fake = self.start("/usr/bin/python3", str(FOLDER / script), *arguments, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.assertEqual(fake.stdout.readline(), "ready\n")
        return fake

    def start_windows(self, **environment):
        """Starts a Tarvik to observe and the UI process, as `tarvik` and `ui`, whose log is kept in `ui_log`."""
        self.tarvik = Offline(UI)
        self.addCleanup(self.tarvik.end)
        log = tempfile.NamedTemporaryFile(mode="w")
        self.ui_log = pathlib.Path(log.name)
        self.addCleanup(log.close)
        self.addCleanup(lambda: print(self.ui_log.read_text(encoding="utf-8"), end="", file=sys.stderr))
        self.ui = self.start(UI, env={**os.environ, **environment}, stderr=log)
        eventually(lambda: is_on_bus(self.ui), "the UI process is up")

    def show(self, method, *arguments):
        subprocess.run(["busctl", "--user", "call", NAME, "/com/morvanta/TarvikUi", f"{NAME}.Windows1", method, *arguments], check=True,
                       stdout=subprocess.DEVNULL, timeout=DEADLINE)
