#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""The panel of the built UI process on a real Wayland compositor with a layer shell, used as a person would."""
import select
import signal
import unittest

from sway import BAR_HEIGHT
from virtual_seat import VirtualSeat
from wayland_windows import WaylandWindowsTestCase
from windows import DEADLINE, eventually

MARGIN = 6
WIDTH = 300
SCREEN_WIDTHS = {"HEADLESS-1": 1280, "HEADLESS-2": 1024}
PANEL_COLOUR = bytes((0xFB, 0xFB, 0xFC))


class PanelTest(WaylandWindowsTestCase):
    def show_panel(self, x, y):
        self.show("ShowPanel", "iis", str(x), str(y), "")

    def open(self, x=900, y=14, screen="HEADLESS-1"):
        """Where the panel comes up on the screen after a click at a point of the desktop."""
        self.sway.seat.move(x, y)
        self.show_panel(x, y)
        return self.await_surface(screen)

    def surface(self, screen="HEADLESS-1", scale=1):
        """x, y, width, height of the panel with its border but without its shadow, in pixels; None without it."""
        rows = self.sway.rows(screen, scale)
        inside = [at for at, row in enumerate(rows) if PANEL_COLOUR * 9 in row]
        if not inside:
            return None
        left = min(rows[at].find(PANEL_COLOUR * 9) for at in inside) // 3
        right = max(rows[at].rfind(PANEL_COLOUR * 9) for at in inside) // 3 + 9
        return left - scale, inside[0] - scale, right - left + 2 * scale, inside[-1] - inside[0] + 1 + 2 * scale

    def await_surface(self, screen="HEADLESS-1"):
        return eventually(lambda: self.surface(screen), "the panel opens")

    def assert_closed(self, screen="HEADLESS-1"):
        eventually(lambda: not self.surface(screen), "the panel closes")
        self.assertIsNone(self.ui.poll())

    def press(self, *keys):
        self.sway.seat.press(*keys)


class PanelAtTheBottomTest(PanelTest):
    bar = "bottom"

    def test_opens_above_the_bar_and_keeps_to_it(self):
        _x, y, _width, height = self.open(600, 790)
        self.assertEqual(y + height, 800 - BAR_HEIGHT - MARGIN)
        self.tarvik.enter("asleep")
        _x, y, _width, smaller = eventually(lambda: (now := self.surface()) and now[3] < height and now, "the panel shrinks")
        self.assertEqual(y + smaller, 800 - BAR_HEIGHT - MARGIN)


class PanelOnPlasma5Test(PanelTest):
    environment = {"KDE_SESSION_VERSION": "5"}

    def test_keeps_clear_of_bars_that_only_plasma_knows_of(self):
        plasma = self.start_fake("fake_plasmashell.py", "0", "50", "1280", "750")
        _x, y, _width, _height = self.open()
        self.assertEqual(plasma.stdout.readline(), "HEADLESS-1\n")
        self.assertEqual(y, BAR_HEIGHT + 50 + MARGIN)

    def test_a_compositor_that_stands_still_is_waited_for(self):
        plasma = self.start_fake("fake_plasmashell.py", "1280", "50", "1024", "718")
        self.sway.seat.move(1280 + 500, 14)
        self.sway.processes[0].send_signal(signal.SIGSTOP)
        try:
            self.show_panel(500, 14)
            asked, _, _ = select.select([plasma.stdout], [], [], 0.5)
        finally:
            self.sway.processes[0].send_signal(signal.SIGCONT)
        self.assertFalse(asked)
        self.assertEqual(plasma.stdout.readline(), "HEADLESS-2\n")

    def test_opens_without_an_answer(self):
        self.assertEqual(self.open()[1], BAR_HEIGHT + MARGIN)


