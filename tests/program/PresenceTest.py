#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What a person sees of Tarvik and does with it: tray item, panel, lock shortcut, notifications, on a real desktop."""
import ctypes
import json
import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import time
import urllib.parse

import program
from gi.repository import Gio, GLib
from program import TarvikTestCase, eventually, hardware, is_held, is_not_held, set_up_laptop

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from x_windows import x_windows

# Outside the virtual desktop, this would end the user's own bar.
BAR_CONFIGURATION = f"{os.environ['TARVIK_DESKTOP']}/xdg:/etc/xdg"
PROPERTIES = "org.freedesktop.DBus.Properties"
WATCHER = ("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher")
DAEMON = ("org.freedesktop.Notifications", "/org/freedesktop/Notifications", "org.freedesktop.Notifications")
TARVIK = ("com.morvanta.Tarvik", "/com/morvanta/Tarvik")
UI_NAME = "com.morvanta.TarvikUi"
# Below the middle of the switch, from the upper right corner of the panel.
SWITCH = (34, 80)
# Milliseconds within which a key that comes again counts as held.
REPETITION = 700


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False, timeout=program.PATIENCE).stdout.strip()


def call(service, path, interface, method, arguments=None):
    """What a method on the session bus answers; None for an error."""
    try:
        bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        return bus.call_sync(service, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, 5000, None).unpack()
    except GLib.Error:
        return None


def owner(name):
    """Who has the name on the session bus; None for nobody."""
    return call("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetNameOwner", GLib.Variant("(s)", (name,)))


def read_property(service, path, interface, name):
    answer = call(service, path, PROPERTIES, "Get", GLib.Variant("(ss)", (interface, name)))
    return answer[0] if answer else None


def write_setting(name, value):
    arguments = GLib.Variant("(ssv)", ("com.morvanta.Tarvik.Settings1", name, value))
    return call(*TARVIK, PROPERTIES, "Set", arguments) is not None


def press(*keys):
    subprocess.run(["xdotool", "key", "--delay", "30", *keys], check=True)


def click(x, y, button=1):
    subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", str(button)], check=True)


def rest_pointer():
    """Moves the pointer away: what it rests on is highlighted and gets a tooltip, which is a window, too."""
    subprocess.run(["xdotool", "mousemove", "400", "600"], check=True)


def geometry(window):
    """Left, top, width and height on the screen; None when it has just gone."""
    shell = output("xdotool", "getwindowgeometry", "--shell", window)
    found = [re.search(rf"^{name}=(-?\d+)$", shell, re.M) for name in ("X", "Y", "WIDTH", "HEIGHT")]
    return tuple(int(match[1]) for match in found) if all(found) else None


def panel():
    """The window of the open panel; empty while it is closed."""
    return "".join(x_windows("--name", "^Tarvik$"))


def colours(left, top, width, height):
    """How many there are in a part of the screen."""
    with tempfile.TemporaryDirectory() as directory:
        file = pathlib.Path(directory, "picture.ppm")
        subprocess.run(["scrot", "--silent", "--autoselect", f"{left},{top},{width},{height}", str(file)], check=True)
        pixels = file.read_bytes()[-width * height * 3:]
    return len({pixels[at:at + 3] for at in range(0, len(pixels), 3)})


def has_focus(window):
    # Not the active window: of one that has just closed and opened again the window manager may not have heard yet.
    return window == output("xdotool", "getwindowfocus", "-f")


def own_memory(pid):
    """Kilobytes that only this process has, and that are no part of a file."""
    rollup = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text(encoding="utf-8")
    return int(re.search(r"^Private_Dirty: +(\d+)", rollup, re.M)[1])


