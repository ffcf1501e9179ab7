# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What a laptop lives through whose lid is closed, a function each: what was seen, in a few words, or Unexpected."""
import contextlib
import json
import time

from machine import USER, Unexpected, eventually
from scenarios import (HARDWARE, HELPER, HELPER_FILES, HELPER_UNIT, PROGRAM, REACTION, NotHere, expect_no_suspend,
                       reload_services)

# Seconds in which an override that has gone leaves the machine asleep: the desktop's own way, and ours where it has none.
SLEEP_PATIENCE = 12
# The first user of an image.
UID = 1000
# Seconds after which the helper takes the application for dead.
LAPSE = 75
# Seconds in which whoever looks at the lid has done what they do about it.
CALM = 5
RULES = "/etc/polkit-1/rules.d/00-tarvik-machine.rules"
PROMPT_ACTION = "org.freedesktop.policykit.exec"
REFUSAL = "org.freedesktop.DBus.Error.AccessDenied: This session is not allowed to switch sleep off."


def logind(context, member):
    return context.machine.root("busctl", "get-property", "org.freedesktop.login1", "/org/freedesktop/login1",
                                "org.freedesktop.login1.Manager", member).split()[1]


def lid_locks(context):
    """The users whose Tarvik, or whose helper, has switched off the lid."""
    answer = context.machine.root("busctl", "--json=short", "call", "org.freedesktop.login1", "/org/freedesktop/login1",
                                  "org.freedesktop.login1.Manager", "ListInhibitors")
    return [user for what, who, _, mode, user, _ in json.loads(answer)["data"][0]
            if who == "Tarvik" and mode == "block" and {"handle-lid-switch", "sleep"} <= set(what.split(":"))]


def helper_log(context, text):
    """When the helper said so, in seconds since the epoch."""
    lines = context.machine.root("journalctl", "--quiet", "--output=short-unix", "--unit", HELPER_UNIT).splitlines()
    return [float(line.split()[0]) for line in lines if text in line]


def expect_locked(context, users, what):
    eventually(lambda: sorted(lid_locks(context)) == sorted(users), REACTION, f"{what}: the lid is locked by {users}")


def move_lid(context, state):
    """When it moved."""
    moved = time.time()
    context.machine.root(HARDWARE, "lid", state)
    eventually(lambda: logind(context, "LidClosed") == ("true" if state == "close" else "false"), REACTION,
               f"logind sees that the lid is to {state}")
    return moved


def expect_asleep(context, since, what, patience=SLEEP_PATIENCE):
    """How long it took."""
    moment = eventually(lambda: next(iter(at for at in context.machine.suspends() if at > since), 0), patience,
                        f"suspend after {what}")
    return moment - since


def display_off_after(context, since):
    """When the X server switched the display off, in seconds."""
    def moments():
        lines = [line.split() for line in context.machine.root("cat", "/run/tarvik-machine/display.log").splitlines()]
        return [float(at) for at, level in lines if level != "0" and float(at) > since]
    return eventually(moments, REACTION, "the display goes off")[0] - since


def begin_work(context):
    context.machine.session("tarvik", "acquire", "--tool", "claude", "--session", "lid")
    context.expect_awake()


def work_with_closed_lid(context, user=0):
    """When the lid closed."""
    begin_work(context)
    expect_locked(context, [user], "at work")
    moved = move_lid(context, "close")
    expect_no_suspend(context, moved, CALM)
    return moved


def end_work(context):
    """When it ended. Does not wait: the users' processes may stand still before the command has ended."""
    ended = time.time()
    context.machine.start(USER, "tarvik", "release", "--session", "lid")
    return ended


def start_if_gone(context):
    if not context.machine.shell(f"pgrep -f ^{PROGRAM}", check=False):
        context.start_tarvik()
    context.expect_running()


