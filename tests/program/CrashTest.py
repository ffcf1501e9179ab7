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
from PresenceTest import PresenceTestCase, call, has_focus, output, panel, press
from program import eventually, is_held, windows_processes

ROUNDS = 50
# A first start introduces lid-closed mode, in a window that takes the focus from the panel.
INTRODUCED = {"clamshellOnboardingComplete": True}
CRASH = "Tarvik [system] The UI process failed: it crashed with signal 9"
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

    def children(self, name):
        """The processes of this name that Tarvik has started, the dead ones too."""
        tarvik = self.tarvik.process.pid
        children = pathlib.Path(f"/proc/{tarvik}/task/{tarvik}/children").read_text(encoding="utf-8").split()
        return [int(child) for child in children if self.name_of(child) == name]

    @staticmethod
    def name_of(process):
        """Empty for one that has just ended."""
        try:
            return pathlib.Path(f"/proc/{process}/comm").read_text(encoding="utf-8").rstrip("\n")
        except OSError:
            return ""

    def windows(self):
        return self.children("TarvikUi")

    def has_panel(self):
        """Whether the panel that is open is not that of a process which has just been killed."""
        return bool(panel()) and int(output("xdotool", "getwindowpid", panel()) or 0) in self.windows()

    def windows_made_good(self):
        """Those that Tarvik has started anew when the last ones died over a click."""
        # It learns of that from the bus, which has told it by the time that it has answered what came later.
        for _ in range(2):
            self.tarvik.status()
        # Until it runs its own program, a process is called like the one that has started it.
        eventually(lambda: not self.children("Tarvik"), "what has been started runs")
        return self.windows()

    def open(self):
        if not panel():
            self.click()
        eventually(lambda: panel() and has_focus(panel()), "the panel has the focus")

    def bring_to(self, moment):
        """Starts what is to be interrupted."""
        if moment in ("closing", "menu", "call"):
            self.open()
        elif panel():
            self.click()
            eventually(lambda: not panel(), "the panel closes")
        if moment in ("opening", "closing"):
            self.click()
        elif moment == "menu":
            press("Down", "Down", "Return")
        elif moment == "call":
            press("Down", "Down", "Return", "Down", "Return")

    def interrupted(self):
        """Ends every round at some moment of some action."""
        for number in range(ROUNDS):
            moment = ("opening", "menu", "closing", "call")[number % 4]
            self.bring_to(moment)
            time.sleep(self.random.uniform(0, LONGEST))
            yield f"round {number}: {moment}"

    def test_killed_windows_change_nothing(self):
        self.present(INTRODUCED)
        self.may_log = [CRASH]
        eventually(is_held, "held")
        kills = 0
        for what in self.interrupted():
            with self.subTest(what):
                victims = self.windows()
                self.assertLessEqual(len(victims), 1)
                for victim in victims:
                    os.kill(victim, signal.SIGKILL)
                    kills += 1
                    eventually(lambda pid=victim: not os.path.exists(f"/proc/{pid}"), "it is no zombie")
                eventually(lambda: self.tarvik.log().count(CRASH) == kills, "it is logged")
                self.assertTrue(is_held())
                self.assertTrue(self.tarvik.status()["isAwake"])
                if not self.windows_made_good():
                    self.click()
                eventually(self.has_panel, "the panel is open")
                self.assertEqual(windows_processes(), self.windows())
        self.assertGreater(kills, ROUNDS // 2)
        self.wait_for_journal("on: Awake · 1 agent")

    def test_a_killed_tarvik_takes_its_windows_along_and_comes_back(self):
        self.present(INTRODUCED)
        for what in self.interrupted():
            with self.subTest(what):
                self.tarvik.end(signal.SIGKILL)
                eventually(lambda: not windows_processes(), "the UI process ends", 3)
                self.assertEqual(panel(), "")
                self.tarvik = self.start_tarvik()
                eventually(is_held, "held again")
                eventually(lambda: self.tarvik.status()["trayShown"], "the tray shows the item")
                self.open()
                self.click()
                eventually(lambda: not panel(), "the panel closes")


if __name__ == "__main__":
    program.main()
