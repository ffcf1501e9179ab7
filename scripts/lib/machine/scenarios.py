# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What a user lives through on a machine, a function each: what was seen, in a few words, or Unexpected."""
import re
import time

from machine import GUEST, USER, Unexpected, eventually

BUS_NAME = "com.morvanta.Tarvik"
PROGRAM = "/usr/lib/tarvik/Contents/Linux/Tarvik"
WINDOWS = "/usr/lib/tarvik/Contents/Linux/TarvikUi"
HARDWARE = f"/{GUEST}/hardware"
HELPER = "com.morvanta.Tarvik.helper"
HELPER_UNIT = "tarvik-helper.service"
HELPER_FILES = ("/usr/libexec/tarvik-helper", f"/usr/lib/systemd/system/{HELPER_UNIT}",
                f"/usr/share/dbus-1/system.d/{HELPER}.conf", f"/usr/share/polkit-1/actions/{HELPER}.policy",
                f"/usr/share/dbus-1/system-services/{HELPER}.service")
# Where `machines` puts the bundle's installer.
INSTALLER = "/opt/tarvik-helper/install-helper"
# Seconds within which Tarvik sees a process and does something about it, on a machine that has more to do.
REACTION = 15
# A session that begins has more to do.
LOGIN_PATIENCE = 60


class NotHere(Exception):
    """This desktop has nothing of the kind; the message says what is missing."""


class Context:
    """The machine that a scenario is played on, and what they all do with Tarvik there."""

    def __init__(self, machine, desktop, pictures):
        self.machine = machine
        self.desktop = desktop
        self.pictures = pictures

    def start_tarvik(self, user=USER):
        self.machine.shell(f"({PROGRAM} >>~/tarvik.log 2>&1 &)", user=user)
        self.expect_running(user)

    def expect_running(self, user=USER):
        eventually(lambda: self.status(user), REACTION, "Tarvik answers")

    def status(self, user=USER):
        """Empty when Tarvik does not answer."""
        return self.machine.shell("text=$(tarvik status); [ $? = 2 ] || echo \"$text\"", check=False, user=user)

    def holds(self):
        """The assertions that Tarvik says it holds."""
        return [line.split("PreventUser")[1] for line in self.status().splitlines() if "PreventUser" in line]

    def call(self, interface, method, *arguments):
        self.machine.session("busctl", "--user", "call", BUS_NAME, "/com/morvanta/Tarvik", f"{BUS_NAME}.{interface}", method,
                             *arguments)

    def set(self, setting, on):
        self.machine.session("busctl", "--user", "set-property", BUS_NAME, "/com/morvanta/Tarvik", f"{BUS_NAME}.Settings1",
                             setting, "b", "true" if on else "false")

    def expect_awake(self, awake=True):
        word = "Awake" if awake else "Dozing"
        eventually(lambda: self.status().startswith(word), REACTION, f"Tarvik is {word.lower()}")

    def tray_item(self):
        """The bus name of Tarvik's item, if the tray lists one."""
        answer = self.machine.session("busctl", "--user", "get-property", "org.kde.StatusNotifierWatcher",
                                      "/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher",
                                      "RegisteredStatusNotifierItems", check=False)
        # as 2 ":1.23/StatusNotifierItem" "org.kde.StatusNotifierItem-456-1"
        for item in answer.replace('"', "").split()[2:]:
            name = re.split("[@/]", item)[0]
            if PROGRAM in self.machine.session("busctl", "--user", "status", name, check=False):
                return name
        return ""

    def expect_tray_item(self):
        if not self.desktop.has_tray:
            raise NotHere("no tray")
        return eventually(self.tray_item, REACTION, "the tray lists the item")

    def picture(self, name):
        self.machine.picture(self.pictures / f"{name}.png")


class Work:
    """Something that is work, in the user's session, from `begin` to `end`."""

    def begin(self, context):
        raise NotImplementedError

    def end(self, context):
        raise NotImplementedError


class Agent(Work):
    """A process that is named like an agent."""

    def begin(self, context):
        context.machine.shell("cp /bin/sleep /tmp/claude; (/tmp/claude 10000 >/dev/null 2>&1 &)")

    def end(self, context):
        context.machine.shell("pkill -x claude")