class PresenceTestCase(TarvikTestCase):
    def setUp(self):
        super().setUp()
        set_up_laptop()
        rest_pointer()
        self.may_log = []

    def present(self, settings=None):
        """Starts Tarvik and waits for its item; whatever it logs besides `may_log` is a failure."""
        if settings is not None:
            self.write_settings(settings)
        # An item of the last Tarvik looks just like that of the next one.
        eventually(lambda: not self.item_place(), "the tray is empty")
        self.tarvik = self.start_tarvik()
        self.addCleanup(self.assert_log)
        eventually(lambda: self.tarvik.status()["trayShown"], "the tray shows the item")
        return self.tarvik

    def assert_log(self):
        self.assertEqual([line for line in self.tarvik.log().splitlines() if line not in self.may_log], [])

    def item(self):
        return f"org.kde.StatusNotifierItem-{self.tarvik.process.pid}-1"

    def image(self):
        return self.shown("IconName")

    def shown(self, name):
        return read_property(self.item(), "/StatusNotifierItem", "org.kde.StatusNotifierItem", name)

    def item_place(self):
        """Where the tray shows an item; None while it shows none, or a tooltip or menu covers it."""
        windows = x_windows("--class", "wrapper")
        place = geometry(windows[0]) if len(windows) == 1 else None
        return place if place and place[2] > 10 and colours(*place) > 3 else None

    def tray(self):
        """Where the item is in the panel of the desktop, once that has stopped shifting its parts about."""
        rest_pointer()
        seen, since = None, 0

        def stands_still():
            nonlocal since, seen
            now = self.item_place()
            if now != seen:
                seen, since = now, time.monotonic()
            return seen and time.monotonic() - since > 0.5
        eventually(stands_still, "the tray stands still")
        left, top, width, height = seen
        return left + width // 2, top + height // 2

    def open_panel(self):
        click(*self.tray())
        eventually(panel, "the panel opens")
        window = panel()
        eventually(lambda: has_focus(window), "the panel has the focus")
        return window

    def windows_process(self):
        """The id of the process behind the panel; 0 for none."""
        answer = call("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetConnectionUnixProcessID", GLib.Variant("(s)", (UI_NAME,)))
        return answer[0] if answer else 0

    def assert_panel_closes(self):
        eventually(lambda: not panel(), "the panel closes")


class TrayTest(PresenceTestCase):
    def menu(self):
        """The entries' ids, states and whether they are enabled, by label, as a panel reads them."""
        layout = call(self.item(), "/MenuBar", "com.canonical.dbusmenu", "GetLayout", GLib.Variant("(iias)", (0, -1, [])))[1]
        entries = {}

        def collect(entry):
            identifier, properties, children = entry
            if "label" in properties:
                entries[properties["label"]] = (identifier, properties.get("toggle-state"), properties.get("enabled", True))
            for child in children:
                collect(child)
        collect(layout)
        return entries

    def choose(self, label):
        arguments = GLib.Variant("(isvu)", (self.menu()[label][0], "clicked", GLib.Variant("i", 0), 0))
        self.assertIsNotNone(call(self.item(), "/MenuBar", "com.canonical.dbusmenu", "Event", arguments))

    def test_the_image_follows_the_state(self):
        self.present()
        self.assertEqual(self.image(), "tarvik-looking-symbolic")
        self.programs.start("claude")
        eventually(lambda: self.image() == "tarvik-active-symbolic", "active")
        self.assertEqual((self.shown("Id"), self.shown("Title")), ("tarvik", "Tarvik — Awake"))
        self.assertEqual(self.shown("ToolTip")[2:], ("Tarvik — Awake", "Claude Code · charging 80%"))
        self.choose("Tarvik")
        eventually(lambda: self.image() == "tarvik-idle-symbolic", "idle")
        self.assertFalse(self.tarvik.status()["isAwake"])

    def test_the_menu_switches_and_starts_and_cancels_sessions(self):
        self.present()
        self.assertEqual(self.menu()["Tarvik"][1], 1)
        self.choose("1 hour")
        eventually(is_held, "held")
        self.assertEqual(self.tarvik.status()["reason"], "Awake — 60 min left")
        eventually(lambda: "Change session…" in self.menu(), "the menu offers to change the session")
        self.choose("Cancel timer")
        eventually(is_not_held, "released")
        eventually(lambda: "Cancel timer" not in self.menu(), "there is nothing to cancel any more")
        self.choose("Tarvik")
        eventually(lambda: self.menu()["Tarvik"][1] == 0, "unchecked")
        self.assertEqual(self.read_settings()["isEnabled"], False)

    def test_the_menu_quits(self):
        self.programs.start("claude")
        self.present()
        eventually(is_held, "held")
        self.choose("Quit Tarvik")
        self.assertEqual(self.tarvik.process.wait(timeout=program.PATIENCE), 0)
        eventually(is_not_held, "released")

    def test_the_menu_opens_the_panel(self):
        self.present()
        self.choose("Open Tarvik…")
        eventually(panel, "the panel opens")

    def test_the_menu_opens_the_settings(self):
        self.present()
        self.choose("Settings…")
        eventually(lambda: x_windows("--name", "^Tarvik Settings$"), "the settings window opens")

    def test_a_new_bar_gets_the_item_again(self):
        self.present()
        for restart in (["pkill", "-KILL", "-x", "xfce4-panel"], ["xfce4-panel", "--quit"]):
            subprocess.run(restart, check=True, capture_output=True)
            eventually(lambda: read_property(*WATCHER, "RegisteredStatusNotifierItems") is None, "the tray is gone")
            # While it is still on the bus, another bar leaves at once.
            eventually(lambda: owner("org.xfce.Panel") is None, "the bar is gone")
            eventually(lambda: not self.tarvik.status()["trayShown"], "Tarvik knows")
            successor = subprocess.Popen(
                ["xfce4-panel", "--disable-wm-check"], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                stderr=subprocess.DEVNULL, env={**os.environ, "NO_AT_BRIDGE": "1", "XDG_CONFIG_DIRS": BAR_CONFIGURATION})
            # It serves the tests that follow and ends with the virtual desktop.
            successor.returncode = 0
            eventually(lambda: f"{self.item()}/StatusNotifierItem" in (read_property(*WATCHER, "RegisteredStatusNotifierItems") or []),
                       "the new bar has the item")
            self.open_panel()
            press("Escape")
            self.assert_panel_closes()


