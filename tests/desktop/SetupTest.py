#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""scripts/setup against an apt that says what it is told to: nothing is installed here."""
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
SETUP = ROOT / "scripts" / "setup"
LIST = ROOT / "packaging" / "debian-packages.txt"

# Everything of the list is installed, except what the files "missing" and "broken" name.
DPKG_QUERY = """#!/bin/bash
for package in "${@:3}"; do
    grep -qxF "$package" "$APT_STATE/missing" || echo "installed amd64 $package"
done
"""
APT_GET = """#!/bin/bash
echo "$*" >>"$APT_STATE/calls"
[[ $* != *install* ]] || : >"$APT_STATE/missing"
cat "$APT_STATE/says" 2>/dev/null
exit "$(cat "$APT_STATE/status" 2>/dev/null || echo 0)"
"""


class SetupTest(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.state = pathlib.Path(directory.name)
        self.tool("dpkg-query", DPKG_QUERY)
        self.tool("apt-get", APT_GET)
        self.tool("dpkg", "#!/bin/bash\necho amd64\n")
        self.tool("sudo", '#!/bin/bash\n[[ $1 == -n ]] && shift\nexec "$@"\n')
        self.put("missing", "")

    def tool(self, name, text):
        self.put(name, text)
        (self.state / name).chmod(0o755)

    def put(self, name, text):
        (self.state / name).write_text(text, encoding="utf-8")

    def calls(self):
        path = self.state / "calls"
        return path.read_text(encoding="utf-8").splitlines() if path.exists() else []

    def run_setup(self):
        environment = {**os.environ, "PATH": f"{self.state}:{os.environ['PATH']}", "APT_STATE": str(self.state)}
        return subprocess.run([SETUP], capture_output=True, text=True, check=False, env=environment, stdin=subprocess.DEVNULL)

    def assertFails(self, says, sentence):
        self.put("missing", "cmake\n")
        self.put("says", says)
        self.put("status", "100")
        result = self.run_setup()
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr.count("\n"), 1, result.stderr)
        self.assertRegex(result.stderr, sentence)

    def test_nothing_missing_means_no_apt(self):
        result = self.run_setup()
        self.assertEqual((result.stdout, result.stderr, result.returncode), ("setup: All packages are installed.\n", "", 0))
        self.assertEqual(self.calls(), [])

    def test_installs_exactly_what_is_missing(self):
        self.put("missing", "cmake\nxvfb\n")
        result = self.run_setup()
        self.assertEqual(result.returncode, 0, result.stderr)
        update, install = self.calls()
        self.assertTrue(update.endswith(" update"))
        self.assertTrue(install.endswith(" install --no-install-recommends cmake xvfb"), install)
        self.assertRegex(install, r"DPkg::Lock::Timeout=\d+")
        self.assertEqual(len(result.stdout.splitlines()), 3)

    def test_asks_about_every_package_of_the_list_and_nothing_else(self):
        lines = LIST.read_text(encoding="utf-8").splitlines()
        packages = [line for line in lines if line and not line.startswith("#")]
        for package in packages:
            self.assertTrue(re.fullmatch(r"[a-z0-9][a-z0-9+.-]+", package), package)
        self.assertEqual(len(packages), len(set(packages)))
        self.put("missing", "\n".join(packages))
        self.run_setup()
        self.assertEqual(self.calls()[1].split("--no-install-recommends ")[1].split(), sorted(packages))

    def test_no_network_is_one_sentence(self):
        self.assertFails("W: x\nE: Failed to fetch x  Temporary failure resolving 'archive'\nE: Some index files failed\n",
                         "check the network connection")

    def test_a_lock_that_is_never_released_is_one_sentence(self):
        self.assertFails("E: Could not get lock /var/lib/dpkg/lock-frontend. It is held by process 1 (apt)\n", "Another program")

    def test_an_unknown_package_is_one_sentence(self):
        self.assertFails("E: Unable to locate package cmake\n", "package sources lack cmake")

    def test_any_other_failure_is_one_sentence_with_apts_own(self):
        self.assertFails("Reading\nE: Something odd\nE: More\n", r"apt-get failed: E: Something odd\n")


if __name__ == "__main__":
    unittest.main()