class Hold(Work):
    """The command line's `hold`."""

    def begin(self, context):
        context.machine.shell("(tarvik hold -- sleep 9999 >/dev/null 2>&1 &)")

    def end(self, context):
        context.machine.shell("pkill -x -f 'sleep 9999'")


class Lease(Work):
    """What an agent's hooks say."""

    def begin(self, context):
        context.machine.session("tarvik", "acquire", "--tool", "claude", "--session", "machine")

    def end(self, context):
        context.machine.session("tarvik", "release", "--session", "machine")


class TimedSession(Work):
    """Started and ended in the menu."""

    def begin(self, context):
        context.call("Status1", "SetTimedSession", "i", "60")

    def end(self, context):
        context.call("Status1", "SetTimedSession", "i", "0")


def expect_no_suspend(context, since, seconds):
    deadline = time.time() + seconds
    while time.time() < deadline:
        early = [moment for moment in context.machine.suspends() if moment > since]
        if early:
            raise Unexpected(f"suspend {early[0] - since:.0f} s after the work began")
        time.sleep(1)


def expect_suspend(context, since, what):
    """Within one idle time, and what the desktop may add to it."""
    moment = eventually(lambda: next(iter(at for at in context.machine.suspends() if at > since), 0),
                        context.desktop.idle_time + context.desktop.slack, f"suspend after {what}")
    return f"{moment - since:.0f} s"


def work_then_suspend(context, work, seconds):
    # Leave an earlier suspend behind, and earlier work.
    time.sleep(2)
    context.expect_awake(False)
    context.desktop.touch(context.machine)
    began = time.time()
    work.begin(context)
    try:
        context.expect_awake()
        expect_no_suspend(context, began, seconds)
    finally:
        work.end(context)
    return expect_suspend(context, time.time(), "the work")


def ends_before(work):
    """The work ends before the idle time is over: the computer suspends when it is."""
    return lambda context: work_then_suspend(context, work(), context.desktop.idle_time / 3)


def ends_after(work):
    """The work ends after the idle time is over: the computer suspends one idle time later at the latest."""
    return lambda context: work_then_suspend(context, work(), context.desktop.idle_time * 1.5)


def without_work(context):
    """Nothing at all: the computer suspends."""
    context.expect_awake(False)
    context.desktop.touch(context.machine)
    return expect_suspend(context, time.time(), "nothing")


def tray_item(context):
    """The tray shows the item."""
    context.expect_tray_item()
    context.picture("tray")
    return "listed"


def opens_panel(context):
    """A click on the item, as the panel tells it, opens the panel."""
    name = context.expect_tray_item()
    context.machine.session("busctl", "--user", "call", name, "/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate",
                            "ii", "1000", "780")
    eventually(lambda: context.machine.shell(f"pgrep -f ^{WINDOWS}", check=False), REACTION, "the UI process runs")
    if context.desktop.has_x_server:
        eventually(lambda: context.machine.shell("xdotool search --onlyvisible --class tarvik", check=False), REACTION,
                   "the panel is on the screen")
    time.sleep(1)
    context.picture("panel")
    context.machine.shell(f"pkill -f ^{WINDOWS}", check=False)
    return "opened"


def application(context):
    """A Wayland window of a chosen application is work until it is closed."""
    if not context.desktop.wayland_application:
        raise NotHere("no Wayland application")
    name = context.desktop.wayland_application
    context.expect_awake(False)
    context.call("Settings1", "AddToAllowlist", "ss", name, name)
    try:
        context.machine.shell(f"({name} >/dev/null 2>&1 &)")
        context.expect_awake()
        context.machine.shell(f"pkill -x {name}")
        context.expect_awake(False)
    finally:
        context.machine.shell(f"pkill -x {name}", check=False)
        context.call("Settings1", "RemoveFromAllowlist", "s", name)
    return "seen, gone"


