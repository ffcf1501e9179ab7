#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""Both programs of a bundle that has a translation. Runs inside scripts/desktop. Usage: NAME TARVIK TARVIK_UI TRANSLATIONS"""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import pyatspi
from gi.repository import Atspi, Gio, GLib

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from waiting import eventually

TARVIK = ("com.morvanta.Tarvik", "/com/morvanta/Tarvik")
WORDS = "⟦Dozing — nothing to watch~~~~~~~~~~⟧"


def call(service, path, interface, method, arguments=None):
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    try:
        return bus.call_sync(service, path, interface, method, arguments, None, Gio.DBusCallFlags.NO_AUTO_START, 5000, None).unpack()
    except GLib.Error:
        return None


def texts(accessible, kind):
    """The names or descriptions of everything in the window, the window itself left out."""
    for child in (accessible.getChildAtIndex(index) for index in range(accessible.childCount)):
        if child:
            yield getattr(child, kind)
            yield from texts(child, kind)


class TranslatedProgramsTest(unittest.TestCase):
    tarvik, windows, translations = "", "", ""

    def setUp(self):
        directory = tempfile.TemporaryDirectory(dir=pathlib.Path(self.tarvik).parent)
        self.addCleanup(directory.cleanup)
        contents = pathlib.Path(directory.name) / "Contents"
        (contents / "Linux").mkdir(parents=True)
        (contents / "Resources").mkdir()
        for program in self.tarvik, self.windows:
            os.link(program, contents / "Linux" / pathlib.Path(program).name)
        (contents / "Resources" / "translations").symlink_to(self.translations)
        self.program = contents / "Linux" / "Tarvik"

    def start(self, languages):
        process = subprocess.Popen([self.program], env={**os.environ, "LANGUAGE": languages, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
        # The UI process ends when it notices; until then it would take the calls of the next Tarvik.
        self.addCleanup(eventually, lambda: not self.running(), "the UI process ends")
        self.addCleanup(process.wait)
        self.addCleanup(process.terminate)
        eventually(lambda: self.status("Reason"), "Tarvik is up")

    def status(self, name):
        answer = call(*TARVIK, "org.freedesktop.DBus.Properties", "Get", GLib.Variant("(ss)", ("com.morvanta.Tarvik.Status1", name)))
        return answer[0] if answer else None

    def panel(self, kind="name"):
        call(*TARVIK, "org.freedesktop.Application", "Activate", GLib.Variant("(a{sv})", ({},)))

        def found():
            try:
                desktop = pyatspi.Registry.getDesktop(0)
                desktop.set_cache_mask(Atspi.Cache.NONE)
                for application in (desktop.getChildAtIndex(index) for index in range(desktop.childCount)):
                    if application and application.name == "Tarvik" and application.childCount:
                        return [text for text in texts(application.getChildAtIndex(0), kind) if text]
            except GLib.Error:
                # It is just coming up.
                pass
            return []
        return eventually(found, "the panel is there")

    def loaded(self):
        """Whether there is a translation in the memory of each program of the bundle that runs."""
        return [".qm" in (process / "maps").read_text(encoding="utf-8") for process in self.running()]

    def running(self):
        return [process for process in pathlib.Path("/proc").glob("[0-9]*") if self.is_ours(process)]

    def is_ours(self, process):
        try:
            return (process / "exe").readlink().parent == self.program.parent
        except OSError:
            # It has just ended.
            return False

    def test_both_speak_the_language_of_the_session(self):
        self.start("de")
        self.assertEqual(self.status("Reason"), WORDS)
        described = call(*TARVIK, "com.morvanta.Tarvik.Status1", "Describe", GLib.Variant("(b)", (False,)))[0]
        self.assertEqual([line for line in described.splitlines() if "⟦" not in line], [])
        panel = self.panel()
        self.assertIn(WORDS, panel)
        self.assertEqual([name for name in panel if name != "Tarvik" and not name.startswith("⟦")], [])
        self.assertEqual(len(panel), 8)
        self.assertEqual(self.loaded(), [True, True])

    def test_without_a_language_nothing_is_loaded(self):
        self.start("C")
        self.assertEqual(self.status("Reason"), "Dozing — nothing to watch")
        self.assertIn("Lock & leave", self.panel())
        self.assertEqual(self.loaded(), [False, False])

    def test_where_the_language_is_not_there_both_speak_english_and_of_no_mac(self):
        self.start("ar_EG")
        self.assertEqual(self.status("Reason"), "Dozing — nothing to watch")
        help_text = "On keeps the computer awake while a coding agent or chosen app is running."
        self.assertTrue(any(help_text in text for text in self.panel("description")))
        self.assertEqual(self.loaded(), [True, True])


if __name__ == "__main__":
    TranslatedProgramsTest.tarvik, TranslatedProgramsTest.windows, TranslatedProgramsTest.translations = sys.argv[1:4]
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