class PanelTest(PresenceTestCase):
    def test_a_click_opens_it_beside_the_item_and_another_closes_it(self):
        self.present()
        left, top, width, _height = geometry(self.open_panel())
        x, y = self.tray()
        self.assertTrue(left <= x <= left + width, f"{left} to {left + width} is below {x}")
        self.assertTrue(y < top < y + 40, f"{top} is just below {y}")
        click(x, y)
        self.assert_panel_closes()

    def test_the_items_tooltip_does_not_cover_it(self):
        self.present()
        self.assertEqual(self.shown("ToolTip")[2], "Tarvik — Watching")
        self.open_panel()
        eventually(lambda: (self.shown("Title"), self.shown("ToolTip")[2:]) == ("", ("", "")), "there is nothing to show")
        press("Escape")
        self.assert_panel_closes()
        eventually(lambda: (self.shown("Title"), self.shown("ToolTip")[2]) == 2 * ("Tarvik — Watching",), "the tooltip is back")

    def test_a_second_start_opens_it_where_the_click_did(self):
        self.present()
        first = geometry(self.open_panel())
        press("Escape")
        self.assert_panel_closes()
        self.may_log = ["Tarvik [system] The UI process failed: it crashed with signal 9"]
        os.kill(self.windows_process(), signal.SIGKILL)
        eventually(lambda: not self.windows_process(), "the windows' process has gone, as it does after a while")
        subprocess.run(["xdotool", "mousemove", "5", "790"], check=True)
        subprocess.run([program.TARVIK], check=True, timeout=program.PATIENCE)
        eventually(panel, "the panel opens")
        self.assertEqual(geometry(panel()), first)

    def test_it_closes_when_another_window_is_used(self):
        self.present()
        self.open_panel()
        other = subprocess.Popen(["xev"], stdout=subprocess.DEVNULL)
        self.addCleanup(other.wait)
        self.addCleanup(other.kill)
        eventually(lambda: x_windows("--name", "Event Tester"), "the other window is there")
        subprocess.run(["xdotool", "windowactivate", *x_windows("--name", "Event Tester")], check=True)
        self.assert_panel_closes()

    def test_its_switch_switches_tarvik(self):
        self.programs.start("claude")
        self.present()
        eventually(is_held, "held")
        left, top, width, _height = geometry(self.open_panel())
        switch = (left + width - SWITCH[0], top + SWITCH[1])
        click(*switch)
        eventually(is_not_held, "released")
        self.assertFalse(self.read_settings()["isEnabled"])
        click(*switch)
        eventually(is_held, "held again")
        self.assertTrue(self.read_settings()["isEnabled"])

    def test_its_menu_starts_changes_and_cancels_a_session(self):
        self.present()
        self.open_panel()
        for keys, reason in ((("Down", "Return"), "Awake — 60 min left"), (("Down", "Down", "Return"), "Awake — 120 min left"),
                             (("Down",) * 4 + ("Return",), "Dozing — nothing to watch")):
            press("Escape")
            self.assert_panel_closes()
            self.open_panel()
            press("Down", "Down", "Return", *keys)
            eventually(lambda wanted=reason: self.tarvik.status()["reason"] == wanted, reason)
        eventually(is_not_held, "released")

    def test_a_killed_windows_process_is_replaced_at_the_next_click(self):
        self.programs.start("claude")
        self.present()
        eventually(is_held, "held")
        self.open_panel()
        first = self.windows_process()
        os.kill(first, signal.SIGKILL)
        self.assert_panel_closes()
        self.assertTrue(is_held())
        self.may_log = ["Tarvik [system] The UI process failed: it crashed with signal 9"]
        eventually(lambda: self.may_log[0] in self.tarvik.log(), "it is logged")
        self.open_panel()
        self.assertNotEqual(self.windows_process(), first)
        self.assertTrue(is_held())
        self.wait_for_journal("on: Awake · 1 agent")

    def test_a_windows_process_that_hangs_makes_way_for_another(self):
        self.present()
        self.open_panel()
        hung = self.windows_process()
        os.kill(hung, signal.SIGSTOP)
        click(*self.tray())
        self.may_log = [
            "Tarvik [system] The UI process does not answer and is killed",
            "Tarvik [system] The UI process failed: it crashed with signal 9",
        ]
        for line in self.may_log:
            eventually(lambda line=line: line in self.tarvik.log(), "it is logged")
        self.assertEqual(self.tarvik.status()["reason"], "Dozing — nothing to watch")
        self.assert_panel_closes()
        self.open_panel()
        self.assertNotEqual(self.windows_process(), hung)

    def test_it_goes_with_tarvik_however_that_ends(self):
        for number in (signal.SIGTERM, signal.SIGKILL):
            with self.subTest(number.name):
                self.present()
                self.open_panel()
                windows = self.windows_process()
                self.tarvik.end(number)
                eventually(lambda pid=windows: not os.path.exists(f"/proc/{pid}"), "the UI process ends", 2)
                self.assertEqual(panel(), "")

    def test_opening_it_often_costs_no_memory(self):
        self.present()
        self.open_panel()
        press("Escape")
        self.assert_panel_closes()
        at = GLib.Variant("(ii)", self.tray())

        def open_and_close(times):
            for _ in range(times):
                for shown in (True, False):
                    call(self.item(), "/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate", at)
                    eventually(lambda wanted=shown: bool(panel()) == wanted, f"shown: {shown}")
        open_and_close(10)
        processes = (self.tarvik.process.pid, self.windows_process())
        before = [own_memory(pid) for pid in processes]
        open_and_close(100)
        after = [own_memory(pid) for pid in processes]
        self.assertEqual(processes[1], self.windows_process())
        # What one opening needs is many times as much.
        self.assertLess(after[0] - before[0], 200, "kB more of Tarvik")
        self.assertLess(after[1] - before[1], 500, "kB more of its UI process")

    def test_a_setting_that_is_written_takes_effect_at_once(self):
        self.programs.start("claude")
        self.present()
        eventually(is_held, "held")
        self.assertTrue(write_setting("isEnabled", GLib.Variant("b", False)))
        eventually(is_not_held, "released", 1)
        self.assertTrue(write_setting("isEnabled", GLib.Variant("b", True)))
        eventually(is_held, "held again", 1)


