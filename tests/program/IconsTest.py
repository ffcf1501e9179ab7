#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""IconsTest.py ICON_DIRECTORY RASTERISE: the icons of the tray, drawn at every size that trays have."""
import itertools
import pathlib
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

STATES = ("active", "looking", "idle")
DRAWN = (16, 22, 24, 32)
DOUBLED = (22, 24)
# What bars of the light and of the dark kind look like.
BARS = ((0xF5, 0xF4, 0xF2), (0x23, 0x25, 0x2A))
SVG = "{http://www.w3.org/2000/svg}"


def name_of(state):
    return f"tarvik-{state}-symbolic"


def pixels_of(file):
    """(alpha, (red, green, blue)) of each."""
    argb = file.read_bytes()
    return [(argb[i], tuple(argb[i + 1 : i + 4])) for i in range(0, len(argb), 4)]


def luminance(colour):
    """WCAG 2.1, relative luminance."""
    linear = [value / 255 / 12.92 if value <= 10 else ((value / 255 + 0.055) / 1.055) ** 2.4 for value in colour]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(one, other):
    darker, lighter = sorted((luminance(one), luminance(other)))
    return (lighter + 0.05) / (darker + 0.05)


class IconsTest(unittest.TestCase):
    icons = pathlib.Path()
    rasterise = ""

    def drawing(self, folder, state):
        return self.icons / "hicolor" / folder / "apps" / f"{name_of(state)}.svg"

    def pixels(self, state, size):
        pixels = pixels_of(self.icons / "pixmaps" / f"{name_of(state)}-{size}.argb")
        self.assertEqual(len(pixels), size * size)
        return pixels

    def test_there_is_a_drawing_for_each_size_of_a_tray(self):
        folders = {f"{size}x{size}": size for size in DRAWN} | {f"{size}x{size}@2": size for size in DOUBLED} | {"symbolic": 16}
        for (folder, size), state in itertools.product(folders.items(), STATES):
            root = ElementTree.parse(self.drawing(folder, state)).getroot()
            self.assertEqual([root.get(name) for name in ("width", "height", "viewBox")], [f"{size}", f"{size}", f"0 0 {size} {size}"])
        pictures = {file.name for file in (self.icons / "pixmaps").iterdir()}
        sizes = (*DRAWN, *(2 * size for size in DOUBLED))
        self.assertEqual(pictures, {f"{name_of(state)}-{size}.argb" for state in STATES for size in sizes})

    def test_edges_lie_on_whole_pixels(self):
        for size, state in itertools.product(DRAWN, STATES):
            drawn = [alpha for alpha, _ in self.pixels(state, size) if alpha > 0]
            soft = sum(alpha < 255 for alpha in drawn) / len(drawn)
            # Beams and roof have slopes.
            self.assertLess(soft, 0.2 if state == "active" else 0.07, f"{state} at {size}")

    def test_the_states_are_told_apart_at_a_glance(self):
        for size, (one, other) in itertools.product(DRAWN, itertools.combinations(STATES, 2)):
            pairs = zip(self.pixels(one, size), self.pixels(other, size))
            different = sum(abs(alpha - beta) > 127 for (alpha, _), (beta, _) in pairs)
            self.assertGreater(different, 0.09 * size * size, f"{one} and {other} at {size}")

    def test_their_own_colour_is_seen_on_light_and_on_dark_bars(self):
        for size, state, bar in itertools.product(DRAWN, STATES, BARS):
            colours = {colour for alpha, colour in self.pixels(state, size) if alpha == 255}
            self.assertGreaterEqual(min(contrast(colour, bar) for colour in colours), 3, f"{state} at {size} on {bar}")

    def test_plasma_finds_what_it_colours(self):
        # It puts a style sheet of its own in the place of this one.
        for size, state in itertools.product(DRAWN, STATES):
            tree = ElementTree.parse(self.drawing(f"{size}x{size}", state))
            style = tree.find(f"{SVG}style[@id='current-color-scheme']")
            style.text = ".ColorScheme-Text { color: #fcfcfc; } .ColorScheme-Highlight { color: #ff0000; }"
            with tempfile.TemporaryDirectory() as folder:
                recoloured = pathlib.Path(folder, "icon.svg")
                tree.write(recoloured)
                subprocess.run([self.rasterise, recoloured, folder, str(size)], check=True)
                pixels = pixels_of(pathlib.Path(folder, f"icon-{size}.argb"))
            self.assertEqual({colour for alpha, colour in pixels if alpha == 255}, {(0xFC, 0xFC, 0xFC)})
            self.assertEqual([alpha for alpha, _ in pixels], [alpha for alpha, _ in self.pixels(state, size)])


if __name__ == "__main__":
    IconsTest.icons, IconsTest.rasterise = pathlib.Path(sys.argv[1]), sys.argv[2]
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