@contextlib.contextmanager
def laptop(context, mode=True):
    """Only the lid makes it sleep, and Tarvik keeps it awake with the lid closed, or not."""
    if not context.desktop.lid_only:
        raise NotHere("not told how to leave sleep to the lid")
    machine = context.machine
    machine.shell(context.desktop.lid_only)
    start_if_gone(context)
    context.set("clamshellEnabled", mode)
    context.set("screenOffOnLidClose", True)
    try:
        yield
    finally:
        move_lid(context, "open")
        machine.root("rm", "-f", RULES)
        start_if_gone(context)
        machine.session("tarvik", "release-all", check=False)
        # Somebody is there again, and closes what asks for a password.
        machine.shell("xset dpms force on; xdotool key Escape", check=False)
        context.desktop.touch(machine)
        context.set("clamshellEnabled", False)
        context.expect_awake(False)
        expect_locked(context, [], "afterwards")


@contextlib.contextmanager
def without_helper(context):
    """As where no package has brought it."""
    machine = context.machine
    machine.root("mkdir", "-p", "/root/package")
    machine.root("mv", *HELPER_FILES, "/root/package")
    machine.root("systemctl", "stop", HELPER_UNIT, check=False)
    reload_services(machine)
    try:
        yield
    finally:
        # A machine that sleeps runs no command of its user.
        move_lid(context, "open")
        for file in HELPER_FILES:
            machine.root("mv", f"/root/package/{file.rpartition('/')[2]}", file)
        reload_services(machine)
        # The alert that asks for a restart.
        machine.shell("pkill -x TarvikUi", check=False)


def answer_prompts(context, answer):
    """polkit.Result.YES or the like, for whoever would be asked for a password to run a program as root."""
    script = f"polkit.addRule(function(action) {{ if (action.id == '{PROMPT_ACTION}') return polkit.Result.{answer}; }});"
    context.machine.root("sh", "-c", f'echo "{script}" >{RULES}')
    # polkitd reads its rules again some time after they have changed.
    context.machine.root("systemctl", "restart", "polkit.service")


def by_ssh(context, user, script):
    """What a shell script printed in a remote session of that user."""
    key = "/root/.ssh/id_ed25519"
    context.machine.root("sh", "-ec", f"""
        [ -e {key} ] || ssh-keygen -q -t ed25519 -N '' -f {key}
        install -d -o {user} -m 700 ~{user}/.ssh
        install -o {user} -m 600 {key}.pub ~{user}/.ssh/authorized_keys""")
    return context.machine.root("ssh", "-i", key, "-o", "BatchMode=yes", "-o", "StrictHostKeyChecking=no",
                                f"{user}@localhost", script)


def prompt_refusals(context):
    return context.machine.root("journalctl", "--quiet").count("pmset disablesleep failed")


def closed(context):
    """The lid closes during the work, and the work ends."""
    with laptop(context):
        moved = work_with_closed_lid(context)
        off = display_off_after(context, moved) if context.desktop.has_x_server else None
        slept = expect_asleep(context, end_work(context), "the work")
    return f"display off {off:.1f} s, suspend {slept:.1f} s" if off else f"suspend {slept:.1f} s"


def not_wanted(context):
    """The lid closes during the work, of which nobody has told that it goes on then."""
    with laptop(context, mode=False):
        begin_work(context)
        return f"suspend {expect_asleep(context, move_lid(context, 'close'), 'the lid'):.1f} s"


def idle(context):
    """The lid closes without any work."""
    with laptop(context):
        context.expect_awake(False)
        return f"suspend {expect_asleep(context, move_lid(context, 'close'), 'the lid'):.1f} s"


def helper_killed(context):
    """The helper is killed with the lid closed: it comes back within a second or the machine sleeps, nothing in between."""
    with laptop(context):
        work_with_closed_lid(context)
        killed = time.time()
        context.machine.root("pkill", "-KILL", "-f", "^/usr/libexec/tarvik-helper")
        eventually(lambda: any(at > killed for at in context.machine.suspends()) or lid_locks(context), REACTION,
                   "the helper is back or the machine sleeps")
        if any(at > killed for at in context.machine.suspends()):
            return "suspend"
        # A command in the machine takes its time: the helper is gone when systemd says so.
        back = helper_log(context, "Sleep and the lid switch are off.")[-1] - helper_log(context, "Main process exited")[-1]
        if back > 1:
            raise Unexpected(f"the helper is back only after {back:.1f} s")
        expect_no_suspend(context, killed, CALM)
        slept = expect_asleep(context, end_work(context), "the work")
    return f"back within {back:.1f} s, suspend {slept:.1f} s"


