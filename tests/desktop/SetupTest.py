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
LISTS = ROOT / "packaging" / "debian-packages"

# Everything of the lists is installed, except what the file "missing" names.
DPKG_QUERY = """#!/bin/bash
for package in "${@:3}"; do
    grep -qxF "$package" "$APT_STATE/missing" || echo "installed amd64 $package"
done
"""
# Everything exists, except what the file "unknown" names, of which other packages speak.
APT_CACHE = """#!/bin/bash
for package in "${@:2}"; do
    candidate=1.0
    ! grep -qxF "$package" "$APT_STATE/unknown" || candidate='(none)'
    printf '%s:\n  Installed: (none)\n  Candidate: %s\n  Version table:\n' "$package" "$candidate"
done
"""
APT_GET = """#!/bin/bash
echo "$*" >>"$APT_STATE/calls"
[[ $* != *\\ install\\ * ]] || : >"$APT_STATE/missing"
[[ $* != *\\ update ]] || cp "$APT_STATE/updated" "$APT_STATE/unknown" 2>/dev/null
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
        self.tool("apt-cache", APT_CACHE)
        self.tool("dpkg", "#!/bin/bash\necho amd64\n")
        self.tool("sudo", '#!/bin/bash\n[[ $1 == -n ]] && shift\nexec "$@"\n')
        self.put("missing", "")
        self.put("unknown", "")

    def tool(self, name, text):
        self.put(name, text)
        (self.state / name).chmod(0o755)

    def put(self, name, text):
        (self.state / name).write_text(text, encoding="utf-8")

    def calls(self):
        path = self.state / "calls"
        return path.read_text(encoding="utf-8").splitlines() if path.exists() else []

    def run_setup(self, *lists):
        environment = {**os.environ, "PATH": f"{self.state}:{os.environ['PATH']}", "APT_STATE": str(self.state)}
        return subprocess.run([SETUP, *(lists or ["run", "test"])], capture_output=True, text=True, check=False, env=environment, stdin=subprocess.DEVNULL)

    def lines(self, *names):
        lines = "".join((LISTS / name).read_text(encoding="utf-8") for name in names).splitlines()
        return [line for line in lines if line and not line.startswith("#")]

    def installed(self):
        return self.calls()[-1].split("--no-install-recommends ")[1].split()

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

    def test_the_lists_name_packages_and_alternatives_each_once(self):
        packages = []
        for line in self.lines("run", "test", "root"):
            *alternatives, last = line.split(" | ")
            packages += alternatives if last == "-" else [*alternatives, last]
        for package in packages:
            self.assertTrue(re.fullmatch(r"[a-z0-9][a-z0-9+.-]+", package), package)
        self.assertEqual(len(packages), len(set(packages)))

    def test_installs_what_is_missing_of_the_lists_that_it_is_told(self):
        for lists in (["run"], ["run", "test"], ["root"]):
            wanted = sorted(line.split(" ")[0] for line in self.lines(*lists))
            self.put("missing", "\n".join(wanted))
            self.run_setup(*lists)
            self.assertEqual(self.installed(), wanted)

    def test_installs_the_first_alternative_that_there_is(self):
        self.put("missing", "clang-16\nclang\n")
        self.put("unknown", "clang-16\n")
        self.run_setup()
        self.assertEqual(self.installed(), ["clang"])

    def test_does_without_what_there_need_not_be(self):
        self.put("missing", "clang-format-14\n")
        self.put("unknown", "clang-format-14\n")
        self.assertEqual(self.run_setup().stdout, "setup: All packages are installed.\n")

    def test_chooses_among_what_the_sources_have_once_they_are_read(self):
        self.put("missing", "cmake\nclang-16\nclang\n")
        self.put("unknown", "clang-16\nclang\n")
        self.put("updated", "clang-16\n")
        self.run_setup()
        self.assertEqual(self.installed(), ["clang", "cmake"])

    def test_keeps_the_configuration_files_of_the_machine(self):
        self.put("missing", "cmake\n")
        self.run_setup()
        self.assertRegex(self.calls()[1], "DPkg::Options::=--force-confdef .*DPkg::Options::=--force-confold")

    def test_an_unknown_list_is_one_sentence(self):
        result = self.run_setup("nonsense")
        self.assertEqual((result.stdout, result.returncode), ("", 1))
        self.assertRegex(result.stderr, r"\Asetup: The package list .*nonsense cannot be read\.\n\Z")

    def test_no_network_is_one_sentence(self):
        self.assertFails("W: x\nE: Failed to fetch x  Temporary failure resolving 'archive'\nE: Some index files failed\n",
                         "check the network connection")

    def test_a_lock_that_is_never_released_is_one_sentence(self):
        self.assertFails("E: Could not get lock /var/lib/dpkg/lock-frontend. It is held by process 1 (apt)\n", "Another program")

    def test_an_unknown_package_is_one_sentence(self):
        self.assertFails("E: Unable to locate package cmake\n", r"package sources of this system \(.+\) lack cmake; Tarvik is built on Debian 12 and 13\.")

    def test_any_other_failure_is_one_sentence_with_apts_own(self):
        self.assertFails("Reading\nE: Something odd\nE: More\n", r"apt-get failed: E: Something odd\n")


if __name__ == "__main__":
    unittest.main()
