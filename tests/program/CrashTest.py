#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""Either program killed at any moment of the panel's life: the other one goes on or goes, and the next click works."""
import os
import pathlib
import random
import signal
import time

import program
from gi.repository import GLib
from PresenceTest import PresenceTestCase, call, has_focus, panel, press
from program import eventually, is_held

ROUNDS = 50
CRASH = "Tarvik [system] The windows' process failed: it crashed with signal 9"
# Seconds within which what an action starts is over: a process comes up, a window opens or closes, a call is answered.
LONGEST = 0.15


class CrashTest(PresenceTestCase):
    def setUp(self):
        super().setUp()
        seed = random.randrange(1 << 32)
        print(f"seed {seed}", flush=True)
        self.random = random.Random(seed)
        self.programs.start("claude")

    def click(self):
        """On the item, as the tray reports it; that Tarvik is killed meanwhile is no matter."""
        call(self.item(), "/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate", GLib.Variant("(ii)", (1000, 14)))

    def windows_of(self, tarvik):
        """The windows' processes that this Tarvik has started, the dead ones too."""
        children = pathlib.Path(f"/proc/{tarvik}/task/{tarvik}/children").read_text(encoding="utf-8").split()
        return [int(child) for child in children if pathlib.Path(f"/proc/{child}/comm").read_text(encoding="utf-8") == "TarvikUi\n"]

    def all_windows(self):
        found = []
        for comm in pathlib.Path("/proc").glob("[0-9]*/comm"):
            try:
                if comm.read_text(encoding="utf-8") == "TarvikUi\n":
                    found.append(int(comm.parent.name))
            except OSError:
                # It has just ended.
                pass
        return found

    def open(self):
        if not panel():
            self.click()
        eventually(lambda: panel() and has_focus(panel()), "the panel has the focus")

    def bring_to(self, moment):
        """Starts what is to be interrupted."""
        if moment in ("closing", "menu", "call"):
            self.open()
        if moment in ("opening", "closing"):
            self.click()
        elif moment == "menu":
            press("Down", "Down", "Return")
        elif moment == "call":
            press("Down", "Down", "Return", "Down", "Down", "Return")

    def interrupted(self):
        """Ends every round at some moment of some action."""
        for number in range(ROUNDS):
            moment = ("opening", "menu", "closing", "call")[number % 4]
            self.bring_to(moment)
            time.sleep(self.random.uniform(0, LONGEST))
            yield f"round {number}: {moment}"

    def test_killed_windows_change_nothing(self):
        self.present()
        self.may_log = [CRASH]
        eventually(is_held, "held")
        kills = 0
        for what in self.interrupted():
            with self.subTest(what):
                victims = self.windows_of(self.tarvik.process.pid)
                self.assertLessEqual(len(victims), 1)
                for victim in victims:
                    os.kill(victim, signal.SIGKILL)
                    kills += 1
                    eventually(lambda pid=victim: not os.path.exists(f"/proc/{pid}"), "it is no zombie")
                eventually(lambda: self.tarvik.log().count(CRASH) == kills, "it is logged")
                self.assertTrue(is_held())
                self.assertTrue(self.tarvik.status()["isAwake"])
                # A click that the process died over is made good.
                if not self.windows_of(self.tarvik.process.pid):
                    self.click()
                eventually(panel, "the panel is open")
                self.assertEqual(self.all_windows(), self.windows_of(self.tarvik.process.pid))
        self.assertGreater(kills, ROUNDS // 2)
        self.wait_for_journal("on: Awake · 1 agent")

    def test_a_killed_tarvik_takes_its_windows_along_and_comes_back(self):
        self.present()
        for what in self.interrupted():
            with self.subTest(what):
                self.tarvik.end(signal.SIGKILL)
                eventually(lambda: not self.all_windows(), "the windows' process ends", 3)
                self.assertEqual(panel(), "")
                self.tarvik = self.start_tarvik()
                eventually(is_held, "held again")
                eventually(lambda: self.tarvik.status()["trayShown"], "the tray shows the item")
                self.open()
                self.click()
                eventually(lambda: not panel(), "the panel closes")


if __name__ == "__main__":
    program.main()
