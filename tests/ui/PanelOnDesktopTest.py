#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""The panel of the built UI process on a real window manager, used as a person would. Runs inside scripts/desktop."""
import ctypes
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

from windows import DEADLINE, WindowsTestCase, x_focus

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from waiting import eventually
from x_windows import x_windows

MARGIN = 6
PANEL_COLOUR = bytes((0xFB, 0xFB, 0xFC))


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False, timeout=DEADLINE).stdout


def panel_window():
    return "".join(x_windows("--name", "^Tarvik$"))


def top_of_work_area():
    """Below the desktop's panel, once the window manager knows of that."""
    return eventually(lambda: int(output("xprop", "-root", "_NET_WORKAREA").split(",")[1]), "the desktop has a bar")


def is_composited():
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    display = ctypes.c_void_p(x11.XOpenDisplay(None))
    x11.XInternAtom.restype = x11.XGetSelectionOwner.restype = ctypes.c_ulong
    owner = x11.XGetSelectionOwner(display, ctypes.c_ulong(x11.XInternAtom(display, b"_NET_WM_CM_S0", 0)))
    x11.XCloseDisplay(display)
    return bool(owner)


class WindowAttributes(ctypes.Structure):
    """XSetWindowAttributes"""
    _fields_ = [(name, ctypes.c_ulong) for name in ("background_pixmap", "background_pixel", "border_pixmap", "border_pixel")] \
        + [(name, ctypes.c_int) for name in ("bit_gravity", "win_gravity", "backing_store")] \
        + [("backing_planes", ctypes.c_ulong), ("backing_pixel", ctypes.c_ulong), ("save_under", ctypes.c_int),
           ("event_mask", ctypes.c_long), ("do_not_propagate_mask", ctypes.c_long), ("override_redirect", ctypes.c_int),
           ("colormap", ctypes.c_ulong), ("cursor", ctypes.c_ulong)]


class UnseenWindow:
    """Lies below all others while this is entered, as Mutter's guard window does."""
    INPUT_ONLY = 2
    OVERRIDE_REDIRECT = 1 << 9

    def __enter__(self):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = self.x11.XCreateWindow.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))
        window = ctypes.c_ulong(self.x11.XCreateWindow(
            self.display, root, 0, 0, 4000, 4000, 0, 0, self.INPUT_ONLY, None, ctypes.c_ulong(self.OVERRIDE_REDIRECT),
            ctypes.byref(WindowAttributes(override_redirect=1))))
        self.x11.XLowerWindow(self.display, window)
        self.x11.XMapWindow(self.display, window)
        self.x11.XSync(self.display, 0)
        return window.value

    def __exit__(self, *_):
        self.x11.XCloseDisplay(self.display)


