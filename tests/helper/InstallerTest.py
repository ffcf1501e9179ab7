#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""The program that installs the background helper, on a real system bus; the machine's own directories are covered.

Usage, as root in a virtual desktop without the helper's files: InstallerTest.py DIRECTORY-OF-THE-BUNDLE [UNITTEST-ARGUMENT...]
"""
import os
import pathlib
import shutil
import signal
import stat
import subprocess
import sys
import tempfile
import unittest

from gi.repository import Gio, GLib

import helper_client
from helper_client import LABEL

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "program"))
from program import eventually  # pylint: disable=wrong-import-position

INSTALLED = {
    "/usr/local/lib/tarvik-helper/tarvik-helper": 0o755,
    "/usr/local/lib/systemd/system/tarvik-helper.service": 0o644,
    f"/etc/dbus-1/system.d/{LABEL}.conf": 0o644,
    f"/usr/share/polkit-1/actions/{LABEL}.policy": 0o644,
    f"/usr/local/share/dbus-1/system-services/{LABEL}.service": 0o644,
}
# Each with what is there before.
COVERED = ("/usr/local", "/etc/dbus-1/system.d", "/usr/share/polkit-1/actions", "/usr/share/dbus-1/system-services")
ACTIVATION = f"/usr/local/share/dbus-1/system-services/{LABEL}.service"


def cover(directory, *options):
    """An empty file system in a directory's place, in this desktop only."""
    subprocess.run(["mount", "-t", "tmpfs", "-o", ",".join(["mode=755", *options]), "tarvik-test", directory], check=True)


def uncover(directory):
    subprocess.run(["umount", directory], check=True)


def bus_knows():
    bus = helper_client.connect()
    try:
        answer = bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "ListActivatableNames",
                               None, None, Gio.DBusCallFlags.NONE, helper_client.TIMEOUT)
        return LABEL in answer.unpack()[0]
    finally:
        bus.close_sync()


def helper_process():
    bus = helper_client.connect()
    try:
        return bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetConnectionUnixProcessID",
                             GLib.Variant("(s)", (LABEL,)), None, Gio.DBusCallFlags.NONE, helper_client.TIMEOUT).unpack()[0]
    except GLib.Error:
        return None
    finally:
        bus.close_sync()


def everything():
    """What lies in the covered directories, with owner and mode."""
    found = {}
    for covered in COVERED:
        for path in sorted(pathlib.Path(covered).rglob("*")):
            status = path.lstat()
            found[str(path)] = (status.st_uid, status.st_gid, stat.filemode(status.st_mode))
    return found