class SessionManager:
    """The desktop's session manager, as far as locking goes: locks nothing, but counts."""

    XML = """<node><interface name="org.xfce.Session.Manager">
      <method name="Lock"><arg type="b" direction="out"/></method></interface></node>"""

    def __init__(self):
        self.locks = 0
        self.bus = Gio.DBusConnection.new_for_address_sync(
            os.environ["DBUS_SESSION_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        interface = Gio.DBusNodeInfo.new_for_xml(self.XML).interfaces[0]
        self.bus.register_object("/org/xfce/SessionManager", interface, self.called, None, None)
        self.bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "RequestName",
                           GLib.Variant("(su)", ("org.xfce.SessionManager", 0)), None, 0, -1, None)

    def called(self, _bus, _sender, _path, _interface, _method, _arguments, invocation):
        self.locks += 1
        invocation.return_value(GLib.Variant("(b)", (True,)))

    def has_locked(self, times):
        while GLib.MainContext.default().iteration(False):
            pass
        return self.locks == times

    def stop(self):
        if not self.bus.is_closed():
            self.bus.close_sync()


class OtherProgram:
    """Another program that has taken the lock shortcut for itself."""

    def __init__(self):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))
        key = self.x11.XKeysymToKeycode(self.display, ctypes.c_ulong(ord("a")))
        alt_and_super = 0x08 | 0x40
        self.x11.XGrabKey(self.display, key, alt_and_super, root, 1, 1, 1)
        self.x11.XSync(self.display, 0)

    def was_pressed(self):
        return self.x11.XPending(self.display) > 0

    def stop(self):
        self.x11.XCloseDisplay(self.display)


