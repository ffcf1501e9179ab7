#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""The settings of the built UI process on a real Wayland compositor."""
import unittest

from wayland_windows import WaylandWindowsTestCase
from windows import eventually


def leaves(node):
    for child in node["nodes"] + node["floating_nodes"]:
        yield from leaves(child) if child["type"] in ("root", "output", "workspace") else [child]


class SettingsTest(WaylandWindowsTestCase):
    def size(self):
        """Width and height of the window; None without it."""
        windows = [leaf["window_rect"] for leaf in leaves(self.sway.ask("get_tree")) if leaf["name"] == "Tarvik Settings"]
        return next(((rect["width"], rect["height"]) for rect in windows), None)

    def open(self):
        self.show("ShowSettings", "s", "")

    def test_has_a_size_of_its_own(self):
        self.open()
        self.assertEqual(eventually(self.size, "the settings open"), (480, 440))

    def test_fits_the_smaller_of_two_screens(self):
        self.assertTrue(self.sway.tell("output", "HEADLESS-1", "scale", "2"))
        self.assertTrue(self.sway.tell("focus", "output", "HEADLESS-1"))
        self.open()
        title_bar = 48
        eventually(lambda: self.size() == (480, 400 - title_bar), "the settings fit the screen")


if __name__ == "__main__":
    unittest.main(verbosity=2)