class InstallerTest(unittest.TestCase):
    def setUp(self):
        for directory in COVERED:
            copy = pathlib.Path(tempfile.mkdtemp()) / "copy"
            self.addCleanup(shutil.rmtree, copy.parent)
            if directory == "/usr/local":
                copy.mkdir()
            else:
                shutil.copytree(directory, copy)
            cover(directory)
            self.addCleanup(uncover, directory)
            shutil.copytree(copy, directory, dirs_exist_ok=True)
        for name in ("lib", "share"):
            os.mkdir(f"/usr/local/{name}")
        self.addCleanup(self.end_helper)
        self.directory = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.directory)
        self.bundle = self.directory / "an \"odd\" $HOME `name`"
        shutil.copytree(BUNDLE, self.bundle)
        self.before = everything()

    @staticmethod
    def end_helper():
        if process := helper_process():
            os.kill(process, signal.SIGKILL)
            eventually(lambda: helper_process() is None, "no helper runs")

    def run_installer(self, *arguments, **options):
        # Nothing of the environment counts; neither does the directory it is started in.
        environment = {"PATH": str(self.directory), "IFS": "/", "ENV": "/nonexistent", "CDPATH": "/"}
        return subprocess.run([self.bundle / "install-helper", *arguments], env=environment, cwd="/tmp", capture_output=True,
                              text=True, check=False, timeout=60, **options)

    def install(self, *arguments):
        result = self.run_installer(*arguments)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))

    def assert_refused(self, text, *arguments, **options):
        """Whatever was there is as it was."""
        before = everything()
        result = self.run_installer(*arguments, **options)
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertEqual(result.stderr.splitlines()[-1], text)
        self.assertEqual(everything(), before)

    def call(self, method, arguments=None):
        bus = helper_client.connect()
        try:
            return helper_client.call(bus, method, arguments)
        finally:
            bus.close_sync()

    def test_the_bus_starts_what_is_installed(self):
        self.assertFalse(bus_knows())
        self.install()
        for name, mode in INSTALLED.items():
            status = os.lstat(name)
            self.assertEqual((status.st_uid, status.st_gid, stat.S_IMODE(status.st_mode)), (0, 0, mode), name)
        self.assertTrue(bus_knows())
        self.assertEqual(self.call("setKeepAwake", "(true,)"), (True, ""))
        self.assertEqual(os.readlink(f"/proc/{helper_process()}/exe"), "/usr/local/lib/tarvik-helper/tarvik-helper")

    def test_removing_leaves_nothing(self):
        self.install()
        self.assertTrue(self.call("version"))
        self.install("--remove")
        self.assertEqual(everything(), self.before)
        self.assertFalse(bus_knows())
        self.assertIsNone(helper_process())
        self.install("--remove")

    def test_removing_leaves_what_others_have_put_there(self):
        self.install()
        other = pathlib.Path("/usr/local/lib/tarvik-helper/other")
        other.touch()
        self.install("--remove")
        self.assertEqual(set(everything()) - set(self.before), {str(other.parent), str(other)})

    def test_a_helper_of_before_makes_way(self):
        self.install()
        for number in (signal.SIGCONT, signal.SIGSTOP):
            self.assertTrue(self.call("version"))
            former = helper_process()
            os.kill(former, number)
            self.install()
            self.assertIsNone(helper_process())
            self.assertFalse(pathlib.Path(f"/proc/{former}/exe").exists())

    def test_files_of_before_are_replaced_at_once(self):
        self.install()
        helper = pathlib.Path("/usr/local/lib/tarvik-helper/tarvik-helper")
        with helper.open("rb") as former:
            helper_before = os.fstat(former.fileno()).st_ino
            (self.bundle / "tarvik-helper").write_text("#!/bin/sh\n", encoding="utf-8")
            self.install()
            self.assertEqual(os.fstat(former.fileno()).st_ino, helper_before)
            self.assertTrue(former.read().startswith(b"\x7fELF"))
        self.assertEqual(helper.read_text(encoding="utf-8"), "#!/bin/sh\n")
        self.assertEqual(set(os.listdir(helper.parent)), {"tarvik-helper"})

    def test_only_root_installs(self):
        os.chmod(self.directory, 0o755)
        self.assert_refused("The background helper was not installed: That takes an administrator.", user=65534)

    def test_it_takes_no_path(self):
        self.assert_refused("The background helper was not installed: There is no option /tmp.", "/tmp")
        self.assert_refused("The background helper was not installed: There is one option, --remove.", "--remove", "/tmp")

    def test_what_is_missing_is_told_before_anything_is_copied(self):
        for name in ("tarvik-helper", f"{LABEL}.service"):
            file = self.bundle / name
            kept = file.rename(self.directory / name)
            self.assert_refused(f"The background helper was not installed: {file} is missing.")
            file.symlink_to(kept)
            self.assert_refused(f"The background helper was not installed: {file} is missing.")
            file.unlink()
            os.mkfifo(file)
            self.assert_refused(f"The background helper was not installed: {file} is missing.")
            file.unlink()
            kept.rename(file)

    def test_nothing_is_written_where_others_decide(self):
        own = pathlib.Path("/usr/local/lib/tarvik-helper")
        own.mkdir()
        refused = "The background helper was not installed: "
        own.chmod(0o757)
        self.assert_refused(f"{refused}Everybody may write to {own}.")
        own.chmod(0o775)
        os.chown(own, 0, 100)
        self.assert_refused(f"{refused}A group may write to {own}.")
        own.chmod(0o755)
        os.chown(own, 1000, 0)
        self.assert_refused(f"{refused}{own} does not belong to root.")
        own.rmdir()
        own.symlink_to(self.directory)
        self.assert_refused(f"{refused}{own} is a link.")
        own.unlink()
        own.touch()
        self.assert_refused(f"{refused}{own} is no directory.")

    def test_debians_own_group_of_local_is_let_be(self):
        os.chown("/usr/local/lib", 0, 50)
        os.chmod("/usr/local/lib", 0o2775)
        self.install()

    def test_nothing_of_others_is_replaced_or_removed(self):
        self.install()
        activation = pathlib.Path(ACTIVATION)
        for what, arguments in (("installed", ()), ("removed", ("--remove",))):
            refused = f"The background helper was not {what}: {activation} "
            activation.unlink()
            activation.symlink_to("/etc/passwd")
            self.assert_refused(f"{refused}is no ordinary file.", *arguments)
            activation.unlink()
            activation.touch()
            os.chown(activation, 1000, 0)
            self.assert_refused(f"{refused}does not belong to root.", *arguments)

    def test_nothing_of_a_package_is_replaced_or_removed(self):
        self.install()
        query = self.directory / "dpkg-query"
        query.write_text(f"#!/bin/sh\n[ \"$2\" = {ACTIVATION} ]\n", encoding="utf-8")
        query.chmod(0o755)
        program = shutil.which("dpkg-query")
        subprocess.run(["mount", "--bind", query, program], check=True)
        self.addCleanup(uncover, program)
        for what, arguments in (("installed", ()), ("removed", ("--remove",))):
            self.assert_refused(f"The background helper was not {what}: {ACTIVATION} belongs to a package.", *arguments)

    def test_a_packages_helper_stays_alone(self):
        pathlib.Path(f"/usr/share/dbus-1/system-services/{LABEL}.service").touch()
        for what, arguments in (("installed", ()), ("removed", ("--remove",))):
            self.assert_refused(f"The background helper was not {what}: A package has brought one.", *arguments)

    def test_a_full_disk_leaves_nothing_half_done(self):
        # What comes last does not fit.
        cover("/usr/local/share", "size=4k")
        self.addCleanup(uncover, "/usr/local/share")
        pathlib.Path("/usr/local/share/filling").write_bytes(bytes(4096))
        result = self.run_installer()
        self.assertEqual(result.returncode, 1)
        self.assertIn("No space left on device", result.stderr)
        self.assertEqual([name for name in everything() if "tarvik" in name.lower()], [])


if __name__ == "__main__":
    BUNDLE = sys.argv.pop(1)
    unittest.main(verbosity=2)
