#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""Fails on any include that runs against the direction of dependencies between the folders of src/, and on signals of a bus
that are subscribed to by other means than those of src/dbus, which never wait for the bus."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SERVICES = {"journal", "hooks", "hotkey", "updates", "lidclosed"}
LINUX = "platform/linux"
# What the programs say to each other on the bus.
CONTRACTS = "dbus/contracts"
# The ground of everything, programs without Qt included.
BASE = "base"
# The agents' configuration files, which the tool edits, too.
HOOK_CONFIG = "hookconfig"
# What every Linux back-end may use; the folders beside these know nothing of each other.
LINUX_GROUND = {f"{LINUX}/{name}" for name in ("gsettings", "inhibitors", "kernel", "programs", "services", "x11", "xfconf")}

# Folder -> the other folders of src/ whose headers it may include.
ALLOWED = {
    BASE: set(),
    "core": set(),
    HOOK_CONFIG: {"core"},
    "dbus": {"core"},
    CONTRACTS: {"core"},
    "platform": {"core"},
    LINUX: {"core", "dbus", "platform"} | LINUX_GROUND,
    "journal": {"core", "platform"},
    "hooks": {"core", "platform", HOOK_CONFIG},
    "hotkey": {"core", "platform"},
    "updates": {"core", "platform"},
    "lidclosed": {"core", "platform"},
    "monitors": {"core", "platform"} | SERVICES,
    "engine": {"core", "platform", "monitors"} | SERVICES,
    "why": {"core", "platform", "monitors", "engine"} | SERVICES,
    "bus": {"core", "dbus", CONTRACTS, "platform", "monitors", "engine", "why"} | SERVICES,
    "ui/mirror": {"core", "dbus", CONTRACTS},
    "ui/request": {"core"},
    "ui/design": {"core", "dbus"},
    "ui/placement": {"core", "dbus"},
    "ui/panel": {"core", "ui/mirror", "ui/design", "ui/placement"},
    "ui/onboarding": {"core", "ui/mirror", "ui/placement"},
    "ui/settings": {"core", "ui/mirror", "ui/design", "ui/placement", "ui/request"},
    "ui": {"core", "ui/mirror", "ui/design", "ui/onboarding", "ui/panel", "ui/placement", "ui/settings"},
    "app": {"core", CONTRACTS, "platform", LINUX, "monitors", "engine", "why", "bus", "ui", "ui/mirror",
            "ui/design", "ui/placement"} | SERVICES,
}
# The tool and the helper are not Qt programs: of src/ they see only the two folders without Qt and these headers, which need
# none.
WITHOUT_QT = {
    "core/HookSpec.h", "core/HookTraits.h", "dbus/contracts/TarvikWire.h", "platform/HelperWire.h", "platform/HookWire.h",
}

INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)
QT_INCLUDE = re.compile(r"^\s*#\s*include\s+<Q", re.MULTILINE)
# QDBusConnection::connect, on whatever the connection is called.
BUS_CONNECT = re.compile(r"(?:[bB]us|[cC]onnection)(?:\(.*\))?\.(?:dis)?connect\(")


def folder_of(path: str) -> str:
    return path.rpartition("/")[0]


def may_include(own: str, target: str) -> bool:
    if target == BASE:
        return True
    if own.startswith(LINUX + "/"):
        return target in ALLOWED[LINUX] or target == own
    return target in ALLOWED[own] or (own == "app" and target.startswith(LINUX + "/"))


def is_without_qt(path: str) -> bool:
    return path in WITHOUT_QT or folder_of(path) in (BASE, HOOK_CONFIG)


def violations():
    for source in sorted((ROOT / "src").rglob("*.h")) + sorted((ROOT / "src").rglob("*.cpp")):
        relative = source.relative_to(ROOT / "src").as_posix()
        own = folder_of(relative)
        if own not in ALLOWED and not own.startswith(LINUX + "/"):
            yield f"src/{relative}: folder {own} is not in the table"
            continue
        text = source.read_text(encoding="utf-8")
        for included in INCLUDE.findall(text):
            target = folder_of(included)
            if target in ("", own):
                continue
            if not may_include(own, target):
                yield f"src/{relative}: {own} must not include {included}"
        if own != "dbus" and BUS_CONNECT.search(text):
            yield f"src/{relative}: subscribes to a signal without DBusSignal"
        if is_without_qt(relative) and QT_INCLUDE.search(text):
            yield f"src/{relative}: includes Qt, but programs without Qt share it"
        if is_without_qt(relative):
            for included in INCLUDE.findall(text):
                if not is_without_qt(included):
                    yield f"src/{relative}: includes {included}, but programs without Qt share it"

    for program in ("tool", "helper"):
        for source in sorted((ROOT / program).rglob("*.h")) + sorted((ROOT / program).rglob("*.cpp")):
            text = source.read_text(encoding="utf-8")
            relative = source.relative_to(ROOT).as_posix()
            if QT_INCLUDE.search(text):
                yield f"{relative}: includes Qt"
            for included in INCLUDE.findall(text):
                if (ROOT / "src" / included).exists() and not is_without_qt(included):
                    yield f"{relative}: must not include {included}"


def main() -> int:
    found = list(violations())
    for line in found:
        print(line)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
