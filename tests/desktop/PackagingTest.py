#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What the Debian packages are made of and what their scripts do, as far as it can be seen without building them."""
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

PACKAGING = pathlib.Path(__file__).resolve().parents[2] / "packaging"
LISTS = PACKAGING / "debian-packages"
DEBIAN = PACKAGING / "debian"
SHARED_SUPPORT = pathlib.Path("usr/lib/tarvik/Contents/SharedSupport")
STAND_IN = pathlib.Path("usr/lib/tarvik/stand-in")
# Longer than anybody waits for a hook.
PATIENCE = 10
# Every package is built with it.
BUILD_ESSENTIAL = {"g++"}


def listed_packages(name, first="", last=""):
    """Those of a list, or those of its part between two texts."""
    text = (LISTS / name).read_text(encoding="utf-8")
    part = text[text.index(first):]
    if last:
        part = part[:part.index(last)]
    return {line for line in part.splitlines() if line and not line.startswith("#")}


def build_dependencies():
    control = (DEBIAN / "control").read_text(encoding="utf-8")
    field = re.search(r"^Build-Depends:\n((?: .*\n)+)", control, re.MULTILINE).group(1)
    return {re.sub(r"-compat$", "", line.split()[0].rstrip(",")) for line in field.splitlines()}


class ListsTest(unittest.TestCase):
    def test_packages_are_built_with_what_run_builds_with(self):
        needed = build_dependencies()
        self.assertEqual(needed - {"debhelper"}, listed_packages("run", "# Build\n", "\n\n") - BUILD_ESSENTIAL)
        self.assertIn("debhelper", needed & listed_packages("package"))


class ToolTest(unittest.TestCase):
    """The engine's scripts in a root of its own, as dpkg --root calls them."""

    @classmethod
    def setUpClass(cls):
        directory = tempfile.TemporaryDirectory()
        cls.addClassCleanup(directory.cleanup)
        cls.stand_in = pathlib.Path(directory.name) / "stand-in"
        subprocess.run(["gcc", "-std=c17", "-Wall", "-Wextra", "-Werror", "-o", cls.stand_in, DEBIAN / "stand-in.c"], check=True)

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.root = pathlib.Path(directory.name)
        self.tool = self.root / SHARED_SUPPORT / "tarvik"
        self.unpack()
        self.call("postinst", "configure", "")

    def unpack(self):
        """As in every system, something else lies beside it."""
        for directory in ("usr/bin", "usr/lib/other", SHARED_SUPPORT.parent):
            (self.root / directory).mkdir(parents=True, exist_ok=True)
        (self.root / "usr/bin/tarvik").write_text("#!/bin/sh\necho the tool\n", encoding="utf-8")
        (self.root / "usr/bin/tarvik").chmod(0o755)
        shutil.copy(self.stand_in, self.root / STAND_IN)

    def call(self, script, *arguments):
        subprocess.run(["sh", DEBIAN / f"tarvik-engine.{script}", *arguments], check=True,
                       env={"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "DPKG_ROOT": str(self.root)})

    def remove(self):
        self.call("prerm", "remove")
        (self.root / "usr/bin/tarvik").unlink()
        (self.root / STAND_IN).unlink()
        self.call("postrm", "remove")

    def run_tool(self, *arguments, **options):
        answer = subprocess.run([self.tool, *arguments], capture_output=True, text=True, check=False, timeout=PATIENCE, **options)
        return answer.returncode, answer.stdout, answer.stderr

    def test_the_bundle_has_the_tool(self):
        self.assertEqual(self.run_tool(), (0, "the tool\n", ""))

    def test_after_removal_hooks_go_on_without_a_word(self):
        self.remove()
        self.assertEqual(self.run_tool("hook", "--tool", "claude", input="{}" * 100_000), (0, "", ""))

    def test_there_is_a_tool_from_the_beginning_of_the_removal_to_its_end(self):
        self.call("prerm", "remove")
        self.assertEqual(self.run_tool("hook", "--tool", "claude", input="{}"), (0, "", ""))

    def test_a_removal_that_does_not_come_about_changes_nothing(self):
        self.call("prerm", "remove")
        self.call("postinst", "abort-remove")
        self.assertEqual(self.run_tool(), (0, "the tool\n", ""))

    def test_installed_again_it_is_the_tool_again(self):
        self.remove()
        self.unpack()
        self.call("postinst", "configure", "")
        self.assertEqual(self.run_tool(), (0, "the tool\n", ""))

    def test_an_agent_that_does_not_close_its_end_is_not_waited_for(self):
        self.remove()
        agent = subprocess.Popen(["sleep", "infinity"], stdout=subprocess.PIPE)
        self.addCleanup(agent.stdout.close)
        self.addCleanup(agent.wait)
        self.addCleanup(agent.kill)
        self.assertEqual(self.run_tool("hook", "--tool", "claude", stdin=agent.stdout), (0, "", ""))

    def test_after_removal_people_are_told(self):
        self.remove()
        status, said, complaint = self.run_tool("hold", "touch", str(self.root / "was-run"))
        self.assertEqual((status, said), (127, ""))
        self.assertIn("removed", complaint)

    def test_purging_leaves_nothing(self):
        self.remove()
        self.call("postrm", "purge")
        self.assertEqual([path.name for path in (self.root / "usr/lib").iterdir()], ["other"])
        self.call("postrm", "purge")

    def test_purging_leaves_what_others_have_put_there(self):
        self.remove()
        foreign = self.root / SHARED_SUPPORT / "foreign"
        foreign.touch()
        self.call("postrm", "purge")
        self.assertFalse(self.tool.exists())
        self.assertTrue(foreign.exists())

    def test_an_upgrade_touches_nothing(self):
        before = self.tool.lstat()
        self.call("prerm", "upgrade", "2.0")
        self.call("postrm", "upgrade", "2.0")
        self.assertEqual(self.tool.lstat(), before)


if __name__ == "__main__":
    unittest.main(verbosity=2)