def helper_lost(context):
    """The helper is killed and does not come back, and nobody gives a password."""
    with laptop(context):
        answer_prompts(context, "NO")
        work_with_closed_lid(context)
        since = time.time()
        with without_helper(context):
            try:
                eventually(lambda: any(at > since for at in context.machine.suspends()) or lid_locks(context) == [UID],
                           SLEEP_PATIENCE, "the user's own lock does or the machine sleeps")
                if lid_locks(context):
                    return f"own lock, suspend {expect_asleep(context, end_work(context), 'the work'):.1f} s"
                return f"suspend {expect_asleep(context, since, 'the loss of the helper'):.1f} s"
            finally:
                move_lid(context, "open")
                end_work(context)


def helper_stopped(context):
    """The helper stands still, so that nobody switches sleep on when the work ends; systemd ends it."""
    with laptop(context):
        work_with_closed_lid(context)
        context.machine.root("pkill", "-STOP", "-f", "^/usr/libexec/tarvik-helper")
        return f"suspend {expect_asleep(context, end_work(context), 'the work', 60):.0f} s"


def killed(context):
    """Tarvik is killed with the lid closed."""
    with laptop(context):
        work_with_closed_lid(context)
        since = time.time()
        context.machine.root("pkill", "-KILL", "-f", f"^{PROGRAM}")
        return f"suspend {expect_asleep(context, since, 'the kill'):.1f} s"


def stopped(context):
    """Tarvik stands still with the lid closed."""
    with laptop(context):
        work_with_closed_lid(context)
        since = time.time()
        context.machine.root("pkill", "-STOP", "-f", f"^{PROGRAM}")
        try:
            return f"suspend {expect_asleep(context, since, 'it stands still', LAPSE + SLEEP_PATIENCE):.0f} s"
        finally:
            context.machine.root("pkill", "-CONT", "-f", f"^{PROGRAM}")


def goes_on(context):
    """Tarvik stands still for too long and goes on: the work is protected again."""
    with laptop(context):
        begin_work(context)
        expect_locked(context, [0], "at work")
        context.machine.root("pkill", "-STOP", "-f", f"^{PROGRAM}")
        try:
            eventually(lambda: not lid_locks(context), LAPSE + SLEEP_PATIENCE, "the helper takes it for dead")
        finally:
            context.machine.root("pkill", "-CONT", "-f", f"^{PROGRAM}")
        eventually(lambda: lid_locks(context) == [0], 45, "the lid is locked again")
        moved = move_lid(context, "close")
        expect_no_suspend(context, moved, CALM)
    return "locked again"


def quits(context):
    """Tarvik is quit with the lid closed."""
    with laptop(context):
        work_with_closed_lid(context)
        since = time.time()
        context.machine.root("pkill", "-TERM", "-f", f"^{PROGRAM}")
        return f"suspend {expect_asleep(context, since, 'it quits'):.1f} s"


def pauses(context):
    """The plug is pulled, and then it gets hot, with the lid closed."""
    times = []
    for setting, begin, end in (("requireAC", ("mains", "off"), ("mains", "on")),
                                ("pauseWhenHot", ("heat", "103000"), ("heat", "45000"))):
        with laptop(context):
            context.set(setting, True)
            try:
                work_with_closed_lid(context)
                since = time.time()
                context.machine.root(HARDWARE, *begin)
                times.append(expect_asleep(context, since, begin[0], 60))
            finally:
                context.machine.root(HARDWARE, *end)
                move_lid(context, "open")
                context.set(setting, False)
    return "suspend {:.1f} s on battery, {:.0f} s hot".format(*times)


def logind_restarts(context):
    """logind starts anew with the lid closed."""
    with laptop(context):
        moved = work_with_closed_lid(context)
        context.machine.root("systemctl", "restart", "systemd-logind.service")
        expect_no_suspend(context, moved, CALM)
        expect_locked(context, [0], "after the restart")
        return f"suspend {expect_asleep(context, end_work(context), 'the work'):.1f} s"


