#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""The built UI process on a private bus, with tarvik-offline: when it comes, and when it leaves."""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

from gi.repository import Gio, GLib

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from offline import Offline

UI = os.environ["TARVIK_UI"]
NAME = "com.morvanta.TarvikUi"
DEADLINE = 30


class TarvikUiTest(unittest.TestCase):
    def setUp(self):
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.tarvik = Offline(UI)
        self.addCleanup(self.tarvik.end)

    def end(self, process):
        process.kill()
        process.wait()
        for stream in (process.stdin, process.stdout, process.stderr):
            if stream:
                stream.close()

    def start(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.cache = pathlib.Path(directory.name) / "cache"
        process = subprocess.Popen([UI], stderr=subprocess.PIPE, text=True,
                                   env={**os.environ, "XDG_RUNTIME_DIR": directory.name, "XDG_CACHE_HOME": str(self.cache)})
        self.addCleanup(self.end, process)
        return process

    def owner(self):
        return self.bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "NameHasOwner",
                                  GLib.Variant("(s)", (NAME,)), None, 0, -1, None).unpack()[0]

    def await_owner(self, expected=True):
        loop = GLib.MainLoop()
        seen = []
        callback = lambda *_: (seen.append(True), loop.quit())
        watch = Gio.bus_watch_name_on_connection(self.bus, NAME, Gio.BusNameWatcherFlags.NONE,
                                                 callback if expected else None, None if expected else callback)
        GLib.timeout_add_seconds(DEADLINE, loop.quit)
        loop.run()
        Gio.bus_unwatch_name(watch)
        self.assertTrue(seen, f"the name did not become {'owned' if expected else 'free'}")

    def show_panel(self):
        self.bus.call_sync(NAME, "/com/morvanta/TarvikUi", "com.morvanta.TarvikUi.Windows1", "ShowPanel",
                           GLib.Variant("(iis)", (100, 100, "")), None, 0, -1, None)

    def show_settings(self):
        self.bus.call_sync(NAME, "/com/morvanta/TarvikUi", "com.morvanta.TarvikUi.Windows1", "ShowSettings",
                           GLib.Variant("(s)", ("",)), None, 0, -1, None)

    def test_answers_until_tarvik_vanishes(self):
        process = self.start()
        self.await_owner()
        self.show_panel()
        self.tarvik.end()
        self.assertEqual(process.wait(DEADLINE), 0)
        self.assertEqual(process.stderr.read(), "")

    def test_the_windows_are_compiled_ahead_of_time(self):
        process = self.start()
        self.await_owner()
        self.show_panel()
        self.show_settings()
        self.tarvik.end()
        self.assertEqual(process.wait(DEADLINE), 0)
        # What Qt compiles itself, it keeps there.
        self.assertEqual([str(path) for path in self.cache.rglob("*.qmlc")], [])

    def test_a_second_process_leaves_at_once(self):
        first = self.start()
        self.await_owner()
        self.assertEqual(self.start().wait(DEADLINE), 0)
        self.assertIsNone(first.poll())

    def test_leaves_at_once_where_there_is_no_tarvik(self):
        self.tarvik.end()
        self.assertEqual(self.start().wait(DEADLINE), 0)


if __name__ == "__main__":
    unittest.main()
