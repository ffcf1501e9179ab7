#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""TrayTest.py PROBE ICON_DIRECTORY: our item in a real tray, seen and clicked in the virtual desktop."""
import itertools
import os
import pathlib
import queue
import re
import subprocess
import sys
import tempfile
import threading
import time
import unittest

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from waiting import PATIENCE as DEADLINE, eventually
from x_windows import x_windows

WATCHER = "org.kde.StatusNotifierWatcher /StatusNotifierWatcher org.kde.StatusNotifierWatcher"


def output(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True).stdout


def output_of_any(*command):
    """Empty where it fails: what it asks about may have gone."""
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


def colour_of(drawing, size, geometry, picture):
    """The colour in which the drawing, a square of so many pixels and their opacities, lies somewhere in that part of the screen;
    None where it doesn't."""
    if not geometry:
        return None
    width, height = geometry[2:]
    pixels = picture(geometry)
    background = max(set(pixels), key=pixels.count)
    ink = max(set(pixels), key=lambda pixel: sum(abs(a - b) for a, b in zip(pixel, background)))
    shades = [bytes(round(b + opacity * (i - b)) for i, b in zip(ink, background)) for opacity in drawing]
    for top, left in itertools.product(range(height - size + 1), range(width - size + 1)):
        part = [pixel for y in range(top, top + size) for pixel in pixels[y * width + left : y * width + left + size]]
        # Two libraries round the opacity of an edge differently.
        if all(abs(a - b) <= 8 for shade, pixel in zip(shades, part) for a, b in zip(shade, pixel)):
            return ink
    return None


class Program:
    """A program that is running; it ends with its input."""

    def __init__(self, *command, **environment):
        self.process = subprocess.Popen(
            command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, env={**os.environ, **environment})
        self.lines = queue.Queue()
        self.reader = threading.Thread(target=self.read)
        self.reader.start()

    def read(self):
        for line in self.process.stdout:
            self.lines.put(line.rstrip("\n"))

    def next_line(self):
        return self.lines.get(timeout=DEADLINE)

    def tell(self, line):
        self.process.stdin.write(f"{line}\n")
        self.process.stdin.flush()

    def end(self):
        self.process.terminate()
        self.process.stdin.close()
        self.process.wait(DEADLINE)
        self.reader.join(DEADLINE)
        self.process.stdout.close()