class Keyboard:
    """How long nobody has touched it, by the clock of the X server, which is the one that dates the presses."""

    class Information(ctypes.Structure):
        """XScreenSaverInfo."""
        _fields_ = [("window", ctypes.c_ulong), ("state", ctypes.c_int), ("kind", ctypes.c_int), ("til_or_since", ctypes.c_ulong),
                    ("idle", ctypes.c_ulong), ("event_mask", ctypes.c_ulong)]

    def __init__(self):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.screen_saver = ctypes.CDLL("libXss.so.1")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        self.root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))

    def rested(self):
        """Milliseconds."""
        information = self.Information()
        assert self.screen_saver.XScreenSaverQueryInfo(self.display, self.root, ctypes.byref(information))
        return information.idle

    def close(self):
        self.x11.XCloseDisplay(self.display)


class ShortcutTest(PresenceTestCase):
    def setUp(self):
        super().setUp()
        self.session_manager = SessionManager()
        self.addCleanup(self.session_manager.stop)

    def lock_key(self):
        line = re.search(r"^ *Lock key +(.*)$", output(program.TOOL, "status"), re.M)
        return line and line[1]

    def test_it_locks_whatever_the_lock_keys_are(self):
        self.present()
        eventually(lambda: self.lock_key() == "registered (X11)", "the shortcut is Tarvik's")
        keyboard = Keyboard()
        self.addCleanup(keyboard.close)
        for number, toggled in enumerate(((), ("Num_Lock",), ("Caps_Lock",), ("Num_Lock",)), start=1):
            if toggled:
                press(*toggled)
            # The same key sooner would be a key that is held.
            eventually(lambda: keyboard.rested() > REPETITION, "the keyboard rests")
            press("super+alt+a")
            eventually(lambda times=number: self.session_manager.has_locked(times), f"locked {number} times: {output('xset', 'q')}")
        press("Caps_Lock")

    def test_it_ends_with_tarvik(self):
        self.present()
        eventually(lambda: self.lock_key() == "registered (X11)", "the shortcut is Tarvik's")
        self.tarvik.end()
        other = OtherProgram()
        self.addCleanup(other.stop)
        press("super+alt+a")
        eventually(other.was_pressed, "the other program has it")

    def test_another_program_that_has_it_keeps_it(self):
        other = OtherProgram()
        self.addCleanup(other.stop)
        self.present()
        eventually(lambda: self.lock_key() == "taken by another program (X11)", f"said so: {self.lock_key()}")
        press("super+alt+a")
        eventually(other.was_pressed, "the other program hears of it")
        self.assertIsNotNone(self.tarvik.status())
        self.assertTrue(self.session_manager.has_locked(0))

    def test_lock_and_leave_locks_and_closes_the_panel(self):
        self.present()
        self.open_panel()
        press("Down", "Down", "Down", "Return")
        eventually(lambda: self.session_manager.has_locked(1), "locked")
        self.assert_panel_closes()

    def test_a_desktop_without_a_locker_is_reported(self):
        self.session_manager.stop()
        self.may_log = ["Tarvik [system] Could not lock the screen: no screen locker could be reached"]
        self.present()
        self.open_panel()
        press("Down", "Down", "Down", "Return")
        eventually(lambda: self.may_log[0] in self.tarvik.log(), "it is logged")
        self.assert_panel_closes()


