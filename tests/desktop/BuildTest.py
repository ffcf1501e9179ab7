#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""scripts/build and scripts/check with programs that say what they are told to: nothing is compiled here."""
import os
import pathlib
import pty
import subprocess
import tempfile
import unittest

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / "scripts"
CMAKE = """#!/bin/bash
echo "$*" >>"$STATE/calls"
[[ $1 == --build ]] || exit 0
for step in 1 2 3; do
    echo "${NINJA_STATUS/\\%f\\/\\%t/$step/3}Building $step"
done
echo "a message of the compiler"
exit "$(cat "$STATE/status" 2>/dev/null || echo 0)"
"""


class ScriptTest(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.state = pathlib.Path(directory.name)

    def tool(self, name, text):
        self.put(name, text)
        (self.state / name).chmod(0o755)

    def put(self, name, text):
        (self.state / name).write_text(text, encoding="utf-8")

    def calls(self):
        return (self.state / "calls").read_text(encoding="utf-8").splitlines()

    def run_script(self, name, *arguments, path=None, **options):
        environment = {**os.environ, "PATH": path or f"{self.state}:{os.environ['PATH']}", "STATE": str(self.state)}
        environment.pop("CI", None)
        options = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE, **options}
        return subprocess.run([SCRIPTS / name, *arguments], text=True, check=False, env=environment, **options)


class BuildTest(ScriptTest):
    def setUp(self):
        super().setUp()
        self.tool("cmake", CMAKE)

    def test_says_how_far_it_is(self):
        result = self.run_script("build")
        self.assertEqual(
            (result.stdout, result.stderr, result.returncode),
            ("build: Configuring\nbuild: Compiling\nbuild: Compiling [1/3]\nbuild: Compiling [3/3]\n", "", 0),
        )

    def test_counts_in_one_line_of_a_terminal(self):
        terminal, output = pty.openpty()
        self.assertEqual(self.run_script("build", stdout=output).returncode, 0)
        os.close(output)
        text = os.read(terminal, 4096).decode()
        os.close(terminal)
        self.assertTrue(text.endswith("".join(f"\rbuild: Compiling [{step}/3]" for step in (1, 2, 3)) + "\r\n"), text)

    def test_shows_what_the_compiler_said_when_it_fails(self):
        self.put("status", "1")
        result = self.run_script("build")
        self.assertEqual(result.returncode, 1)
        self.assertIn("a message of the compiler\nbuild: Compiling failed", result.stderr)

    def test_leaves_the_tests_out_when_told_to(self):
        self.run_script("build", "--without-tests", "Tarvik")
        self.assertEqual(
            self.calls(), ["--preset release -DBUILD_TESTING=OFF", "--build --preset release --target Tarvik"]
        )

    def test_builds_everything_unless_told_otherwise(self):
        self.run_script("build")
        self.assertEqual(self.calls(), ["--preset release", "--build --preset release"])


class CheckTest(ScriptTest):
    """With no programs but those that it is given."""

    def setUp(self):
        super().setUp()
        for name in ("bash", "cat", "find", "grep", "nproc", "readlink", "dirname", "sed", "sort", "tr", "xargs"):
            (self.state / name).symlink_to(subprocess.check_output(["which", name], text=True).strip())
        self.tool("pkg-config", '#!/bin/bash\n[[ $1 == --variable=bindir ]] && echo "$STATE" || echo -I/qt\n')

    def check(self):
        return self.run_script("check", path=str(self.state))

    def test_a_check_without_its_program_is_left_out_in_one_sentence(self):
        result = self.check()
        self.assertEqual(
            (result.stdout.splitlines(), result.stderr, result.returncode),
            (
                [
                    "check: Format is left out: there is no clang-format-14 here.",
                    "check: Man pages are left out: there is no man here.",
                    "check: QML is left out: there is no qmllint here.",
                    "check: clang and libc++ is left out: there is none of version 16 or newer here.",
                ],
                "",
                0,
            ),
        )

    def test_a_file_of_another_format_fails(self):
        self.tool("clang-format-14", "#!/bin/bash\nexit 1\n")
        self.assertNotEqual(self.check().returncode, 0)

    def test_qml_that_is_warned_of_fails(self):
        self.tool("qmllint", '#!/bin/bash\necho "$*" >>"$STATE/calls"\n[[ $1 == --help ]]\n')
        self.assertNotEqual(self.check().returncode, 0)
        self.assertIn("-I build/release/qml src/ui/", self.calls()[1])

    def test_newer_versions_are_told_to_fail_on_warnings(self):
        self.tool("qmllint", '#!/bin/bash\necho "$*" >>"$STATE/calls"\necho " --max-warnings <count>"\n')
        self.assertEqual(self.check().returncode, 0)
        self.assertIn("-I build/release/qml --max-warnings 0 src/ui/", self.calls()[1])

    def test_the_first_clang_with_a_new_libcxx_compiles(self):
        self.tool("clang++-15", "#!/bin/bash\nexit 1\n")
        self.tool("clang++-19", '#!/bin/bash\n[[ $* != *-Werror* ]] || echo "$0 $*" >>"$STATE/calls"\n')
        self.tool("clang++-20", "#!/bin/bash\nexit 1\n")
        result = self.check()
        self.assertEqual((result.stderr, result.returncode), ("", 0))
        self.assertIn("check: clang++-19 and libc++\n", result.stdout)
        self.assertTrue(all("clang++-19 -std=c++20" in call and "-isystem/qt" in call for call in self.calls()))

    def test_what_clang_does_not_compile_fails(self):
        self.tool("clang++", "#!/bin/bash\n[[ $* != *-Werror* ]]\n")
        self.assertNotEqual(self.check().returncode, 0)


if __name__ == "__main__":
    unittest.main()
