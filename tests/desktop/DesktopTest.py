#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""scripts/desktop from outside: what passes through it, what runs inside it, and that nothing of it remains.

Usage: DesktopTest.py [DesktopTest|RemainsTest]
"""
import os
import pathlib
import shlex
import signal
import subprocess
import sys
import tempfile
import threading
import time
import unittest
import uuid

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from waiting import PATIENCE as DEADLINE, eventually

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / "scripts"
DESKTOP = str(SCRIPTS / "desktop")
SCREENSHOT = str(SCRIPTS / "screenshot")
MARK = "TARVIK_DESKTOP_TEST"
# Of a whole desktop, from its start to its end.
LIFE = 180

UPOWER = "org.freedesktop.UPower /org/freedesktop/UPower org.freedesktop.UPower"
BATTERY = "org.freedesktop.UPower /org/freedesktop/UPower/devices/battery_BAT0 org.freedesktop.UPower.Device"
LOGIND = "org.freedesktop.login1 /org/freedesktop/login1 org.freedesktop.login1.Manager"


def run(*arguments, **options):
    """Runs the virtual desktop to its end."""
    return subprocess.run([DESKTOP, *arguments], capture_output=True, text=True, timeout=LIFE, check=False, **options)


def marked_processes(mark):
    """Processes of any namespace that have inherited the mark."""
    found = []
    for directory in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if f"{MARK}={mark}\0".encode() in (directory / "environ").read_bytes():
                found.append(int(directory.name))
        except OSError:
            continue
    return found


def host_traces():
    """What a desktop could leave on the machine apart from processes."""
    mounts = pathlib.Path("/proc/self/mountinfo").read_text(encoding="utf-8")
    return mounts, sorted(os.listdir("/run")), sorted(os.listdir("/tmp/.X11-unix")), sorted(pathlib.Path("/tmp").glob(".X*-lock"))


class Running:
    """A virtual desktop in which a shell waits to be told what to do."""

    def __init__(self, *options, script="read -r _ || true"):
        self.mark = uuid.uuid4().hex
        self.process = subprocess.Popen(
            [DESKTOP, *options, "bash", "-c", f"echo ready; {script}"],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, env={**os.environ, MARK: self.mark},
        )
        self.watchdog = threading.Timer(LIFE, self.process.kill)
        self.watchdog.start()

    def __enter__(self):
        self.expect("ready")
        return self

    def __exit__(self, *_):
        self.watchdog.cancel()
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
        self.process.stdin.close()
        self.process.stdout.close()

    def expect(self, line):
        seen = self.process.stdout.readline().rstrip("\n")
        assert seen == line, f"expected {line!r}, saw {seen!r}"

    def ask(self, command):
        """The output of a command inside."""
        self.process.stdin.write(f"{command}; echo end-of-answer\n")
        self.process.stdin.flush()
        lines = []
        while (line := self.process.stdout.readline()) != "end-of-answer\n":
            assert line, f"the desktop is gone after {lines}"
            lines.append(line)
        return "".join(lines).rstrip("\n")


class DesktopTest(unittest.TestCase):
    def assertBecomes(self, desktop, command, expected, within=1.0):
        began = time.monotonic()
        while (seen := desktop.ask(command)) != expected:
            self.assertLess(time.monotonic() - began, within, f"{command}: expected {expected!r}, saw {seen!r}")

    # What passes through

    def test_passes_input_output_and_exit_status_through(self):
        result = run("bash", "-c", "cat; echo error >&2; exit 42", input="one\ntwo\n")
        self.assertEqual((result.stdout, result.stderr, result.returncode), ("one\ntwo\n", "error\n", 42))

    def test_passes_arguments_through_unchanged(self):
        result = run("--", "printf", "<%s>", "a b", "", "*", "--verbose")
        self.assertEqual(result.stdout, "<a b><><*><--verbose>")

    def test_a_command_killed_by_a_signal_reports_it(self):
        self.assertEqual(run("bash", "-c", "kill -KILL $$").returncode, 128 + signal.SIGKILL)

    def test_an_unknown_command_is_127(self):
        result = run("no-such-command")
        self.assertEqual(result.returncode, 127)
        self.assertIn("no-such-command", result.stderr)

    def test_bad_options_are_refused_with_a_sentence(self):
        for arguments in (["--nonsense", "true"], ["--size", "big", "true"], ["--user", "no-such-user", "true"],
                          ["--system", "/no-such-prefix", "true"], ["--size"], []):
            result = run(*arguments)
            self.assertEqual(result.returncode, 125, arguments)
            self.assertRegex(result.stderr, r"\Adesktop: .*\.\n")

    def test_signals_reach_the_command(self):
        # Not a shell's trap: bash loses an interrupt that arrives just when a command of its own ends.
        for name, number in (("TERM", 7), ("INT", 8), ("HUP", 9), ("QUIT", 10)):
            program = (f"import signal; signal.pthread_sigmask(signal.SIG_BLOCK, [signal.SIG{name}]); print('armed', flush=True); "
                       f"print('got', signal.sigwait([signal.SIG{name}]).name, flush=True); raise SystemExit({number})")
            with self.subTest(name), Running(script=f'exec /usr/bin/python3 -c "{program}"') as desktop:
                desktop.expect("armed")
                desktop.process.send_signal(getattr(signal, f"SIG{name}"))
                desktop.expect(f"got SIG{name}")
                self.assertEqual(desktop.process.wait(DEADLINE), number)

    # What is inside

    def test_is_up_within_five_seconds(self):
        began = time.monotonic()
        result = run("--verbose", "true")
        elapsed = time.monotonic() - began
        print(f"\n{result.stderr}start and end took {elapsed:.2f} s", flush=True)
        self.assertEqual(result.returncode, 0)
        self.assertLess(elapsed, 15)
        self.assertRegex(result.stderr, r"desktop: up after \d+\.\d\d s")

    def test_the_environment_is_that_of_a_desktop(self):
        result = run("bash", "-c", 'echo "$XDG_CURRENT_DESKTOP $XDG_SESSION_TYPE $(stat -c "%a %u" "$XDG_RUNTIME_DIR")"; '
                                   'test -S "$XDG_RUNTIME_DIR/bus" && echo "$DBUS_SESSION_BUS_ADDRESS"')
        uid = os.getuid()
        self.assertEqual(result.stdout, f"XFCE x11 700 {uid}\nunix:path=/run/user/{uid}/bus\n")

    def test_home_is_thrown_away(self):
        result = run("bash", "-c", 'for d in "$HOME" "$XDG_CONFIG_HOME" "$XDG_STATE_HOME" "$XDG_CACHE_HOME"; do touch "$d/x"; echo "$d"; done')
        self.assertEqual(result.returncode, 0, result.stderr)
        for directory in result.stdout.split():
            self.assertFalse(os.path.exists(directory), directory)

    def test_home_can_be_kept(self):
        with tempfile.TemporaryDirectory() as home:
            os.chmod(home, 0o751)
            run("--home", home, "bash", "-c", 'echo kept >"$HOME/file"; echo kept >"$XDG_CONFIG_HOME/file"')
            self.assertEqual(pathlib.Path(home, "file").read_text(encoding="utf-8"), "kept\n")
            self.assertEqual(os.stat(home).st_mode & 0o777, 0o751)
            self.assertEqual(pathlib.Path(home, ".config/file").read_text(encoding="utf-8"), "kept\n")

    def test_inhibitors_are_listed_and_released(self):
        interpreter = "while read -r line; do eval \"$line\"; done"
        with Running(script=interpreter) as desktop:
            self.assertIn("tester", desktop.ask("systemd-inhibit --what=idle --mode=block --who=tester systemd-inhibit --list --no-legend"))
            # logind may answer others before it notices that the holder has ended.
            self.assertBecomes(desktop, "systemd-inhibit --list --no-legend | grep -c tester", "0")

    def test_another_user_may_take_every_inhibitor(self):
        result = run("--user", "nobody", "bash", "-c", "id -un; for what in idle sleep shutdown handle-lid-switch; do "
                                                       "systemd-inhibit --what=$what --mode=block echo $what || exit; done")
        self.assertEqual(result.stdout.split(), ["nobody", "idle", "sleep", "shutdown", "handle-lid-switch"], result.stderr)

    def test_session_services_are_there(self):
        script = ("busctl --user --acquired --no-legend list | grep -o '^org.freedesktop.Notifications'; "
                  "busctl --user get-property org.kde.StatusNotifierWatcher /StatusNotifierWatcher "
                  "org.kde.StatusNotifierWatcher IsStatusNotifierHostRegistered; "
                  "xprop -root _NET_SUPPORTING_WM_CHECK")
        lines = run("bash", "-c", script).stdout.splitlines()
        self.assertEqual(lines[:2], ["org.freedesktop.Notifications", "b true"])
        self.assertRegex(lines[2], r"window id # 0x[0-9a-f]+")

    def test_without_panel_there_is_no_tray(self):
        result = run("--no-panel", "bash", "-c", "busctl --user list --no-legend | grep -c StatusNotifierWatcher")
        self.assertEqual(result.stdout, "0\n")

    def test_the_screen_has_the_size_asked_for_and_can_be_pictured(self):
        with tempfile.TemporaryDirectory() as directory:
            picture = os.path.join(directory, "shot.png")
            self.assertEqual(run("--size", "1024x768", SCREENSHOT, picture).returncode, 0)
            header = pathlib.Path(picture).read_bytes()[:24]
        self.assertEqual(header[:8], b"\x89PNG\r\n\x1a\n")
        self.assertEqual((int.from_bytes(header[16:20]), int.from_bytes(header[20:24])), (1024, 768))

    def test_a_desktop_computer_has_no_battery_and_no_lid(self):
        result = run("bash", "-c", f"busctl get-property {UPOWER} OnBattery LidIsPresent; ls /sys/class/power_supply")
        self.assertEqual(result.stdout, "b false\nb false\n")

    def test_it_knows_the_system_services_of_a_prefix_as_well(self):
        interpreter = "while read -r line; do eval \"$line\"; done"
        list_names = "busctl --no-legend list --activatable | cut -d' ' -f1"
        with tempfile.TemporaryDirectory() as prefix:
            files = {
                "dbus-1/system-services/org.example.Probe.service": "[D-BUS Service]\nName=org.example.Probe\nUser=root\nExec=/bin/true\n",
                "polkit-1/actions/org.example.probe.policy": '<policyconfig><action id="org.example.probe"><description>Probe</description>'
                "<defaults><allow_any>yes</allow_any></defaults></action></policyconfig>",
            }
            for name, text in files.items():
                path = pathlib.Path(prefix, "share", name)
                path.parent.mkdir(parents=True)
                path.write_text(text, encoding="utf-8")
            with Running("--no-panel", "--system", prefix, script=interpreter) as desktop:
                names = desktop.ask(list_names).split("\n")
                self.assertIn("org.example.Probe", names)
                self.assertIn("org.freedesktop.UPower", names)
                self.assertEqual(desktop.ask("pkaction --action-id org.example.probe"), "org.example.probe")
            for name in files:
                self.assertFalse(pathlib.Path("/usr/share", name).exists(), name)
        with Running("--no-panel", script=interpreter) as desktop:
            self.assertNotIn("org.example.Probe", desktop.ask(list_names))

    def test_a_service_that_fails_is_named_with_the_end_of_its_log(self):
        with tempfile.TemporaryDirectory() as directory:
            broken = pathlib.Path(directory, "xfwm4")
            broken.write_text("#!/bin/sh\necho cannot manage >&2\nexit 1\n", encoding="utf-8")
            broken.chmod(0o755)
            result = run("true", env={**os.environ, "PATH": f"{directory}:{os.environ['PATH']}"})
        self.assertEqual(result.returncode, 125)
        self.assertIn("desktop: The window-manager ended while it was starting; its log ends with:", result.stderr)
        self.assertIn("cannot manage", result.stderr)

    # Several

    def test_two_at_once_do_not_see_each_other(self):
        interpreter = "while read -r line; do eval \"$line\"; done"
        with Running(script=interpreter) as first, Running(script=interpreter) as second:
            first.ask("systemd-inhibit --what=idle --who=first sleep 1000 & until systemd-inhibit --list | grep -q first; do :; done")
            self.assertNotIn("first", second.ask("systemd-inhibit --list"))
            first.ask("xprop -root -f WHO 8s -set WHO first")
            self.assertIn("no such atom", second.ask("xprop -root WHO"))

    def test_one_inside_another_works(self):
        result = run(DESKTOP, "bash", "-c", "systemd-inhibit --list --no-legend | wc -l")
        self.assertEqual((result.stdout, result.returncode), ("1\n", 0), result.stderr)

    # The laptop

    def laptop(self):
        return Running("--laptop", script="while read -r line; do eval \"$line\"; done")

    def test_mains_and_battery_reach_upower_and_logind(self):
        with self.laptop() as laptop:
            self.assertBecomes(laptop, f"busctl get-property {UPOWER} OnBattery", "b false")
            laptop.ask(f"{DESKTOP} mains off")
            self.assertBecomes(laptop, f"busctl get-property {UPOWER} OnBattery", "b true")
            self.assertBecomes(laptop, f"busctl get-property {LOGIND} OnExternalPower", "b false")
            laptop.ask(f"{DESKTOP} battery 17")
            self.assertBecomes(laptop, f"busctl get-property {BATTERY} Percentage State", "d 17\nu 2")
            laptop.ask(f"{DESKTOP} mains on")
            self.assertBecomes(laptop, f"busctl get-property {BATTERY} Percentage State", "d 17\nu 1")
            self.assertBecomes(laptop, f"busctl get-property {UPOWER} OnBattery", "b false")
            laptop.ask(f"{DESKTOP} battery 100 full")
            self.assertBecomes(laptop, f"busctl get-property {BATTERY} Percentage State", "d 100\nu 4")

    def test_the_lid_reaches_upower_and_logind(self):
        with self.laptop() as laptop:
            self.assertEqual(laptop.ask(f"busctl get-property {UPOWER} LidIsPresent"), "b true")
            for word, closed in (("close", "b true"), ("open", "b false"), ("close", "b true")):
                laptop.ask(f"{DESKTOP} lid {word}")
                self.assertBecomes(laptop, f"busctl get-property {UPOWER} LidIsClosed", closed)
                self.assertBecomes(laptop, f"busctl get-property {LOGIND} LidClosed", closed)

    def test_sysfs_shows_the_same_laptop(self):
        with self.laptop() as laptop:
            laptop.ask(f"{DESKTOP} mains off; {DESKTOP} battery 33")
            self.assertEqual(laptop.ask("cd /sys/class/power_supply; cat AC/online BAT0/capacity BAT0/status BAT0/type"),
                             "0\n33\nDischarging\nBattery")
            zone = "cd /sys/class/thermal/thermal_zone0; "
            self.assertEqual(laptop.ask(zone + "cat mode trip_point_*_type; cat trip_point_*_temp"),
                             "enabled\ncritical\nhot\npassive\n105000\n100000\n90000")
            self.assertEqual(laptop.ask(zone + "cat temp cdev0/cur_state cdev0_trip_point"), "45000\n0\n2")
            laptop.ask(f"{DESKTOP} thermal 96500")
            self.assertEqual(laptop.ask(zone + "cat temp cdev0/cur_state"), "96500\n5")

    def test_wrong_hardware_commands_are_refused_with_a_sentence(self):
        with self.laptop() as laptop:
            for words in ("battery 101", "battery much", "mains maybe", "lid", "thermal hot", "battery 5 empty"):
                answer = laptop.ask(f"{shlex.quote(DESKTOP)} {words} 2>&1; echo $?")
                self.assertRegex(answer, r"\Adesktop: .*\.\n1\Z", words)

    def test_hardware_commands_need_a_laptop(self):
        for result in (run("lid", "close"), run(DESKTOP, "lid", "close")):
            self.assertEqual(result.returncode, 125)
            self.assertIn("works only inside a virtual laptop", result.stderr)


class RemainsTest(unittest.TestCase):
    """Looks at the whole machine: nothing else is to run meanwhile."""

    @classmethod
    def setUpClass(cls):
        os.makedirs("/tmp/.X11-unix", mode=0o1777, exist_ok=True)

    def assertGone(self, mark):
        eventually(lambda: not marked_processes(mark), lambda: f"all are gone, but {marked_processes(mark)}")

    def test_nothing_remains_after_a_command_that_leaves_daemons(self):
        before = host_traces()
        with Running(script="setsid sleep 1000 >/dev/null 2>&1 & disown") as desktop:
            self.assertEqual(desktop.process.wait(DEADLINE), 0)
            self.assertGone(desktop.mark)
        self.assertEqual(host_traces(), before)

    def test_nothing_remains_after_being_killed(self):
        for killer in (signal.SIGTERM, signal.SIGKILL):
            before = host_traces()
            with self.subTest(killer.name), Running("--laptop") as desktop:
                self.assertGreater(len(marked_processes(desktop.mark)), 8)
                desktop.process.send_signal(killer)
                desktop.process.wait(DEADLINE)
                self.assertGone(desktop.mark)
            self.assertEqual(host_traces(), before)

    def test_nothing_remains_after_being_killed_while_starting(self):
        mark = uuid.uuid4().hex
        with subprocess.Popen([DESKTOP, "sleep", "1000"], env={**os.environ, MARK: mark}) as process:
            eventually(lambda: len(marked_processes(mark)) >= 6, "its first processes are there", period=0)
            process.terminate()
            self.assertEqual(process.wait(DEADLINE), 128 + signal.SIGTERM)
            self.assertGone(mark)


if __name__ == "__main__":
    unittest.main()
