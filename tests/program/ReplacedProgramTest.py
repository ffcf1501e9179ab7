#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""Another build takes the place of the running program: nothing that is held is dropped for it, and then it runs."""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

import program
from program import PATIENCE, TarvikTestCase, eventually, inhibitors, is_held, is_not_held, name_owner

# Usage: ReplacedProgramTest.py NEXT-TARVIK TARVIK TOOL SLEEPER [UNITTEST-ARGUMENT...]
NEXT = pathlib.Path(sys.argv.pop(1))
# It first waits for the installation to be over and for nothing to be held for some seconds.
LONGEST = PATIENCE + 15
# Seconds that a lease lasts, longer than what it waits for without one.
LEASE = 25


def our_inhibitors():
    return [entry for entry in inhibitors() if entry[1] == "Tarvik"]


class ReplacedProgramTest(TarvikTestCase):
    def setUp(self):
        super().setUp()
        built = pathlib.Path(program.TARVIK).parents[2]
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.bundle = pathlib.Path(directory.name).resolve() / "lib" / "tarvik"
        self.executable = self.bundle / "Contents" / "Linux" / "Tarvik"
        self.executable.parent.mkdir(parents=True)
        for part in ("Linux/TarvikUi", "Resources", "SharedSupport"):
            (self.bundle / "Contents" / part).symlink_to(built / "Contents" / part)
        self.install(program.TARVIK)
        self.addCleanup(setattr, program, "TARVIK", program.TARVIK)
        program.TARVIK = str(self.executable)
        self.tarvik = self.start_tarvik()
        eventually(lambda: self.last_helper_build() != "", "the build is noted")

    def install(self, executable):
        """As a package manager does: beside it first, then in its place, one file after the other."""
        for name, source in (("Tarvik", executable), ("TarvikUi", (self.executable.parent / "TarvikUi").readlink())):
            new = self.executable.with_name(f"{name}.dpkg-new")
            if name == "Tarvik":
                shutil.copy(source, new)
            else:
                new.symlink_to(source)
            new.rename(self.executable.with_name(name))

    def last_helper_build(self):
        return self.read_settings().get("lastHelperBuild", "") if self.settings_file.exists() else ""

    def tool(self, *arguments):
        subprocess.run([program.TOOL, *arguments], check=True)

    def wait_for_restart(self, former):
        """Until another connection has the name; for how long nobody had it."""
        eventually(lambda: name_owner() != former, "it ends", LONGEST)
        began = time.monotonic()
        eventually(lambda: name_owner() not in ("", former), "it starts")
        return time.monotonic() - began

    def test_what_is_held_is_held_to_its_end_and_then_the_new_build_runs(self):
        former_build = self.last_helper_build()
        former = name_owner()
        taken = time.monotonic()
        self.tool("acquire", "--session", "build", "--ttl", str(LEASE))
        eventually(is_held, "held")
        held = our_inhibitors()
        self.install(NEXT)
        eventually(lambda: self.tarvik.status()["upgradePending"], "it has noticed")
        # Read before the clock is, so that they are from before the end of the lease.
        while (seen := our_inhibitors()) and time.monotonic() < taken + LEASE:
            self.assertEqual(seen, held)
        self.assertGreaterEqual(time.monotonic(), taken + LEASE)
        absence = self.wait_for_restart(former)
        print(f"away for {absence:.2f} s", flush=True)
        status = self.tarvik.status()
        self.assertFalse(status["upgradePending"])
        self.assertEqual((status["isAwake"], status["leases"]), (False, []))
        eventually(lambda: self.tarvik.status()["trayShown"], "the tray shows the item again")
        eventually(lambda: self.last_helper_build() not in ("", former_build), "the helper is looked at for the new build")
        self.assertEqual(self.last_helper_build(), f"{former_build}-next")
        # The process is the same one, so that no service manager takes it for ended.
        self.assertIsNone(self.tarvik.process.poll())
        self.assertEqual(os.readlink(f"/proc/{self.tarvik.process.pid}/exe"), str(self.executable))
        self.tool("acquire", "--session", "next", "--ttl", "60")
        eventually(is_held, "the new build keeps awake")
        self.tool("release-all")
        eventually(is_not_held, "and lets go")

    def test_a_removed_program_goes_on_and_another_one_in_its_place_is_taken(self):
        former = name_owner()
        removed = self.executable.rename(self.bundle / "removed")
        self.tool("acquire", "--session", "work", "--ttl", "60")
        eventually(is_held, "held")
        removed.unlink()
        self.install(NEXT)
        eventually(lambda: self.tarvik.status()["upgradePending"], "it has noticed")
        self.assertEqual(name_owner(), former)
        self.tool("release-all")
        self.wait_for_restart(former)
        self.assertFalse(self.tarvik.status()["upgradePending"])

    def test_what_would_not_start_is_not_started(self):
        former = name_owner()
        half = self.bundle / "half"
        half.write_bytes(NEXT.read_bytes()[:100_000])
        half.chmod(0o755)
        self.install(half)
        eventually(lambda: "would not start" in self.tarvik.log(), "it has looked", LONGEST)
        self.assertEqual(name_owner(), former)
        self.tool("acquire", "--session", "work", "--ttl", "60")
        eventually(is_held, "it goes on")
        self.tool("release-all")
        self.install(NEXT)
        self.wait_for_restart(former)

    def test_what_cannot_be_started_after_all_leaves_the_old_one_running(self):
        broken = self.bundle / "broken"
        broken.write_bytes(b"nothing that a kernel would execute")
        broken.chmod(0o755)
        self.install(broken)
        subprocess.run(["busctl", "--user", "call", "com.morvanta.Tarvik", "/com/morvanta/Tarvik",
                        "com.morvanta.Tarvik.LidClosed1", "Relaunch"], check=True)
        eventually(lambda: "Could not start what is installed now, and goes on" in self.tarvik.log(), "it has tried")
        self.programs.start("claude")
        eventually(is_held, "it keeps awake")
        eventually(lambda: self.tarvik.status()["trayShown"], "the tray shows the item")


if __name__ == "__main__":
    program.main()
