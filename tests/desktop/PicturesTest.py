#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""PicturesTest.py TARVIK_UI: what takes pictures of the windows."""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
LOOK = ("scale=1", "dark=1", "text=1", "contrast=0", "reverse=0", "accent=")


def take(script, *arguments):
    return subprocess.run([ROOT / "scripts" / script, *arguments], capture_output=True, text=True, check=False)


def size_of(picture):
    header = picture.read_bytes()[16:24]
    return int.from_bytes(header[:4], "big"), int.from_bytes(header[4:], "big")


class PicturesTest(unittest.TestCase):
    windows = ""

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.folder = pathlib.Path(directory.name)

    def test_a_look_has_a_picture_of_each_situation(self):
        done = take("window-pictures", self.windows, self.folder, "window=alerts", *LOOK)
        self.assertEqual((done.returncode, done.stdout), (0, "alerts-dark-scale1: 4 pictures\n"), done.stderr)
        names = {f"alerts-dark-scale1-{scene}" for scene in ("restart", "restart-focus", "approval", "approval-focus")}
        self.assertEqual({file.stem for file in self.folder.iterdir()}, names | {"sheet-alerts-dark-scale1"})
        self.assertEqual(len({(self.folder / f"{name}.png").read_bytes() for name in names}), len(names))

    def test_the_pictures_of_the_readme_are_those_that_can_be_taken_again(self):
        done = take("readme-pictures", self.windows, self.folder)
        self.assertEqual(done.returncode, 0, done.stderr)
        taken = {file.name: size_of(file) for file in self.folder.iterdir()}
        shown = re.findall(r'src(?:set)?="docs/pictures/([^"]+)"', (ROOT / "README.md").read_text(encoding="utf-8"))
        self.assertEqual(set(taken), set(shown))
        self.assertEqual(set(taken), {file.name for file in (ROOT / "docs" / "pictures").iterdir()})
        for name in taken:
            self.assertEqual(taken[name], taken[name.replace("dark", "light")], name)


if __name__ == "__main__":
    PicturesTest.windows = sys.argv[1]
    unittest.main(argv=sys.argv[:1] + sys.argv[2:], verbosity=2)
