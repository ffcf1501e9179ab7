#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""scripts/stall from outside: who stands still, and what passes through it."""
import pathlib
import subprocess
import unittest

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / "scripts"
STALL = str(SCRIPTS / "stall")
LIFE = 180
# Ends with 7 when it has stood still.
SENTRY = """
import time
last = time.monotonic()
while (now := time.monotonic()) < last + 0.3:
    last = now
    time.sleep(0.01)
raise SystemExit(7)
"""


def run(*arguments, **options):
    return subprocess.run([STALL, *arguments], capture_output=True, text=True, timeout=LIFE, check=False, **options)


class StallTest(unittest.TestCase):
    def test_the_command_stands_still(self):
        self.assertEqual(run("--longest", "2", "/usr/bin/python3", "-c", SENTRY).returncode, 7)

    def test_the_services_of_a_virtual_desktop_stand_still(self):
        result = run("--longest", "0.1", str(SCRIPTS / "desktop"), "sleep", "6")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertRegex(result.stderr, "Xvfb|dbus-daemon|polkitd|systemd-logind|upowerd|xfce4-panel|xfwm4|xfce4-notifyd")

    def test_input_output_and_exit_status_pass_through(self):
        result = run("sh", "-c", "cat; exit 5", input="text")
        self.assertEqual((result.stdout, result.returncode), ("text", 5))
        self.assertRegex(result.stderr, r"\Astall: seed \d+: .+\n\Z")

    def test_a_command_killed_by_a_signal_reports_it(self):
        self.assertEqual(run("sh", "-c", "kill -KILL $$").returncode, 137)

    def test_a_termination_ends_the_command_first(self):
        with subprocess.Popen([STALL, "sh", "-c", "echo $$; exec sleep 60"], stdout=subprocess.PIPE, text=True) as stall:
            command = int(stall.stdout.readline())
            stall.terminate()
            self.assertEqual(stall.wait(LIFE), 143)
        self.assertFalse(pathlib.Path(f"/proc/{command}").exists())

    def test_what_somebody_else_has_stopped_stays_so(self):
        script = """(sleep 1000 & kill -STOP $!; for i in 1 2 3 4 5 6 7 8 9 10; do sleep 0.2; grep -q '^State:.T' /proc/$!/status || exit 9
                    done; kill -KILL $!)"""
        self.assertEqual(run("--longest", "0.05", "bash", "-c", script).returncode, 0)

    def test_bad_options_are_refused(self):
        for arguments in ([], ["--longest", "0", "true"], ["--longest", "long", "true"], ["--nonsense", "true"]):
            self.assertEqual(run(*arguments).returncode, 2, arguments)

    def test_an_unknown_command_is_refused_with_a_sentence(self):
        result = run("no-such-command")
        self.assertEqual((result.returncode, result.stderr), (1, "stall: no-such-command: No such file or directory\n"))


if __name__ == "__main__":
    unittest.main()
