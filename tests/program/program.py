# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What tests of the built programs share: starting Tarvik, and asking logind and the tool what is held."""
import base64
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from waiting import PATIENCE, eventually

TARVIK = ""
TOOL = ""
SLEEPER = ""
POLL_PERIOD = 5
DESKTOP = str(pathlib.Path(__file__).resolve().parents[2] / "scripts" / "desktop")
UPOWER = ("org.freedesktop.UPower", "/org/freedesktop/UPower", "org.freedesktop.UPower")
BATTERY = ("org.freedesktop.UPower", "/org/freedesktop/UPower/devices/battery_BAT0", "org.freedesktop.UPower.Device")
LOGIND = ("org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager")


def main():
    """Runs the tests of the calling module. Usage: NAME.py TARVIK TOOL SLEEPER [UNITTEST-ARGUMENT...]"""
    global TARVIK, TOOL, SLEEPER
    TARVIK, TOOL, SLEEPER = sys.argv[1:4]
    unittest.main(module="__main__", argv=[sys.argv[0], *sys.argv[4:]], verbosity=2)


def inhibitors():
    """(what, who, why, mode, uid, pid) of every inhibitor that logind holds."""
    answer = subprocess.run(
        ["busctl", "--json=short", "call", "org.freedesktop.login1", "/org/freedesktop/login1",
         "org.freedesktop.login1.Manager", "ListInhibitors"],
        capture_output=True, text=True, check=False,
    )
    return json.loads(answer.stdout)["data"][0] if answer.returncode == 0 else []


def ours():
    return [entry[0] for entry in inhibitors() if entry[1] == "Tarvik"]


def name_owner():
    """The connection that owns Tarvik's name on the session bus; empty without one."""
    answer = subprocess.run(
        ["busctl", "--user", "--json=short", "call", "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
         "GetNameOwner", "s", "com.morvanta.Tarvik"],
        capture_output=True, text=True, check=False,
    )
    return json.loads(answer.stdout)["data"][0] if answer.returncode == 0 else ""


def relaunch():
    """Has the running Tarvik end and start anew, and waits until it has."""
    former = name_owner()
    subprocess.run(
        ["busctl", "--user", "call", "com.morvanta.Tarvik", "/com/morvanta/Tarvik", "com.morvanta.Tarvik.LidClosed1",
         "Relaunch"], check=True)
    eventually(lambda: name_owner() not in ("", former), "Tarvik has started anew")


def is_held():
    return bool(ours())


def is_not_held():
    return not ours()


def hardware(*change):
    """Changes the virtual laptop. Whoever watches it hears of that later."""
    subprocess.run([DESKTOP, *map(str, change)], check=True)


def system_property(owner, name):
    answer = subprocess.run(["busctl", "--json=short", "get-property", *owner, name], capture_output=True, text=True, check=False)
    return json.loads(answer.stdout)["data"] if answer.returncode == 0 else None


def set_up_laptop(percent=80, is_charging=True):
    """Gives the laptop a state, with an open lid, and waits until those that Tarvik asks tell it; before, they tell the last one."""
    hardware("mains", "on" if is_charging else "off")
    hardware("battery", percent, "charging" if is_charging else "discharging")
    hardware("lid", "open")
    hardware("thermal", 40000)
    told = ((UPOWER, "OnBattery", not is_charging), (BATTERY, "Percentage", percent), (BATTERY, "State", 1 if is_charging else 2),
            (UPOWER, "LidIsClosed", False), (LOGIND, "LidClosed", False))
    for owner, name, value in told:
        eventually(lambda: system_property(owner, name) == value, f"{name} is {value}")


def windows_processes():
    """The UI processes of whatever Tarvik."""
    found = []
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if (process / "comm").read_text(encoding="utf-8") == "TarvikUi\n":
                found.append(int(process.name))
        except OSError:
            # It has just ended.
            continue
    return found


class Programs:
    """Processes that do nothing under command lines of our choice; ended together."""

    def __init__(self):
        self.running = []

    def start(self, *command_line):
        # A new session, because newer versions of Python start processes without one in a way that refuses an empty name.
        process = subprocess.Popen(command_line, executable=SLEEPER, stdin=subprocess.DEVNULL, start_new_session=True)
        self.running.append(process)
        return process

    def stop(self):
        for process in self.running:
            process.kill()
            process.wait()
        self.running.clear()


class Tarvik:
    """A running Tarvik. Its log is kept in a file."""

    def __init__(self, environment=None, wait=True):
        self.log_file = tempfile.NamedTemporaryFile(mode="r", suffix=".log")
        with open(self.log_file.name, "w", encoding="utf-8") as log:
            self.process = subprocess.Popen([TARVIK], stderr=log, env=environment)
        if wait:
            self.status()

    def log(self):
        return pathlib.Path(self.log_file.name).read_text(encoding="utf-8")

    @staticmethod
    def status():
        """What "tarvik status --json" prints, once it does not say that Tarvik is not running: one that is slow to answer is
        none to the tool."""
        def ask():
            nonlocal answer
            answer = subprocess.run([TOOL, "status", "--json"], capture_output=True, text=True, check=False)
            return answer.returncode in (0, 1)

        answer = None
        eventually(ask, "Tarvik answers")
        return json.loads(answer.stdout)

    def end(self, how=None):
        """Ends it with a signal, by default SIGTERM; its exit status and how long it took."""
        began = time.monotonic()
        if self.process.poll() is None:
            self.process.send_signal(how or signal.SIGTERM)
        status = self.process.wait(timeout=PATIENCE)
        return status, time.monotonic() - began


class TarvikTestCase(unittest.TestCase):
    """Every test has settings of its own and leaves nothing running."""

    def setUp(self):
        self.config = pathlib.Path(tempfile.mkdtemp())
        os.environ["XDG_CONFIG_HOME"] = str(self.config)
        self.settings_file = self.config / "tarvik" / "settings.json"
        self.programs = Programs()
        self.instances = []
        self.addCleanup(self.clean_up)

    def clean_up(self):
        self.programs.stop()
        for instance in self.instances:
            instance.end(signal.SIGKILL)
        shutil.rmtree(self.config, ignore_errors=True)
        eventually(is_not_held, "nothing of ours is held after the test")
        # They end when they notice; until then, the windows of the next Tarvik would take them for their own kind and leave.
        eventually(lambda: not windows_processes(), "no windows are left after the test")

    def start_tarvik(self, **options):
        instance = Tarvik(**options)
        self.instances.append(instance)
        return instance

    def write_settings(self, content):
        self.settings_file.parent.mkdir(parents=True, exist_ok=True)
        if isinstance(content, bytes):
            self.settings_file.write_bytes(content)
        else:
            self.settings_file.write_text(json.dumps(content), encoding="utf-8")

    def read_settings(self):
        return json.loads(self.settings_file.read_text(encoding="utf-8"))

    def journal(self):
        """The stored journal, oldest first, as "kind: reason"."""
        stored = self.read_settings().get("journal") if self.settings_file.exists() else None
        entries = json.loads(base64.b64decode(stored["data"])) if stored else []
        return [f"{entry['kind']}: {entry['reason']}" for entry in reversed(entries)]

    def wait_for_journal(self, *lines):
        """An entry is stored a moment after what it tells of has taken effect."""
        eventually(lambda: self.journal() == list(lines), lambda: f"{list(lines)} in the journal, which says {self.journal()}")
