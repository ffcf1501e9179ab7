#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What "cmake --install" lays out, and that it works from there and from wherever it is moved to."""
import os
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest

from gi.repository import Gio

import program
from program import eventually

CMAKE, BUILD = sys.argv[1:3]
EXECUTABLE = "lib/tarvik/Contents/Linux/Tarvik"
ENTRY = "share/applications/com.morvanta.Tarvik.desktop"
HELPER = "libexec/tarvik-helper"
HELPER_UNIT = "lib/systemd/system/tarvik-helper.service"
HELPER_BUS_SERVICE = "share/dbus-1/system-services/com.morvanta.Tarvik.helper.service"
LOGIN_UNIT = "lib/systemd/user/tarvik-at-login.service"
BUNDLED = pathlib.Path("lib/tarvik/Contents/SharedSupport/helper")
BUNDLED_FILES = {"install-helper", "tarvik-helper", "tarvik-helper.service", "com.morvanta.Tarvik.helper.service",
                 "com.morvanta.Tarvik.helper.conf", "com.morvanta.Tarvik.helper.policy"}
PROGRAMS = (EXECUTABLE, "lib/tarvik/Contents/Linux/TarvikUi", "lib/tarvik/Contents/SharedSupport/tarvik")
HELPER_FILES = {
    HELPER,
    "share/dbus-1/system.d/com.morvanta.Tarvik.helper.conf",
    "share/polkit-1/actions/com.morvanta.Tarvik.helper.policy",
    "share/man/man8/tarvik-helper.8",
    HELPER_UNIT,
    HELPER_BUS_SERVICE,
}
DATA = (
    "lib/tarvik/Contents/Resources/icons/hicolor/scalable/apps/com.morvanta.Tarvik.svg",
    "lib/tarvik/Contents/Resources/icons/hicolor/symbolic/apps/tarvik-active-symbolic.svg",
    "lib/tarvik/Contents/Resources/icons/hicolor/22x22@2/apps/tarvik-active-symbolic.svg",
    "lib/tarvik/Contents/Resources/icons/pixmaps/tarvik-active-symbolic-22.argb",
    "share/icons/hicolor/scalable/apps/com.morvanta.Tarvik.svg",
    "share/icons/hicolor/16x16/apps/tarvik-active-symbolic.svg",
    "share/icons/hicolor/48x48/apps/com.morvanta.Tarvik.png",
    "share/metainfo/com.morvanta.Tarvik.metainfo.xml",
    "share/man/man1/tarvik.1",
    "share/man/man1/Tarvik.1",
    "share/bash-completion/completions/tarvik",
    "share/zsh/site-functions/_tarvik",
    "share/fish/vendor_completions.d/tarvik.fish",
    LOGIN_UNIT,
    ENTRY,
)
LINKS = (("bin/tarvik", PROGRAMS[-1]), ("bin/Tarvik", EXECUTABLE))


def executable_of(bus_name):
    """The file that the owner of a name on the session bus runs; None while nobody owns it."""
    answer = subprocess.run(
        ["busctl", "--user", "call", "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetConnectionUnixProcessID", "s", bus_name],
        capture_output=True, text=True, check=False,
    )
    if answer.returncode != 0:
        return None
    try:
        return os.readlink(f"/proc/{answer.stdout.split()[1]}/exe")
    except FileNotFoundError:
        return None