class TrayTest(unittest.TestCase):
    probe_command = []

    def setUp(self):
        self.point_elsewhere()

    def start_probe(self, image="MenuActive"):
        probe = Program(*self.probe_command, image)
        self.addCleanup(probe.end)
        return probe

    def start_bar(self):
        bar = Program(
            "xfce4-panel", "--disable-wm-check", NO_AT_BRIDGE="1", XDG_CONFIG_DIRS=f"{os.environ['TARVIK_DESKTOP']}/xdg:/etc/xdg")
        self.addCleanup(bar.end)
        return bar

    @staticmethod
    def await_answer(question, expected):
        eventually(lambda: question() == expected, lambda: f"{expected!r}, but {question()!r}", period=0.05)

    def wrapper_windows(self):
        """Windows on the screen that belong to the tray's process: the tray, and its menus."""
        return x_windows("--class", "wrapper")

    def has_menu(self):
        """Whether one of them is no tooltip, but a menu."""
        types = [output_of_any("xprop", "-id", window, "_NET_WM_WINDOW_TYPE") for window in self.wrapper_windows()]
        return any("_MENU" in kind for kind in types)

    def tray_now(self):
        """Left, top, width and height of the bar's tray on the screen, as far as there is one with an item in it."""
        windows = self.wrapper_windows()
        if len(windows) != 1:
            return None
        shell = output_of_any("xdotool", "getwindowgeometry", "--shell", windows[0])
        found = [re.search(rf"^{name}=(\d+)$", shell, re.M) for name in ("X", "Y", "WIDTH", "HEIGHT")]
        if not all(found):
            return None
        left, top, width, height = (int(match[1]) for match in found)
        return (left, top, width, height) if width > 10 else None

    def picture(self, geometry):
        """The pixels of a part of the screen."""
        left, top, width, height = geometry
        with tempfile.TemporaryDirectory() as directory:
            file = pathlib.Path(directory, "picture.ppm")
            subprocess.run(["scrot", "--silent", "--autoselect", f"{left},{top},{width},{height}", str(file)], check=True)
            pixels = file.read_bytes()[-width * height * 3 :]
        return [pixels[i : i + 3] for i in range(0, len(pixels), 3)]

    def tray(self):
        """The same, once it shows something and has stopped moving: the bar shifts its plugins about while it starts."""
        seen, since = None, 0

        def stands_still():
            nonlocal seen, since
            now = self.tray_now()
            if now and len(set(self.picture(now))) < 4:
                now = None
            if now != seen:
                seen, since = now, time.monotonic()
            return seen if time.monotonic() - since >= 0.5 else None

        return eventually(stands_still, "the bar has a tray that stands still", period=0.05)

    def point_elsewhere(self):
        """What the pointer rests on is highlighted and gets a tooltip, which is a window like the tray."""
        subprocess.run(["xdotool", "mousemove", "400", "400"], check=True)

    def click(self, button, offset=0):
        self.point_elsewhere()
        left, top, width, height = self.tray()
        x, y = left + width // 2 + offset, top + height // 2 + offset
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", str(button)], check=True)
        return x, y

    def test_an_item_that_was_there_first_appears_in_the_tray(self):
        probe = self.start_probe()
        with self.assertRaises(queue.Empty):
            probe.lines.get(timeout=1)
        self.start_bar()
        self.assertEqual(probe.next_line(), "hosted")
        name = f"org.kde.StatusNotifierItem-{probe.process.pid}-1"
        self.await_answer(lambda: output("busctl", "--user", "get-property", *WATCHER.split(), "RegisteredStatusNotifierItems").strip(),
                        f'as 1 "{name}/StatusNotifierItem"')
        probe.process.stdin.close()
        self.await_answer(lambda: output("busctl", "--user", "get-property", *WATCHER.split(), "RegisteredStatusNotifierItems").strip(), "as 0")

    def test_clicks_arrive_with_their_place_on_the_screen(self):
        self.start_bar()
        probe = self.start_probe()
        self.assertEqual(probe.next_line(), "hosted")
        for button, offset in ((1, 0), (1, 3), (2, -2)):
            x, y = self.click(button, offset)
            self.assertEqual(probe.next_line(), f'activate {x} {y} ""')

    def test_the_menu_opens_and_its_entries_can_be_chosen(self):
        self.start_bar()
        probe = self.start_probe()
        self.assertEqual(probe.next_line(), "hosted")
        for keys, line in ((("Up", "Right", "Return"), "chosen 5"), (("Down", "Return"), "chosen 3")):
            self.click(3)
            eventually(self.has_menu, "there is a menu")
            subprocess.run(["xdotool", "key", "--delay", "100", *keys], check=True)
            self.assertEqual(probe.next_line(), line)

    def test_each_image_looks_different(self):
        self.start_bar()
        probe = self.start_probe()
        self.assertEqual(probe.next_line(), "hosted")

        def shown():
            # The clock beside it pushes it aside when it shows a wider time.
            return self.picture(self.tray())

        active = shown()
        probe.tell("MenuLooking")
        self.await_answer(lambda: shown() != active, True)
        looking = shown()
        probe.tell("MenuIdle")
        self.await_answer(lambda: shown() not in (active, looking), True)
        probe.tell("MenuActive")
        self.await_answer(lambda: shown() == active, True)

    def test_the_bar_shows_the_drawing_for_its_size_in_its_own_colour(self):
        self.start_bar()
        probe = self.start_probe()
        self.assertEqual(probe.next_line(), "hosted")
        # The last is the bar's own.
        for size in (16, 24, 32, 22):
            self.set_icon_size(size)
            pixels = pathlib.Path(self.probe_command[1], "pixmaps", f"tarvik-active-symbolic-{size}.argb").read_bytes()
            drawing = [alpha / 255 for alpha in pixels[::4]]
            own_colour = next(pixels[i + 1 : i + 4] for i in range(0, len(pixels), 4) if pixels[i] == 255)

            def colour():
                return colour_of(drawing, size, self.tray_now(), self.picture)

            self.assertNotEqual(eventually(colour, f"the drawing of {size} pixels is in the tray", period=0.1), own_colour)

    @staticmethod
    def set_icon_size(size):
        for name, value in (("plugins/plugin-4/icon-size", size), ("panels/panel-1/size", size + 12)):
            subprocess.run(["xfconf-query", "--channel", "xfce4-panel", "--property", f"/{name}", "--create", "--type", "uint",
                            "--set", str(value)], check=True)

    def test_a_restarted_bar_shows_the_item_again(self):
        bar = self.start_bar()
        probe = self.start_probe()
        self.assertEqual(probe.next_line(), "hosted")
        bar.end()
        self.assertEqual(probe.next_line(), "alone")
        self.start_bar()
        self.assertEqual(probe.next_line(), "hosted")
        x, y = self.click(1)
        self.assertEqual(probe.next_line(), f'activate {x} {y} ""')


if __name__ == "__main__":
    if "TARVIK_DESKTOP" not in os.environ:
        desktop = str(pathlib.Path(__file__).resolve().parents[2] / "scripts" / "desktop")
        os.execv(desktop, [desktop, "--no-panel", "--", sys.executable, *sys.argv])
    TrayTest.probe_command = sys.argv[1:3]
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