class PanelAtTheTopTest(PanelTest):
    def test_opens_below_the_click_and_the_bar(self):
        x, y, width, _height = self.open(900, 14)
        self.assertEqual((x, y, width), (900 - WIDTH // 2, BAR_HEIGHT + MARGIN, WIDTH))

    def test_stays_on_the_screen(self):
        x, _y, width, _height = self.open(1275, 14)
        self.assertEqual(x + width, 1280 - MARGIN)
        self.press("Escape")
        self.assert_closed()
        self.assertEqual(self.open(3, 14)[0], MARGIN)

    def test_follows_the_height_of_its_content(self):
        x, y, width, height = self.open()
        self.tarvik.enter("asleep")
        smaller = eventually(lambda: (now := self.surface()) and now[3] < height and now, "the panel shrinks")
        self.assertEqual(smaller[:3], (x, y, width))
        self.tarvik.enter("awake")
        eventually(lambda: self.surface() == (x, y, width, height), "the panel grows again")

    def test_opens_at_the_pointer_when_the_tray_counts_from_its_own_corner(self):
        self.sway.seat.move(1280 + 500, 14)
        self.show_panel(500, 14)
        x, y, _width, _height = self.await_surface("HEADLESS-2")
        self.assertEqual((x, y), (500 - WIDTH // 2, BAR_HEIGHT + MARGIN))
        self.assertIsNone(self.surface("HEADLESS-1"))

    def test_opens_at_the_click_when_there_is_no_pointer(self):
        self.sway.seat.close()
        self.sway.seat = VirtualSeat(*self.sway.seat.size, has_pointer=False)
        self.show_panel(1280 + 500, 14)
        x, y, _width, _height = self.await_surface("HEADLESS-2")
        self.assertEqual((x, y), (500 - WIDTH // 2, BAR_HEIGHT + MARGIN))

    def test_a_second_start_opens_it_at_the_tray_and_not_at_the_pointer(self):
        self.sway.seat.move(200, 790)
        self.show("ShowPanelAtTray", "iis", "900", "14", "")
        self.assertEqual(self.await_surface()[:2], (900 - WIDTH // 2, BAR_HEIGHT + MARGIN))
        self.press("Escape")
        self.assert_closed()
        self.show("ShowPanelAtTray", "iis", "0", "0", "")
        # Wayland has no first screen; which one Qt takes for it depends on the compositor.
        end, (x, y, width, _height) = eventually(
            lambda: next(((end, found) for screen, end in SCREEN_WIDTHS.items() if (found := self.surface(screen))), None),
            "the panel opens")
        self.assertEqual((x + width, y), (end - MARGIN, BAR_HEIGHT + MARGIN))

    def test_escape_closes_it(self):
        self.open()
        self.press("Escape")
        self.assert_closed()

    def test_another_click_on_the_tray_closes_it(self):
        self.open()
        self.show_panel(900, 14)
        self.assert_closed()
        self.open()

    def test_a_click_on_the_desktop_closes_it(self):
        self.open()
        self.sway.seat.click(200, 600)
        self.assert_closed()

    def test_a_click_on_the_bar_closes_it(self):
        self.open()
        self.sway.seat.click(200, 14)
        self.assert_closed()

    def test_a_click_on_the_other_screen_closes_it(self):
        self.open()
        self.sway.seat.click(1280 + 200, 600)
        self.assert_closed()

    def test_a_click_on_its_shadow_closes_it(self):
        x, y, width, height = self.open()
        self.sway.seat.click(x + width + 10, y + height // 2)
        self.assert_closed()

    def test_the_switch_is_flipped_by_mouse(self):
        x, y, width, _height = self.open()
        self.sway.seat.click(x + width - 34, y + 80)
        self.assertEqual(self.tarvik.request(), "set isEnabled false")

    def test_the_keyboard_starts_a_session(self):
        self.open()
        self.press("Down", "Down", "Return")
        self.press("Down", "Return")
        self.assertEqual(self.tarvik.request(), "SetTimedSession 60")

    def test_lock_and_leave_locks_and_closes(self):
        self.open()
        self.press("Down", "Down", "Down", "Return")
        self.assertEqual(self.tarvik.request(), "LockScreen")
        self.assert_closed()

    def test_quit_ends_tarvik_and_with_it_the_windows(self):
        self.open()
        self.press("Up", "space")
        self.assertEqual(self.tarvik.request(), "Quit")
        self.assertEqual(self.ui.wait(DEADLINE), 0)
        # Nor has the compositor anything to complain of.
        self.assertNotIn("error", self.ui_log.read_text(encoding="utf-8"))

    def test_is_drawn_at_the_scale_of_the_screen(self):
        self.sway.tell("output", "HEADLESS-1", "scale", "2")
        eventually(lambda: len(self.sway.rows()) == 400, "the screen is scaled")
        self.open(400, 14)
        x, y, width, height = self.surface(scale=2)
        self.assertEqual((x, y, width), (2 * (400 - WIDTH // 2), 2 * (BAR_HEIGHT + MARGIN), 2 * WIDTH))
        rows = self.sway.rows(scale=2)[y:y + height]
        doubled = all(upper == lower for upper, lower in zip(rows[::2], rows[1::2]))
        self.assertFalse(doubled, "every row is there twice")


if __name__ == "__main__":
    unittest.main()