def display(context):
    """With "keep display on" the display stays on during the work, without it goes off."""
    if not context.desktop.has_x_server:
        raise NotHere("no X server")
    machine = context.machine
    patience = context.desktop.display_time + 25
    machine.shell(context.desktop.switch_display_off)
    context.desktop.touch(machine)
    machine.shell("xset dpms force on")
    context.set("keepDisplayAwake", True)
    work = Agent()
    work.begin(context)
    try:
        context.expect_awake()
        deadline = time.time() + patience
        while time.time() < deadline:
            if machine.display_is_off():
                raise Unexpected("the display goes off")
            time.sleep(1)
        context.set("keepDisplayAwake", False)
        try:
            eventually(machine.display_is_off, patience, "off, when it need not stay on")
        except Unexpected:
            if context.desktop.can_spare_display:
                raise
            return "stays on, always"
        return "stays on, off without"
    finally:
        work.end(context)
        context.set("keepDisplayAwake", False)
        machine.shell(f"{context.desktop.leave_display_on}; xset dpms force on")


def mains(context):
    """Pulling the plug pauses where the rule says so; plugging in goes on."""
    context.set("requireAC", True)
    work = Agent()
    work.begin(context)
    try:
        context.expect_awake()
        context.machine.root(HARDWARE, "mains", "off")
        eventually(lambda: context.status().startswith("Paused"), REACTION, "Tarvik pauses on battery")
        context.machine.root(HARDWARE, "mains", "on")
        context.expect_awake()
    finally:
        context.machine.root(HARDWARE, "mains", "on")
        work.end(context)
        context.set("requireAC", False)
    return "pauses, goes on"


def locks(context):
    """Locked and unlocked five times; the item and the hold are there after each."""
    work = Hold()
    work.begin(context)
    try:
        context.expect_awake()
        for _ in range(5):
            context.desktop.lock(context.machine)
            time.sleep(2)
            if not context.holds():
                raise Unexpected("nothing is held while locked")
            context.desktop.unlock(context.machine)
            time.sleep(2)
            if context.desktop.has_tray:
                context.expect_tray_item()
    finally:
        work.end(context)
    return "5 times"


def restarts(context):
    """Every service starts anew in the middle of the work; afterwards the hold and the item are there."""
    work = Hold()
    work.begin(context)
    try:
        context.expect_awake()
        before = context.holds()
        for what, script in context.desktop.restarts.items():
            context.machine.shell(script, check=False)
            expect_back(context, before, what)
        for unit in ("upower.service", "systemd-logind.service"):
            context.machine.root("systemctl", "restart", unit)
            expect_back(context, before, unit)
    finally:
        work.end(context)
    return f"{len(context.desktop.restarts) + 2} services"


def expect_back(context, holds, what):
    """The holds of before and the item, and they stay."""
    time.sleep(3)
    eventually(lambda: context.holds() == holds, REACTION, f"{what}: the holds {', '.join(holds)} are back")
    if context.desktop.has_tray:
        eventually(context.tray_item, REACTION, f"{what}: the item is back")


def killed(context):
    """Killed in the middle of the work, it holds nothing; started again, it holds what it held."""
    work = Agent()
    work.begin(context)
    try:
        context.expect_awake()
        before = context.holds()
        context.machine.shell(f"pkill -KILL -f ^{PROGRAM}")
        eventually(lambda: "Tarvik" not in context.machine.root("systemd-inhibit", "--list", "--no-pager"), REACTION,
                   "logind lets go")
        context.start_tarvik()
        eventually(lambda: context.holds() == before, REACTION, f"the holds {', '.join(before)} are back")
        if context.desktop.has_tray:
            context.expect_tray_item()
    finally:
        work.end(context)
    return "holds again"


def login_item(context):
    """Told to start at login, it is there after logging out and in again."""
    if not context.desktop.reads_autostart:
        raise NotHere("reads no autostart entries")
    context.set("launchAtLogin", True)
    log_in_anew(context)
    context.expect_running()
    context.desktop.set_up(context.machine)
    if context.desktop.has_tray:
        context.expect_tray_item()
    context.set("launchAtLogin", False)
    return "starts"


def log_in_anew(context):
    session = context.desktop.session(context.machine)
    context.desktop.log_out_and_in(context.machine)
    eventually(lambda: context.desktop.session(context.machine) not in ("", session), LOGIN_PATIENCE, "another session")
    eventually(lambda: context.desktop.is_ready(context.machine), LOGIN_PATIENCE, "the desktop is up again")


