#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""The rules on a laptop whose battery, mains, lid and thermal state change while Tarvik runs: real UPower, real logind."""
import subprocess

import program
from program import TarvikTestCase, eventually, hardware, is_held, is_not_held, set_up_laptop


class LaptopTest(TarvikTestCase):
    def setUp(self):
        super().setUp()
        set_up_laptop()

    def start_working(self, settings=None):
        if settings is not None:
            self.write_settings(settings)
        self.programs.start("claude")
        return self.start_tarvik()

    def test_unplugging_pauses_and_plugging_in_resumes(self):
        tarvik = self.start_working({"requireAC": True})
        eventually(is_held, "held")
        self.assertEqual(tarvik.status()["details"], "charging 80%")
        hardware("mains", "off")
        eventually(is_not_held, "released")
        status = tarvik.status()
        self.assertEqual(
            (status["title"], status["reason"], status["subtitle"], status["details"]),
            ("Paused", "Paused — on battery", "running on battery", ""),
        )
        hardware("mains", "on")
        eventually(is_held, "held again")
        self.wait_for_journal("on: Awake · 1 agent", "paused: Paused — on battery", "resumed: Awake · 1 agent")

    def test_a_laptop_that_is_shut_goes_on_working_until_the_work_ends(self):
        # This X server has no display to switch off, which would be in the log.
        tarvik = self.start_working({"screenOffOnLidClose": False})
        eventually(lambda: any("handle-lid-switch" in what for what in program.ours()), "a closed lid does not count")
        hardware("lid", "close")
        eventually(lambda: tarvik.status()["details"] == "charging 80% · lid closed", "the closed lid is seen")
        self.programs.stop()
        eventually(is_not_held, "nothing is held")
        self.assertEqual(tarvik.log(), "")

    def test_draining_through_the_threshold_pauses_once(self):
        tarvik = self.start_working({"batteryLimitEnabled": True, "batteryThreshold": 30})
        eventually(is_held, "held")
        hardware("mains", "off")
        for percent in (45, 31, 30):
            hardware("battery", percent, "discharging")
            eventually(lambda wanted=percent: tarvik.status()["batteryPercent"] == wanted, f"{percent} percent")
            self.assertTrue(is_held())
        for percent in (29, 28, 27):
            hardware("battery", percent, "discharging")
            eventually(lambda wanted=percent: tarvik.status()["batteryPercent"] == wanted, f"{percent} percent")
            eventually(is_not_held, "released")
        self.assertEqual(tarvik.status()["subtitle"], "battery 27% is below 30%")
        hardware("mains", "on")
        hardware("battery", 29, "charging")
        eventually(lambda: tarvik.status()["batteryPercent"] == 29, "charging")
        self.assertFalse(is_held(), "it needs more before it goes on")
        hardware("battery", 30, "charging")
        eventually(is_held, "held again")
        self.wait_for_journal(
            "on: Awake · 1 agent", "paused: Paused — battery 29% < 30%", "resumed: Awake · 1 agent"
        )

    def test_plugging_in_while_switched_off_switches_on(self):
        tarvik = self.start_working({"isEnabled": False})
        hardware("mains", "off")
        eventually(lambda: not tarvik.status()["onAC"], "on battery")
        hardware("mains", "on")
        eventually(is_held, "held")
        self.wait_for_journal("on: Switched on — plugged in", "on: Awake · 1 agent")
        self.assertTrue(self.read_settings()["isEnabled"])

    def test_a_start_on_battery_knows_it_from_the_first_evaluation(self):
        set_up_laptop(50, is_charging=False)
        tarvik = self.start_working({"requireAC": True, "isEnabled": True})
        self.assertEqual(tarvik.status()["reason"], "Paused — on battery")
        self.wait_for_journal("paused: Paused — on battery")

    def test_a_start_on_mains_while_switched_off_stays_off(self):
        tarvik = self.start_working({"isEnabled": False})
        hardware("battery", 81, "charging")
        eventually(lambda: tarvik.status()["batteryPercent"] == 81, "UPower is heard")
        self.assertEqual(tarvik.status()["title"], "Off")
        self.assertEqual(self.journal(), [])

    def test_the_lid_lets_the_display_sleep(self):
        def holds():
            return sorted({entry["type"] for entry in tarvik.status()["assertions"]})

        tarvik = self.start_working({"keepDisplayAwake": True})
        both = ["PreventUserIdleDisplaySleep", "PreventUserIdleSystemSleep"]
        eventually(lambda: holds() == both, "both are held")
        hardware("lid", "close")
        eventually(lambda: holds() == both[1:], "the display may sleep", program.POLL_PERIOD + 3)
        self.assertTrue(tarvik.status()["lidClosed"])
        hardware("lid", "open")
        eventually(lambda: holds() == both, "both are held again", program.POLL_PERIOD + 3)
        self.wait_for_journal("on: Awake · 1 agent")

    def test_overheating_pauses_and_cooling_down_resumes(self):
        tarvik = self.start_working()
        eventually(is_held, "held")
        hardware("thermal", 101000)
        eventually(is_not_held, "released")
        status = tarvik.status()
        self.assertEqual((status["reason"], status["subtitle"]), ("Paused — Mac is running hot", "the Mac is running hot"))
        self.assertEqual((status["thermalState"], status["isHot"]), (3, True))
        self.assertEqual(status["details"], "charging 80%")
        hardware("thermal", 40000)
        # A thermal state that comes and goes must not make keep-awake flap, so cooling down takes its time.
        eventually(is_held, "held again", 150)
        self.wait_for_journal("on: Awake · 1 agent", "paused: Paused — Mac is running hot", "resumed: Awake · 1 agent")

    def test_a_upower_that_answers_late_keeps_nobody_waiting(self):
        subprocess.run(["pkill", "-STOP", "-x", "upowerd"], check=True)
        self.addCleanup(subprocess.run, ["pkill", "-CONT", "-x", "upowerd"], check=False)
        tarvik = self.start_working({"requireAC": True})
        eventually(is_held, "held")
        self.assertEqual(tarvik.status()["details"], "charging 80%", "as the kernel says")
        hardware("mains", "off")
        subprocess.run(["pkill", "-CONT", "-x", "upowerd"], check=True)
        eventually(is_not_held, "released")
        self.assertEqual(tarvik.status()["subtitle"], "running on battery")


if __name__ == "__main__":
    program.main()
