#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What CI runs, with tests that end as they are told to."""
import pathlib
import shutil
import subprocess
import tempfile
import unittest

CI = pathlib.Path(__file__).resolve().parents[2] / ".ci" / "run"
# Like ./test: prints what the file of the system's name says and ends with its first word.
TEST = """#!/bin/bash
read -r status text <"${SYSTEM:-host}"
echo "$text"
exit "$status"
"""


class CiTest(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.repository = pathlib.Path(directory.name)
        for folder in (".ci", "scripts"):
            (self.repository / folder).mkdir()
        shutil.copy(CI, self.repository / ".ci" / "run")
        self.script("test", TEST)
        self.script("scripts/setup", "#!/bin/sh\n")
        self.script("scripts/build", "#!/bin/sh\n")
        self.script("scripts/root", '#!/bin/sh\nexport SYSTEM="$1"\nshift\nexec "$@"\n')
        self.say("host", "0 100% tests passed, 0 tests failed out of 200")
        self.say("trixie", "0 100% tests passed, 0 tests failed out of 199")

    def script(self, name, text):
        (self.repository / name).write_text(text, encoding="utf-8")
        (self.repository / name).chmod(0o755)

    def say(self, system, text):
        (self.repository / system).write_text(text + "\n", encoding="utf-8")

    def assertEnds(self, status, line):
        result = subprocess.run([self.repository / ".ci" / "run"], capture_output=True, text=True, check=False)
        self.assertEqual((result.returncode, result.stdout.splitlines()[-1], result.stderr), (status, line, ""))

    def test_counts_the_tests_of_both_systems(self):
        self.assertEnds(0, "100% tests passed, 0 tests failed out of 399")

    def test_fails_when_tests_fail_here(self):
        self.say("host", "8 98% tests passed, 3 tests failed out of 200")
        self.assertEnds(1, "99% tests passed, 3 tests failed out of 399")

    def test_fails_when_tests_fail_there(self):
        self.say("trixie", "8 99% tests passed, 1 tests failed out of 199")
        self.assertEnds(1, "99% tests passed, 1 tests failed out of 399")

    def test_fails_when_the_tests_of_one_system_do_not_run(self):
        self.say("trixie", "1 Compiling failed")
        self.assertEnds(1, "100% tests passed, 0 tests failed out of 200")

    def test_fails_when_no_tests_are_counted(self):
        self.say("host", "0 nothing")
        self.say("trixie", "0 nothing")
        self.assertEnds(1, "0% tests passed, 0 tests failed out of 0")

    def test_fails_when_the_other_system_cannot_be_made(self):
        self.script("scripts/root", "#!/bin/sh\nexit 125\n")
        self.assertEnds(1, "100% tests passed, 0 tests failed out of 200")


if __name__ == "__main__":
    unittest.main()