def second_user(context):
    """Another user logs in on another terminal and has a Tarvik of their own; leaving, they disturb nobody."""
    machine = context.machine
    work = Hold()
    work.begin(context)
    try:
        context.expect_awake()
        machine.root("systemd-run", "--quiet", "--unit=second-user", "--property=PAMName=login", "--property=User=other",
                     "--property=StandardInput=tty", "--property=TTYPath=/dev/tty5", "--setenv=XDG_SEAT=seat0",
                     "--setenv=XDG_VTNR=5", "/bin/sleep", "infinity")
        eventually(lambda: "other" in machine.root("loginctl", "list-sessions"), REACTION, "the other's session")
        context.start_tarvik("other")
        if context.status("other").startswith("Awake"):
            raise Unexpected("the other's Tarvik counts the work of the first")
        machine.root("systemctl", "stop", "second-user.service")
        machine.root("loginctl", "terminate-user", "other", check=False)
        if not context.holds():
            raise Unexpected("nothing is held any longer")
    finally:
        work.end(context)
    return "each their own"


def call_helper(context, method, *arguments):
    """What busctl(1) prints of the answer to the session's user; empty for an error."""
    return context.machine.session("busctl", "--system", "call", HELPER, "/com/morvanta/Tarvik/Helper",
                                   "com.morvanta.Tarvik.HelperProtocol1", method, *arguments, check=False).strip()


def expect_helper(context, works, what):
    """The session's user may have it switch sleep off, without a password."""
    eventually(lambda: (call_helper(context, "setKeepAwake", "b", "true") == 'bs true ""') == works, REACTION, what)


def helper(context):
    """The background helper of a package, none, and the one that its installer puts there, which can be masked and removed."""
    machine = context.machine
    expect_helper(context, True, "the package's helper works")
    machine.root("sh", "-c", f"! {INSTALLER}")
    machine.root("mkdir", "-p", "/root/package")
    machine.root("mv", *HELPER_FILES, "/root/package")
    machine.root("systemctl", "stop", HELPER_UNIT)
    reload_services(machine)
    expect_helper(context, False, "without it there is none")
    before = files_below(machine, "/usr/local", "/etc/dbus-1", "/usr/share/polkit-1")
    machine.root(INSTALLER)
    expect_helper(context, True, "the installed helper works")
    exposure = machine.root("systemd-analyze", "security", "--no-pager", HELPER_UNIT)
    machine.root("systemctl", "mask", HELPER_UNIT)
    machine.root("systemctl", "stop", HELPER_UNIT)
    expect_helper(context, False, "masked, it does not start")
    machine.root("systemctl", "unmask", HELPER_UNIT)
    expect_helper(context, True, "unmasked, it does")
    machine.root(INSTALLER)
    expect_helper(context, True, "installed anew, it works")
    machine.root(INSTALLER, "--remove")
    expect_helper(context, False, "removed, it is gone")
    left = files_below(machine, "/usr/local", "/etc/dbus-1", "/usr/share/polkit-1") ^ before
    if left:
        raise Unexpected(f"it leaves or takes {', '.join(left)}")
    for file in HELPER_FILES:
        machine.root("mv", f"/root/package/{file.rpartition('/')[2]}", file)
    reload_services(machine)
    expect_helper(context, True, "the package's helper works again")
    return f"exposed to {re.search('Overall exposure level.*: ([0-9.]+)', exposure)[1]}"


def files_below(machine, *directories):
    return set(machine.root("find", *directories).splitlines())


def reload_services(machine):
    machine.root("systemctl", "daemon-reload")
    machine.root("busctl", "call", "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "ReloadConfig")


WORKS = {"agent": Agent, "hold": Hold, "lease": Lease, "session": TimedSession}
ALL = {
    "tray": tray_item,
    "panel": opens_panel,
    "no-work": without_work,
    **{f"before-{name}": ends_before(work) for name, work in WORKS.items()},
    **{f"after-{name}": ends_after(work) for name, work in WORKS.items()},
    "application": application,
    "display": display,
    "mains": mains,
    "helper": helper,
    "restarts": restarts,
    "locks": locks,
    "killed": killed,
    "second-user": second_user,
    "login-item": login_item,
}