class InstallTest(unittest.TestCase):
    def setUp(self):
        self.directory = pathlib.Path(tempfile.mkdtemp()).resolve()
        self.addCleanup(shutil.rmtree, self.directory)

    def install(self, prefix, **environment):
        subprocess.run([CMAKE, "--install", BUILD, "--prefix", str(prefix)], check=True, stdout=subprocess.DEVNULL,
                       env={**os.environ, **environment})

    def quit(self):
        """Ends Tarvik, and with it its UI process."""
        def is_gone():
            # It has its name on the bus a moment before it listens.
            subprocess.run(["busctl", "--user", "call", "com.morvanta.Tarvik", "/com/morvanta/Tarvik",
                            "com.morvanta.Tarvik.Status1", "Quit"], check=False, capture_output=True)
            return executable_of("com.morvanta.Tarvik") is None

        eventually(is_gone, "Tarvik ends")
        eventually(lambda: executable_of("com.morvanta.TarvikUi") is None, "its windows end")

    def test_everything_lies_below_the_prefix_given_when_installing(self):
        prefix = self.directory / "prefix"
        self.install(prefix)
        for name in PROGRAMS:
            self.assertTrue(os.access(prefix / name, os.X_OK), name)
        for name in DATA:
            self.assertGreater((prefix / name).stat().st_size, 0, name)
        for link, name in LINKS:
            self.assertFalse(os.path.isabs(os.readlink(prefix / link)), link)
            self.assertTrue((prefix / link).samefile(prefix / name), link)
        self.assertIn(f"Exec={prefix / EXECUTABLE}\n", (prefix / ENTRY).read_text(encoding="utf-8"))
        subprocess.run(["desktop-file-validate", "--warn-kde", str(prefix / ENTRY)], check=True)
        self.assertIn(f"\nExecStart={prefix / EXECUTABLE} --at-login\n", (prefix / LOGIN_UNIT).read_text(encoding="utf-8"))

    def test_systemd_understands_the_unit_that_starts_it_at_login(self):
        prefix = self.directory / "prefix"
        self.install(prefix)
        # Whether there is a man page is no question of the unit.
        answer = subprocess.run(["systemd-analyze", "--user", "--man=no", "verify", str(prefix / LOGIN_UNIT)], capture_output=True,
                                text=True, check=False, env={**os.environ, "XDG_RUNTIME_DIR": str(self.directory)})
        self.assertEqual((answer.returncode, answer.stdout + answer.stderr), (0, ""))

    def test_the_bundle_can_install_the_helper(self):
        prefix = self.directory / "prefix"
        self.install(prefix)
        bundled = prefix / BUNDLED
        self.assertEqual({file.name for file in bundled.iterdir()}, BUNDLED_FILES)
        self.assertEqual({file.name for file in bundled.iterdir() if os.access(file, os.X_OK)}, {"install-helper", "tarvik-helper"})
        for name in ("tarvik-helper.service", "com.morvanta.Tarvik.helper.service"):
            self.assertIn("/usr/local/lib/tarvik-helper/tarvik-helper\n", (bundled / name).read_text(encoding="utf-8"))

    def test_only_a_package_brings_the_helper_as_the_system_wants_it(self):
        self.install("/usr", DESTDIR=str(self.directory))
        root = self.directory / "usr"
        for name in HELPER_FILES:
            self.assertGreater((root / name).stat().st_size, 0, name)
        self.assertTrue(os.access(root / HELPER, os.X_OK))
        self.assertIn(f"\nExecStart=/usr/{HELPER}\n", (root / HELPER_UNIT).read_text(encoding="utf-8"))
        service = (root / HELPER_BUS_SERVICE).read_text(encoding="utf-8")
        self.assertIn(f"\nSystemdService={pathlib.Path(HELPER_UNIT).name}\n", service)
        self.assertRegex(service, f"\nExec=.* /usr/{HELPER}\n")
        self.assertFalse((root / BUNDLED).exists())
        prefix = self.directory / "prefix"
        self.install(prefix)
        self.assertEqual([name for name in HELPER_FILES if (prefix / name).exists()], [])

    def test_desktops_that_cannot_draw_svg_have_pictures_of_each_size_that_is_promised(self):
        self.install(self.directory / "prefix")
        icons = self.directory / "prefix/share/icons/hicolor"
        sizes = {}
        for picture in icons.glob("*/apps/com.morvanta.Tarvik.png"):
            sizes[picture.parents[1].name] = struct.unpack(">II", picture.read_bytes()[16:24])
        self.assertEqual(sizes, {"48x48": (48, 48), "128x128": (128, 128), "256x256": (256, 256)})

    def test_caches_of_the_icon_theme_are_out_of_date_afterwards(self):
        theme = self.directory / "prefix/share/icons/hicolor"
        self.install(self.directory / "prefix")
        os.utime(theme, (0, 0))
        self.install(self.directory / "prefix")
        self.assertGreater(theme.stat().st_mtime, 0)

    def test_a_relative_prefix_is_made_absolute(self):
        subprocess.run([CMAKE, "--install", BUILD, "--prefix", "prefix"], check=True, stdout=subprocess.DEVNULL, cwd=self.directory)
        prefix = self.directory / "prefix"
        self.assertIn(f"Exec={prefix / EXECUTABLE}\n", (prefix / ENTRY).read_text(encoding="utf-8"))

    def test_a_staging_directory_is_no_part_of_the_installed_paths(self):
        self.install("/opt/product", DESTDIR=str(self.directory))
        staged = self.directory / "opt/product"
        self.assertTrue((staged / EXECUTABLE).exists())
        self.assertIn(f"Exec=/opt/product/{EXECUTABLE}\n", (staged / ENTRY).read_text(encoding="utf-8"))

    def test_the_desktop_starts_it_from_an_odd_prefix(self):
        prefix = self.directory / "an \"odd\" $HOME `prefix`"
        self.install(prefix)
        subprocess.run(["desktop-file-validate", "--warn-kde", str(prefix / ENTRY)], check=True)
        self.assertFalse((prefix / LOGIN_UNIT).exists())
        self.addCleanup(self.quit)
        self.assertTrue(Gio.DesktopAppInfo.new_from_filename(str(prefix / ENTRY)).launch())
        eventually(lambda: executable_of("com.morvanta.Tarvik") == str(prefix / EXECUTABLE), "the installed Tarvik runs")

    def test_a_moved_copy_runs_with_its_own_windows_and_tool(self):
        self.install(self.directory / "here")
        moved = (self.directory / "here").rename(self.directory / "there")
        tarvik = subprocess.Popen([moved / EXECUTABLE])
        self.addCleanup(tarvik.wait)
        self.addCleanup(self.quit)
        eventually(lambda: subprocess.run([moved / "bin/tarvik", "status"], stdout=subprocess.DEVNULL, check=False).returncode == 1,
                   "its own tool reaches it")
        subprocess.run([moved / EXECUTABLE], check=True, timeout=program.PATIENCE)
        eventually(lambda: executable_of("com.morvanta.TarvikUi") == str(moved / PROGRAMS[1]), "its own panel opens")

    def test_without_the_windows_it_runs_and_says_what_is_missing(self):
        prefix = self.directory / "prefix"
        self.install(prefix)
        (prefix / PROGRAMS[1]).unlink()
        said = self.directory / "said"
        with said.open("w", encoding="utf-8") as file:
            monitor = subprocess.Popen(["dbus-monitor", "--session", "interface='org.freedesktop.Notifications'"], stdout=file)
        self.addCleanup(monitor.wait)
        self.addCleanup(monitor.kill)
        eventually(lambda: said.stat().st_size > 0, "the monitor listens")
        tarvik = subprocess.Popen([prefix / EXECUTABLE])
        self.addCleanup(tarvik.wait)
        self.addCleanup(self.quit)
        eventually(lambda: subprocess.run([prefix / "bin/tarvik", "status"], stdout=subprocess.DEVNULL, check=False).returncode == 1,
                   "its tool reaches it")
        subprocess.run([prefix / "bin/Tarvik"], check=True, timeout=program.PATIENCE)
        eventually(lambda: "The windows of Tarvik are not installed" in said.read_text(encoding="utf-8"), "it says so")
        self.assertIsNone(tarvik.poll())


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=2)