def password(context):
    """Without a helper an administrator's password does it, where a lock of the user's own does not."""
    with laptop(context), without_helper(context):
        answer_prompts(context, "YES")
        begin_work(context)
        user = eventually(lambda: lid_locks(context), REACTION, "the lid is locked")[0]
        moved = move_lid(context, "close")
        expect_no_suspend(context, moved, CALM)
        slept = expect_asleep(context, end_work(context), "the work")
        move_lid(context, "open")
        begin_work(context)
        expect_locked(context, [user], "at work again")
        context.machine.root("pkill", "-KILL", "-f", f"^{PROGRAM}")
        expect_locked(context, [], "killed")
    return f"{'root' if user == 0 else 'own'} lock, suspend {slept:.1f} s"


def refused(context):
    """Nobody gives a password: the machine sleeps, and the user is asked again by what happens only."""
    with laptop(context, mode=False), without_helper(context):
        answer_prompts(context, "NO")
        before = prompt_refusals(context)
        context.set("clamshellEnabled", True)
        begin_work(context)
        try:
            eventually(lambda: prompt_refusals(context) > before or lid_locks(context), REACTION, "it is asked")
            if lid_locks(context):
                raise NotHere("asks for no password")
            asked = prompt_refusals(context)
            context.machine.root(HARDWARE, "mains", "off")
            context.machine.root(HARDWARE, "mains", "on")
            time.sleep(CALM)
            if prompt_refusals(context) != asked:
                raise Unexpected("the mains make it ask again")
            slept = expect_asleep(context, move_lid(context, "close"), "the lid")
            move_lid(context, "open")
            time.sleep(2)
            asked = prompt_refusals(context)
            context.set("notifyOnPause", False)
            context.set("notifyOnPause", True)
            eventually(lambda: prompt_refusals(context) > asked, REACTION, "it is asked again")
        finally:
            context.machine.root(HARDWARE, "mains", "on")
            end_work(context)
    return f"suspend {slept:.1f} s"


def dialog(context):
    """The desktop's own dialog: cancelled, it comes back by what happens only; the password in it keeps the machine awake."""
    machine = context.machine
    if not context.desktop.has_x_server:
        raise NotHere("no dialog without an X server")
    dialogs = "xdotool search --onlyvisible --class '^polkit-.*-authentication-agent-1$'"

    def is_shown():
        return bool(machine.shell(dialogs, check=False).strip())

    def expect_shown(what):
        eventually(is_shown, REACTION, what)
        # It cannot be typed into before it has the keyboard.
        machine.shell(f"xdotool windowactivate --sync $({dialogs} | tail -n 1)")

    with laptop(context, mode=False), without_helper(context):
        before = prompt_refusals(context)
        context.set("clamshellEnabled", True)
        begin_work(context)
        eventually(lambda: is_shown() or lid_locks(context), REACTION, "the dialog")
        if lid_locks(context):
            raise NotHere("asks for no password")
        expect_shown("the dialog")
        context.picture("lid-dialog")
        machine.session("xdotool", "key", "Escape")
        eventually(lambda: prompt_refusals(context) > before and not is_shown(), REACTION, "the dialog is dismissed")
        # Twice the period of those who look at processes and at the lid.
        time.sleep(10)
        if is_shown() or lid_locks(context):
            raise Unexpected("the clock makes it ask again")
        context.set("notifyOnPause", False)
        context.set("notifyOnPause", True)
        expect_shown("the dialog after the next event")
        machine.shell(f"xdotool type {USER}; xdotool key Return")
        expect_locked(context, [0], "the password is given")
        moved = move_lid(context, "close")
        expect_no_suspend(context, moved, CALM)
        move_lid(context, "open")
        # Before systemd 257 the lid has had the desktop ask logind to sleep, and that the user whether in spite of the lock.
        machine.session("xdotool", "key", "Escape")
        eventually(lambda: not is_shown(), REACTION, "the question of the desktop's own is dismissed")
        machine.root("pkill", "-KILL", "-f", f"^{PROGRAM}")
        expect_locked(context, [], "killed")
        slept = expect_asleep(context, move_lid(context, "close"), "the lid")
    return f"cancelled, asked again, locked; after a kill suspend {slept:.1f} s"