class NotificationsTest(PresenceTestCase):
    def setUp(self):
        super().setUp()
        self.said = self.config / "notifications"
        with self.said.open("w", encoding="utf-8") as file:
            monitor = subprocess.Popen(
                ["busctl", "--user", "--json=short", "monitor", "--match=interface='org.freedesktop.Notifications'"], stdout=file,
                stderr=subprocess.DEVNULL)
        self.addCleanup(monitor.wait)
        self.addCleanup(monitor.kill)
        # What is asked here itself is the proof that the monitor listens.
        eventually(lambda: call(*DAEMON, "GetServerInformation") and self.said.stat().st_size > 0, "it listens")

    def calls(self, member):
        """The arguments of the calls that the notification daemon got, oldest first."""
        # The last line may still be on its way.
        messages = [json.loads(line) for line in self.said.read_bytes().split(b"\n")[:-1]]
        return [message["payload"]["data"] for message in messages
                if message["type"] == "method_call" and message["member"] == member]

    def notifications(self):
        return [(arguments[3], arguments[4]) for arguments in self.calls("Notify")]

    def wait_for(self, *notifications):
        eventually(lambda: self.notifications() == list(notifications), f"{notifications}, not {self.notifications()}")

    def test_a_pause_is_announced_by_default_and_escaped(self):
        self.programs.start("claude")
        self.present({"batteryLimitEnabled": True, "batteryThreshold": 20})
        eventually(is_held, "held")
        hardware("mains", "off")
        hardware("battery", 15, "discharging")
        eventually(is_not_held, "released")
        self.wait_for(("Tarvik paused", "Paused — battery 15% &lt; 20%"))
        name, replaces, icon, _title, _body, actions, hints, _expiry = self.calls("Notify")[0]
        self.assertEqual((name, replaces, actions), ("Tarvik", 0, []))
        self.assertTrue(icon.startswith("file:///"), f"no icon theme knows a bundle that is not installed: {icon}")
        self.assertTrue(os.path.exists(urllib.parse.unquote(icon.removeprefix("file://"))), icon)
        self.assertEqual(hints["desktop-entry"]["data"], "com.morvanta.Tarvik")

    def test_starts_and_stops_are_announced_on_request(self):
        self.present({"notifyOnToggle": True, "notifyOnPause": False})
        agent = self.programs.start("claude")
        eventually(is_held, "held")
        agent.kill()
        agent.wait()
        eventually(is_not_held, "released")
        self.wait_for(("Tarvik is keeping your Mac awake", "Awake · 1 agent"),
                      ("Tarvik stopped keeping your Mac awake", "Dozing — nothing to watch"))

    def test_nothing_is_asked_or_said_when_nothing_is_to_be_announced(self):
        self.programs.start("claude")
        self.present({"notifyOnToggle": False, "notifyOnPause": False, "requireAC": True})
        eventually(is_held, "held")
        hardware("mains", "off")
        eventually(is_not_held, "released")
        call(*DAEMON, "CloseNotification", GLib.Variant("(u)", (4711,)))
        eventually(lambda: self.calls("CloseNotification"), "everything has been heard")
        self.assertEqual((self.calls("GetCapabilities"), self.notifications()), ([], []))

    def test_permission_is_asked_for_at_the_start(self):
        self.present()
        eventually(lambda: self.calls("GetCapabilities"), "asked")
        self.assertEqual(self.notifications(), [])


if __name__ == "__main__":
    program.main()
