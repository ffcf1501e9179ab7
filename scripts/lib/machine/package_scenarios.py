# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What a user lives through with Tarvik's packages, as in scenarios.py. They are removed in the end."""
import json

import archives
from machine import Unexpected, eventually
from scenarios import BUS_NAME, LOGIN_PATIENCE, PROGRAM, REACTION, Agent, NotHere, log_in_anew

TOOL = "/usr/lib/tarvik/Contents/SharedSupport/tarvik"
# It first waits for the installation to be over and for nothing to be held for some seconds.
RESTART_PATIENCE = REACTION + 15


def life(context):
    """Started by the session, upgraded while an agent runs, removed while its hooks are installed, and purged."""
    if not archives.are_laid(context.machine):
        raise NotHere("no packages")
    if context.desktop.is_graphical:
        start_at_login(context)
    upgrade_during_work(context)
    remove_with_hooks(context)
    return "upgraded, removed, purged"


def start_at_login(context):
    """By the desktop's autostart, or by the unit of the user's systemd, which all others leave alone."""
    if not context.desktop.reads_autostart:
        before = last_end_of_unit(context)
        log_in_anew(context)
        eventually(lambda: last_end_of_unit(context) not in ("0", before), LOGIN_PATIENCE, "the unit has been started and has ended")
        # The one of the session before ends with it.
        eventually(lambda: not owner(context), REACTION, "none starts without being told to")
        context.start_tarvik()
    context.set("launchAtLogin", True)
    log_in_anew(context)
    context.expect_running()
    context.desktop.set_up(context.machine)


def last_end_of_unit(context):
    """In microseconds; 0 before the first, and without the user's systemd."""
    return context.machine.session("systemctl", "--user", "show", "--property=ExecMainExitTimestampMonotonic", "--value",
                                   "tarvik-at-login.service", check=False).strip() or "0"


def owner(context):
    """The connection that has Tarvik's name; empty without one."""
    return context.machine.session("busctl", "--user", "call", "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                   "org.freedesktop.DBus", "GetNameOwner", "s", BUS_NAME, check=False).strip()


def upgrade_during_work(context):
    machine = context.machine
    work = Agent()
    work.begin(context)
    try:
        context.expect_awake()
        before, former = context.holds(), owner(context)
        held = (before, former, tarvik_inhibitors(machine))
        archives.install(machine, "next")
        eventually(lambda: is_pending(context), REACTION, "it has noticed the upgrade")
        now_held = (context.holds(), owner(context), tarvik_inhibitors(machine))
        if now_held != held:
            raise Unexpected(f"the upgrade changes what is held: {held}, {now_held}")
    finally:
        work.end(context)
    eventually(lambda: owner(context) not in ("", former), RESTART_PATIENCE, "it has restarted")
    context.expect_running()
    if is_pending(context):
        raise Unexpected("an upgrade is still said to wait")
    if context.desktop.has_tray:
        context.expect_tray_item()
    work.begin(context)
    try:
        eventually(lambda: context.holds() == before, REACTION, f"the holds {', '.join(before)} are back")
    finally:
        work.end(context)


def is_pending(context):
    answer = context.machine.session("busctl", "--user", "get-property", BUS_NAME, "/com/morvanta/Tarvik", f"{BUS_NAME}.Status1",
                                     "UpgradePending", check=False)
    return answer.strip() == "b true"


def tarvik_inhibitors(machine):
    """Without blanks: how wide the table is depends on others' locks."""
    return [line.split() for line in machine.root("systemd-inhibit", "--list", "--no-pager").splitlines() if "Tarvik" in line]


def remove_with_hooks(context):
    machine = context.machine
    machine.shell("mkdir -p ~/.claude")
    context.call("Hooks1", "Install", "s", "claude")
    settings = json.loads(machine.shell("cat ~/.claude/settings.json"))
    command = settings["hooks"]["UserPromptSubmit"][0]["hooks"][0]["command"]
    run_hook(machine, command)
    context.expect_awake()
    archives.remove(machine)
    run_hook(machine, command)
    gone = machine.root("sh", "-c", f"test -e {PROGRAM} || echo gone")
    if "gone" not in gone:
        raise Unexpected("the program is left")
    if not owner(context):
        raise Unexpected("Tarvik ended with its package")
    context.call("Status1", "Quit")
    eventually(lambda: not owner(context) and not tarvik_inhibitors(machine), REACTION, "it quits, and nothing is held")
    archives.remove(machine, "--purge")
    left = machine.root("find", "/etc", "/usr", "/var", "-xdev", "-iname", "*tarvik*", "-not", "-path", "*/tarvik-machine*",
                        "-not", "-name", "tarvik-machine*").split()
    if left:
        raise Unexpected(f"purging leaves {', '.join(left)}")


def run_hook(machine, command):
    """As the agent does: whatever it prints would be the agent's to read, any failure stops it."""
    said = machine.shell(f"""printf '{{"session_id": "1", "hook_event_name": "UserPromptSubmit"}}' | {command} 2>&1""")
    if said:
        raise Unexpected(f"the hook says {said}")


ALL = {"packages": life}
