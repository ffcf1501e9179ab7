#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""Tarvik as a service of the user's own systemd, a real one: started again when it was killed, and not when it was not."""
import contextlib
import os
import pathlib
import signal
import subprocess
import tempfile
import time
import unittest.mock

import program
from program import TarvikTestCase, eventually, is_held, is_not_held

SYSTEMD = "/usr/lib/systemd/systemd"
TARVIK = ("com.morvanta.Tarvik", "/com/morvanta/Tarvik")
# Seconds within which a killed Tarvik must be back.
LONGEST_ABSENCE = 2
# Starts in a row after which systemd gives up.
START_LIMIT = 4


LOGIN_UNIT = "tarvik-at-login.service"


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout.strip()


def tarvik_process():
    """Of whoever owns the name on the bus; 0 without one."""
    answer = output("busctl", "--user", "call", "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                    "GetConnectionUnixProcessID", "s", TARVIK[0])
    return int(answer.removeprefix("u ")) if answer else 0


def units():
    """The names of the services, those that have failed too."""
    return [line.split()[0] for line in output("systemctl", "--user", "--all", "--plain", "--no-legend", "list-units",
                                              "app-com.morvanta.Tarvik@*").splitlines()]


def environment_of(process):
    lines = pathlib.Path(f"/proc/{process}/environ").read_bytes().decode().split("\0")
    return dict(line.split("=", 1) for line in lines if "=" in line)


class SupervisionTest(TarvikTestCase):
    def setUp(self):
        super().setUp()
        # It starts a session bus of its own there.
        runtime = tempfile.TemporaryDirectory()
        self.addCleanup(runtime.cleanup)
        session = unittest.mock.patch.dict(
            os.environ, XDG_RUNTIME_DIR=runtime.name, DBUS_SESSION_BUS_ADDRESS=f"unix:path={runtime.name}/bus")
        session.start()
        self.addCleanup(session.stop)
        # Its environment is that of an earlier session.
        environment = {**os.environ, "DISPLAY": ":99", "WAYLAND_DISPLAY": "wayland-9"}
        self.systemd = subprocess.Popen([SYSTEMD, "--user", "--unit=basic.target"], env=environment, stderr=subprocess.DEVNULL)
        self.addCleanup(self.end_systemd)
        eventually(lambda: output("busctl", "--user", "status", "org.freedesktop.systemd1"), "systemd is on the bus")

    def end_systemd(self):
        """Its own way to end is not ours to wait for: outside a booted machine it may take its time."""
        output("systemctl", "--user", "stop", "app-com.morvanta.Tarvik@*")
        systemd = self.systemd.pid
        services = pathlib.Path(f"/proc/{systemd}/task/{systemd}/children").read_text(encoding="utf-8").split()
        self.systemd.kill()
        self.systemd.wait(program.PATIENCE)
        for service in services:
            with contextlib.suppress(ProcessLookupError):
                os.kill(int(service), signal.SIGKILL)

    def start(self, *arguments, **variables):
        """As a desktop does; the process that was started has ended then."""
        with tempfile.TemporaryFile("w+") as log:
            started = subprocess.Popen([program.TARVIK, *arguments], env={**os.environ, **variables}, stdin=subprocess.DEVNULL, stderr=log,
                                       start_new_session=True)
            self.addCleanup(started.kill)
            try:
                status = started.wait(program.PATIENCE)
            except subprocess.TimeoutExpired:
                status = "still there"
            log.seek(0)
            self.assertEqual((status, log.read()), (0, ""))
        return tarvik_process()

    @staticmethod
    def ended_well(unit):
        told = output("systemctl", "--user", "show", "--property=ActiveState,Result,ExecMainExitTimestampMonotonic", unit)
        facts = dict(line.split("=") for line in told.splitlines())
        return (facts["ActiveState"], facts["Result"]) == ("inactive", "success") and facts["ExecMainExitTimestampMonotonic"] != "0"

    def ask_for_it_at_login(self):
        """The entry that the switch in the settings makes."""
        entry = self.config / "autostart" / "com.morvanta.Tarvik.desktop"
        entry.parent.mkdir(exist_ok=True)
        entry.write_text(f"[Desktop Entry]\nType=Application\nExec={program.TARVIK} --at-login\n", encoding="utf-8")
        return entry

    def enter_session(self):
        session = self.config / "systemd" / "user" / "desktop.service"
        session.parent.mkdir(parents=True, exist_ok=True)
        session.write_text("[Unit]\nBindsTo=graphical-session.target\nBefore=graphical-session.target\n"
                           "[Service]\nExecStart=/usr/bin/sleep infinity\n", encoding="utf-8")
        output("systemctl", "--user", "daemon-reload")
        output("systemctl", "--user", "start", "desktop.service")
        self.assertEqual(output("systemctl", "--user", "is-active", "graphical-session.target"), "active")

    @staticmethod
    def leave_session():
        output("systemctl", "--user", "stop", "desktop.service")

    def kill(self, process):
        """The process that comes instead, and after how many seconds it was there."""
        began = time.monotonic()
        os.kill(process, signal.SIGKILL)
        eventually(lambda: tarvik_process() not in (0, process), "Tarvik is back")
        return tarvik_process(), time.monotonic() - began

    def test_a_killed_tarvik_is_back_and_keeps_awake_again(self):
        self.programs.start("claude")
        process = self.start()
        eventually(is_held, "it keeps awake")
        process, absence = self.kill(process)
        print(f"back after {absence:.2f} s", flush=True)
        self.assertLess(absence, LONGEST_ABSENCE)
        eventually(is_held, "it keeps awake again")
        self.assertEqual(tarvik_process(), process)

    def test_it_comes_back_into_its_own_session(self):
        process = self.start(TARVIK_TEST_VARIABLE="50 % of \"$HOME\"")
        for _ in range(2):
            seen = environment_of(process)
            self.assertEqual(seen["DISPLAY"], os.environ["DISPLAY"])
            self.assertEqual(seen["TARVIK_TEST_VARIABLE"], "50 % of \"$HOME\"")
            self.assertNotIn("WAYLAND_DISPLAY", seen)
            process, _ = self.kill(process)

    def test_what_is_killed_again_and_again_is_given_up(self):
        process = self.start()
        for _ in range(START_LIMIT - 1):
            process, _ = self.kill(process)
        os.kill(process, signal.SIGKILL)
        eventually(lambda: not units(), "systemd has given it up")
        self.assertEqual(tarvik_process(), 0)
        # By hand it starts all the same.
        self.assertNotEqual(self.start(), 0)

    def test_what_quits_stays_away(self):
        self.start()
        # It has its name a moment before it listens.
        program.Tarvik.status()
        output("busctl", "--user", "call", *TARVIK, "com.morvanta.Tarvik.Status1", "Quit")
        eventually(lambda: not units(), "its service has ended")
        self.assertEqual(tarvik_process(), 0)
        eventually(is_not_held, "nothing is held")

    def test_a_relaunch_is_no_end_to_its_service(self):
        process = self.start()
        services = units()
        program.Tarvik.status()
        program.relaunch()
        program.Tarvik.status()
        self.assertEqual(tarvik_process(), process)
        self.assertEqual(units(), services)

    def test_a_second_start_leaves_the_first_alone(self):
        process = self.start()
        services = units()
        self.assertEqual(len(services), 1)
        self.assertEqual(self.start(), process)
        self.assertEqual(units(), services)

    def test_who_did_not_ask_for_it_gets_none_at_login(self):
        self.assertEqual(self.start("--at-login"), 0)
        entry = self.ask_for_it_at_login()
        self.assertNotEqual(self.start("--at-login"), 0)
        output("systemctl", "--user", "stop", *units())
        entry.write_text(entry.read_text(encoding="utf-8") + "Hidden=true\n", encoding="utf-8")
        self.assertEqual(self.start("--at-login"), 0)

    def test_two_starts_at_login_are_one_tarvik_without_a_window(self):
        self.ask_for_it_at_login()
        process = self.start("--at-login")
        program.Tarvik.status()
        services = units()
        self.assertEqual(self.start("--at-login"), process)
        self.assertEqual(units(), services)
        program.Tarvik.status()
        self.assertEqual(program.windows_processes(), [])

    def test_what_was_started_at_login_comes_back_whatever_is_to_happen_at_the_next(self):
        entry = self.ask_for_it_at_login()
        process = self.start("--at-login")
        entry.unlink()
        self.assertNotIn(self.kill(process)[0], (0, process))

    def test_a_session_without_autostart_starts_it_for_those_who_asked(self):
        unit = pathlib.Path(program.TARVIK).parents[4] / "lib" / "systemd" / "user" / LOGIN_UNIT
        output("systemctl", "--user", "enable", str(unit))
        self.enter_session()
        eventually(lambda: self.ended_well(LOGIN_UNIT), "the unit has ended")
        self.assertEqual(tarvik_process(), 0)
        self.leave_session()
        self.ask_for_it_at_login()
        self.enter_session()
        eventually(tarvik_process, "it runs")
        eventually(lambda: self.ended_well(LOGIN_UNIT), "the unit has ended")
        self.assertEqual(len(units()), 1)
        self.leave_session()
        eventually(lambda: not units(), "its service has ended")

    def test_a_session_that_ends_ends_it(self):
        self.enter_session()
        self.start()
        self.leave_session()
        eventually(lambda: not units(), "its service has ended")
        self.assertEqual(tarvik_process(), 0)


if __name__ == "__main__":
    program.main()
