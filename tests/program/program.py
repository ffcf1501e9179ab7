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

TARVIK = ""
TOOL = ""
SLEEPER = ""
POLL_PERIOD = 5
PATIENCE = 20


def main():
    """Runs the tests of the calling module. Usage: NAME.py TARVIK TOOL SLEEPER [UNITTEST-ARGUMENT...]"""
    global TARVIK, TOOL, SLEEPER
    TARVIK, TOOL, SLEEPER = sys.argv[1:4]
    unittest.main(module="__main__", argv=[sys.argv[0], *sys.argv[4:]], verbosity=2)


def eventually(condition, what, patience=PATIENCE):
    end = time.monotonic() + patience
    while not condition():
        if time.monotonic() > end:
            raise AssertionError(f"never happened: {what}")
        time.sleep(0.01)


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


def is_held():
    return bool(ours())


def is_not_held():
    return not ours()


class Programs:
    """Processes that do nothing under command lines of our choice; ended together."""

    def __init__(self):
        self.running = []

    def start(self, *command_line):
        process = subprocess.Popen(command_line, executable=SLEEPER, stdin=subprocess.DEVNULL)
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
            eventually(lambda: self.status() is not None, "Tarvik answers")

    def log(self):
        return pathlib.Path(self.log_file.name).read_text(encoding="utf-8")

    @staticmethod
    def status():
        """What "tarvik status --json" prints; None while it says that Tarvik is not running."""
        answer = subprocess.run([TOOL, "status", "--json"], capture_output=True, text=True, check=False)
        return json.loads(answer.stdout) if answer.returncode in (0, 1) else None

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
        try:
            eventually(lambda: self.journal() == list(lines), "the journal")
        except AssertionError:
            self.assertEqual(self.journal(), list(lines))
