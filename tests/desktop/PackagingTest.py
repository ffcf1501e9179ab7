#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What the Debian packages are made of and what their scripts do, as far as it can be seen without building them."""
import pathlib
import re
import subprocess
import tempfile
import unittest

PACKAGING = pathlib.Path(__file__).resolve().parents[2] / "packaging"
LISTS = PACKAGING / "debian-packages"
DEBIAN = PACKAGING / "debian"
SHARED_SUPPORT = pathlib.Path("usr/lib/tarvik/Contents/SharedSupport")
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


class RemovalTest(unittest.TestCase):
    """The engine's postrm in a root of its own, as dpkg --root calls it."""

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.root = pathlib.Path(directory.name)
        self.tool = self.root / SHARED_SUPPORT / "tarvik"
        # As in every system, something else lies there.
        (self.root / "usr/lib/other").mkdir(parents=True)

    def postrm(self, *arguments):
        subprocess.run(["sh", DEBIAN / "tarvik-engine.postrm", *arguments], check=True,
                       env={"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "DPKG_ROOT": str(self.root)})

    def run_tool(self, *arguments, **options):
        answer = subprocess.run([self.tool, *arguments], capture_output=True, text=True, check=False, timeout=PATIENCE, **options)
        return answer.returncode, answer.stdout, answer.stderr

    def test_after_removal_hooks_go_on_without_a_word(self):
        self.postrm("remove")
        self.assertEqual(self.run_tool("hook", "--tool", "claude", input="{}" * 100_000), (0, "", ""))

    def test_an_agent_that_does_not_close_its_end_is_not_waited_for(self):
        self.postrm("remove")
        agent = subprocess.Popen(["sleep", "infinity"], stdout=subprocess.PIPE)
        self.addCleanup(agent.stdout.close)
        self.addCleanup(agent.wait)
        self.addCleanup(agent.kill)
        self.assertEqual(self.run_tool("hook", "--tool", "claude", stdin=agent.stdout), (0, "", ""))

    def test_after_removal_people_are_told(self):
        self.postrm("remove")
        status, said, complaint = self.run_tool("hold", "touch", str(self.root / "was-run"))
        self.assertEqual((status, said), (127, ""))
        self.assertIn("removed", complaint)

    def test_purging_leaves_nothing(self):
        self.postrm("remove")
        self.postrm("purge")
        self.assertEqual([path.name for path in (self.root / "usr/lib").iterdir()], ["other"])
        self.postrm("purge")

    def test_purging_leaves_what_others_have_put_there(self):
        self.postrm("remove")
        foreign = self.root / SHARED_SUPPORT / "foreign"
        foreign.touch()
        self.postrm("purge")
        self.assertFalse(self.tool.exists())
        self.assertTrue(foreign.exists())

    def test_an_upgrade_touches_nothing(self):
        self.tool.parent.mkdir(parents=True)
        self.tool.write_text("the new one", encoding="utf-8")
        for step in (("upgrade", "2.0"), ("failed-upgrade", "1.0"), ("abort-upgrade", "1.0"), ("disappear", "other", "1.0")):
            self.postrm(*step)
        self.assertEqual(self.tool.read_text(encoding="utf-8"), "the new one")


if __name__ == "__main__":
    unittest.main(verbosity=2)