class PanelOnDesktopTest(WindowsTestCase):
    def setUp(self):
        self.start_windows()

    def click_tray(self, x=900, y=14):
        self.show("ShowPanel", "iis", str(x), str(y), "")

    def open(self, *at):
        self.click_tray(*at)
        window = eventually(panel_window, "the panel opens")
        eventually(lambda: x_focus() == window, "the panel gets the focus")
        return window

    def press(self, *keys):
        for key in keys:
            subprocess.run(["xdotool", "key", key], check=True, timeout=DEADLINE)

    def assert_closed(self):
        eventually(lambda: not panel_window(), "the panel closes")

    def surface(self, window):
        """x, y, width, height; without a compositor, as here, the window has no shadow around the surface."""
        geometry = output("xdotool", "getwindowgeometry", "--shell", window)
        values = {key: int(value) for key, value in re.findall(r"(\w+)=(-?\d+)", geometry)}
        return values["X"], values["Y"], values["WIDTH"], values["HEIGHT"]

    def test_opens_below_the_click(self):
        top = top_of_work_area()
        x, y, width, _height = self.surface(self.open())
        self.assertEqual((x, y, width), (900 - 150, top + MARGIN, 300))

    def test_opens_below_the_pointer_when_the_tray_counts_from_its_own_corner(self):
        top = top_of_work_area()
        self.point(900, 14)
        x, y, width, _height = self.surface(self.open(0, 25))
        self.assertEqual((x, y, width), (900 - 150, top + MARGIN, 300))

    def point(self, x, y):
        """Moves the pointer, for as long as the test takes."""
        self.addCleanup(subprocess.run, ["xdotool", "mousemove", "640", "400"], check=True, timeout=DEADLINE)
        subprocess.run(["xdotool", "mousemove", str(x), str(y)], check=True, timeout=DEADLINE)

    def test_opens_at_the_tray_item_that_was_activated_with_the_keyboard(self):
        self.point(100, 790)
        self.assertEqual(self.surface(self.open(900, 14))[:2], (900 - 150, top_of_work_area() + MARGIN))

    def open_at_tray(self, x, y):
        self.show("ShowPanelAtTray", "iis", str(x), str(y), "")
        return eventually(panel_window, "the panel opens")

    def test_a_second_start_opens_it_where_the_tray_was(self):
        self.point(100, 790)
        self.assertEqual(self.surface(self.open_at_tray(900, 14))[:2], (900 - 150, top_of_work_area() + MARGIN))

    def test_a_second_start_opens_it_where_trays_mostly_are(self):
        top = top_of_work_area()
        self.point(100, 790)
        for x, y in ((0, 0), (3, 25)):
            left, upper, width, _height = self.surface(self.open_at_tray(x, y))
            self.assertEqual((left + width, upper), (1280 - MARGIN, top + MARGIN))
            self.press("Escape")
            self.assert_closed()

    def test_a_second_start_leaves_it_open(self):
        window = self.open_at_tray(0, 0)
        self.open_at_tray(0, 0)
        # It would be closed by now.
        self.press("Down")
        self.assertEqual(panel_window(), window)

    def test_stays_on_the_screen(self):
        x, _y, width, _height = self.surface(self.open(1279, 14))
        self.assertEqual(x + width, 1280 - MARGIN)

    def test_opens_above_a_click_at_the_bottom(self):
        _x, y, _width, height = self.surface(self.open(600, 799))
        self.assertEqual(y + height, 800 - MARGIN)

    def height_in(self, state):
        """How high the panel is when it has nothing to adapt to."""
        self.tarvik.enter(state)
        window = self.open()
        height = self.surface(window)[3]
        self.press("Escape")
        self.assert_closed()
        return height

    def test_has_room_for_what_changes_while_it_is_open(self):
        enough, little = self.height_in("long"), self.height_in("asleep")
        self.assertGreater(enough, little)
        window = self.open()
        for state, height in (("long", enough), ("asleep", little), ("long", enough)):
            self.tarvik.enter(state)
            eventually(lambda wanted=height: self.surface(window)[3] == wanted, f"the panel is as high as {state} needs")

    @staticmethod
    def run_window_manager(compositor):
        before = output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK")
        process = subprocess.Popen(["xfwm4", "--replace", f"--compositor={compositor}"], env={**os.environ, "NO_AT_BRIDGE": "1"},
                                   start_new_session=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        # It serves the tests that follow and ends with the virtual desktop.
        process.returncode = 0
        # Between the two there is none.
        eventually(lambda: "window id" in (now := output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK")) and now != before,
                   "the window manager is up")
        eventually(lambda: is_composited() == (compositor == "on"), f"the compositor is {compositor}")

    def test_its_shadow_may_lie_on_bars_and_beyond_the_screen(self):
        self.addCleanup(self.run_window_manager, "off")
        self.run_window_manager("on")
        window = self.open(900, 790)
        extents = output("xprop", "-id", window, "_GTK_FRAME_EXTENTS").partition("=")[2]
        left, right, top, bottom = map(int, extents.split(","))
        self.assertGreater(min(left, right, bottom), 0)
        x, y, width, height = self.surface(window)
        self.assertEqual((x + left, width - left - right), (900 - 150, 300))
        self.assertEqual(y + height - bottom, 800 - MARGIN)
        self.assertGreaterEqual(top, 0)

    def test_its_shadow_lets_clicks_through(self):
        self.addCleanup(self.run_window_manager, "off")
        self.run_window_manager("on")
        below = pathlib.Path(self.temporary_file())
        with below.open("w", encoding="utf-8") as events:
            self.start("xev", "-geometry", "1200x600+20+100", stdout=events)
        eventually(lambda: x_windows("--name", "^Event Tester$"), "xev starts")
        x, y, _width, height = self.surface(self.open(900, 14))
        self.click_at(x + 11, y + height // 2)
        eventually(lambda: "ButtonPress event" in below.read_text(encoding="utf-8"), "the window behind it gets the click")
        self.assert_closed()

    def temporary_file(self):
        file = tempfile.NamedTemporaryFile()
        self.addCleanup(file.close)
        return file.name

    def click_at(self, x, y):
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", "1"], check=True, timeout=DEADLINE)

    def test_a_click_on_the_bare_desktop_closes_it(self):
        self.addCleanup(self.run_window_manager, "off")
        for compositor in "off", "on":
            self.run_window_manager(compositor)
            self.open()
            self.click_at(300, 600)
            self.assert_closed()
            # Nothing of that is left for the next time.
            self.open()
            self.press("Escape")
            self.assert_closed()

    def test_a_click_on_a_window_that_nobody_sees_closes_it(self):
        with UnseenWindow() as unseen:
            self.open()
            subprocess.run(["xdotool", "mousemove", "300", "600"], check=True, timeout=DEADLINE)
            self.assertIn(f"window:{unseen}", output("xdotool", "getmouselocation"))
            self.click_at(300, 600)
            self.assert_closed()

    def test_the_wheel_on_the_bare_desktop_does_not_close_it(self):
        window = self.open()
        # Sideways: up and down, this window manager goes to another workspace.
        subprocess.run(["xdotool", "mousemove", "300", "600", "click", "6", "click", "7"], check=True, timeout=DEADLINE)
        self.press("Down")
        self.assertEqual(panel_window(), window)

    def test_is_not_in_task_bars(self):
        states = output("xprop", "-id", self.open(), "_NET_WM_STATE")
        self.assertIn("_NET_WM_STATE_SKIP_TASKBAR", states)

    def test_another_click_closes_it(self):
        self.open()
        self.click_tray()
        self.assert_closed()
        self.open()

    def test_escape_closes_it(self):
        self.open()
        self.press("Escape")
        self.assert_closed()

    def test_closes_when_another_window_gets_the_focus(self):
        self.open()
        self.start("xev", stdout=subprocess.DEVNULL)
        other = eventually(lambda: x_windows("--name", "^Event Tester$"), "xev starts")
        subprocess.run(["xdotool", "windowactivate", *other], check=True, timeout=DEADLINE)
        self.assert_closed()

    def test_the_keyboard_starts_a_session(self):
        self.open()
        self.press("Down", "Down", "Return")
        self.press("Down", "Return")
        self.assertEqual(self.tarvik.request(), "SetTimedSession 60")

    def test_the_switch_is_flipped_by_mouse(self):
        x, y, width, _height = self.surface(self.open())
        subprocess.run(["xdotool", "mousemove", str(x + width - 34), str(y + 80), "click", "1"], check=True, timeout=DEADLINE)
        self.assertEqual(self.tarvik.request(), "set isEnabled false")

    def test_lock_and_leave_locks_and_closes(self):
        self.open()
        self.press("Down", "Down", "Down", "Return")
        self.assertEqual(self.tarvik.request(), "LockScreen")
        self.assert_closed()

    def colour_at(self, x, y):
        with tempfile.NamedTemporaryFile(suffix=".ppm") as picture:
            subprocess.run(["scrot", "--overwrite", "--silent", "--autoselect", f"{x},{y},1,1", picture.name], check=True)
            return picture.read()[-3:]

    def test_what_was_under_the_pointer_is_not_highlighted_the_next_time(self):
        x, y, width, height = self.surface(self.open())
        beside_the_last_title = (x + width - 40, y + height - 20)
        eventually(lambda: self.colour_at(*beside_the_last_title) == PANEL_COLOUR, "the panel is drawn")
        subprocess.run(["xdotool", "mousemove", *map(str, beside_the_last_title)], check=True, timeout=DEADLINE)
        eventually(lambda: self.colour_at(*beside_the_last_title) != PANEL_COLOUR, "the row is highlighted")
        self.press("Escape")
        self.assert_closed()
        subprocess.run(["xdotool", "mousemove", "100", "700"], check=True, timeout=DEADLINE)
        self.open()
        eventually(lambda: self.colour_at(*beside_the_last_title) == PANEL_COLOUR, "the row is no longer highlighted")

    def test_quit_ends_tarvik_and_with_it_the_windows(self):
        self.open()
        self.press("Up", "space")
        self.assertEqual(self.tarvik.request(), "Quit")
        self.assertEqual(self.ui.wait(DEADLINE), 0)


if __name__ == "__main__":
    unittest.main()