def two_users(context):
    """The work of another user, on another terminal, goes on after one's own; then theirs ends."""
    machine = context.machine
    with laptop(context):
        machine.root("systemd-run", "--quiet", "--unit=second-user", "--property=PAMName=login", "--property=User=other",
                     "--property=StandardInput=tty", "--property=TTYPath=/dev/tty5", "--setenv=XDG_SEAT=seat0",
                     "--setenv=XDG_VTNR=5", "/bin/sleep", "infinity")
        # From systemd 257 on a session is listed before its bus is there.
        eventually(lambda: machine.root("systemctl", "is-active", "user@1001.service", check=False) == "active\n", REACTION,
                   "the other's session")
        try:
            context.start_tarvik("other")
            machine.session("busctl", "--user", "set-property", "com.morvanta.Tarvik", "/com/morvanta/Tarvik",
                            "com.morvanta.Tarvik.Settings1", "clamshellEnabled", "b", "true", user="other")
            begin_work(context)
            machine.session("tarvik", "acquire", "--tool", "claude", "--session", "lid", user="other")
            expect_locked(context, [0], "at work")
            time.sleep(2)
            moved = move_lid(context, "close")
            end_work(context)
            expect_no_suspend(context, moved, CALM)
            expect_locked(context, [0], "the other at work")
            since = time.time()
            machine.start("other", "tarvik", "release", "--session", "lid")
            return f"suspend {expect_asleep(context, since, 'the other one’s work'):.1f} s"
        finally:
            move_lid(context, "open")
            machine.root("systemctl", "stop", "second-user.service", check=False)
            machine.root("loginctl", "terminate-user", "other", check=False)


def remote(context):
    """Sessions without a seat, even of the user who sits there, are refused, are told so, and the machine sleeps."""
    with laptop(context):
        for user in (USER, "other"):
            remoteness = by_ssh(context, user, "loginctl show-session --property=Remote --value $XDG_SESSION_ID").strip()
            if remoteness != "yes":
                raise Unexpected(f"logind on whether the session of ssh is a remote one: {remoteness}")
            answer = by_ssh(context, user, f"gdbus call --system --dest {HELPER} --object-path /com/morvanta/Tarvik/Helper"
                                           " --method com.morvanta.Tarvik.HelperProtocol1.setKeepAwake true 2>&1 || true")
            if REFUSAL not in answer:
                raise Unexpected(f"the helper answers {user} in a remote session: {answer.strip()}")
            # Unlike gdbus, busctl has the helper let polkit ask for a password; it has a text of its own for the refusal.
            answer = by_ssh(context, user, f"busctl --system call {HELPER} /com/morvanta/Tarvik/Helper"
                                           " com.morvanta.Tarvik.HelperProtocol1 setKeepAwake b true 2>&1 || true")
            if "Call failed: Access denied" not in answer:
                raise Unexpected(f"the helper answers {user}, who may be asked for a password: {answer.strip()}")
            if lid_locks(context):
                raise Unexpected("a remote session switches sleep off")
        return f"refused, suspend {expect_asleep(context, move_lid(context, 'close'), 'the lid'):.1f} s"


def cost(context):
    """What the helper takes: its memory while it holds the lock, and its start."""
    machine = context.machine
    with laptop(context):
        machine.root("systemctl", "stop", HELPER_UNIT)
        begin_work(context)
        expect_locked(context, [0], "at work")
        words = machine.root("systemctl", "show", HELPER_UNIT, "--property=MainPID", "--property=InactiveExitTimestampMonotonic",
                             "--property=ActiveEnterTimestampMonotonic").split()
        unit = dict(word.split("=") for word in words)
        started = (int(unit["ActiveEnterTimestampMonotonic"]) - int(unit["InactiveExitTimestampMonotonic"])) / 1000
        memory = machine.root("grep", "^Pss:", f"/proc/{unit['MainPID']}/smaps_rollup").split()[1]
    return f"{memory} KiB, starts in {started:.0f} ms"


ALL = {f"lid-{name}": scenario for name, scenario in {
    "work": closed,
    "off": not_wanted,
    "idle": idle,
    "helper-killed": helper_killed,
    "helper-lost": helper_lost,
    "helper-stopped": helper_stopped,
    "killed": killed,
    "stopped": stopped,
    "goes-on": goes_on,
    "quits": quits,
    "pauses": pauses,
    "logind": logind_restarts,
    "password": password,
    "refused": refused,
    "dialog": dialog,
    "two-users": two_users,
    "remote": remote,
    "cost": cost,
}.items()}
