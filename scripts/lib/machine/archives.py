# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""Tarvik's Debian packages on a test machine, and those of a next version."""
import pathlib
import re
import shutil
import subprocess
import tempfile

NAMES = ("tarvik-engine", "tarvik")
PLACE = "/opt/tarvik-packages"
SUFFIX = "+next1"


def lay(directory, machine):
    """Puts the packages of a directory, and the same as the next version, where `install` finds them on the machine."""
    for version in ("this", "next"):
        (machine.changes / PLACE.lstrip("/") / version).mkdir(parents=True)
    for name in NAMES:
        (archive,) = pathlib.Path(directory).glob(f"{name}_*.deb")
        shutil.copy(archive, machine.changes / PLACE.lstrip("/") / "this" / f"{name}.deb")
        _make_next(archive, machine.changes / PLACE.lstrip("/") / "next" / f"{name}.deb")


def _make_next(archive, made):
    version = subprocess.run(["dpkg-deb", "--field", archive, "Version"], check=True, capture_output=True, text=True).stdout.strip()
    with tempfile.TemporaryDirectory() as directory:
        content = pathlib.Path(directory) / "content"
        subprocess.run(["dpkg-deb", "--raw-extract", archive, content], check=True)
        control = content / "DEBIAN/control"
        text = re.sub(f"{re.escape(version)}(?=\\)|$)", version + SUFFIX, control.read_text(encoding="utf-8"), flags=re.MULTILINE)
        control.write_text(text, encoding="utf-8")
        subprocess.run(["dpkg-deb", "--root-owner-group", "--build", content, made], check=True, stdout=subprocess.DEVNULL)


def install(machine, version="this"):
    machine.root("dpkg", "--install", *(f"{PLACE}/{version}/{name}.deb" for name in NAMES))


def remove(machine, how="--remove"):
    machine.root("dpkg", how, *reversed(NAMES))


def are_laid(machine):
    return machine.root("sh", "-c", f"test -d {PLACE} && echo yes", check=False) != ""
