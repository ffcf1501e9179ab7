# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What `tarvik why` says on a machine, and whether it is true there, as in scenarios.py."""
import contextlib
import json
import time

from machine import USER, Unexpected, eventually
from scenarios import HARDWARE, REACTION, Agent, without_work

NAME, REASON = "Backup", "Copying the photos"
# Seconds by which Tarvik may know of a sleep otherwise than the machine does.
TOLERANCE = 5


def ask(context):
    text, _, status = context.machine.shell("tarvik why --json; echo $?").strip().rpartition("\n")
    report = json.loads(text)
    if status != ("0" if report["isKeptAwake"] else "1"):
        raise Unexpected(f"exit status {status}: {report}")
    return report


@contextlib.contextmanager
def lock(context, user, what):
    """A lock of logind's, held by a program of that user."""
    process = context.machine.start(user, "systemd-inhibit", f"--what={what}", f"--who={NAME}", f"--why={REASON}", "--mode=block",
                                    "sleep", "9997")
    try:
        eventually(lambda: NAME in context.machine.root("systemd-inhibit", "--list", "--no-pager"), REACTION, "logind lists the lock")
        yield
    finally:
        process.terminate()
        process.wait()


def is_true_of_lock(context, user, what):
    """Asks who keeps the computer awake, and sees whether it then falls asleep. The answer, which was true."""
    context.desktop.touch(context.machine)
    with lock(context, user, what):
        began = time.time()
        report = ask(context)
        if not any((entry["program"], entry["reason"]) == (NAME, REASON) for entry in report["locks"]):
            raise Unexpected(f"{user}'s lock of {what} is not listed: {report['locks']}")
        told = report["isKeptAwake"]
        if told and NAME not in report["whyAwake"]:
            raise Unexpected(f"who keeps it awake is not told: {report['whyAwake']}")
        deadline = began + context.desktop.idle_time + context.desktop.slack
        while time.time() < deadline and not any(moment > began for moment in context.machine.suspends()):
            time.sleep(1)
        has_slept = any(moment > began for moment in context.machine.suspends())
        if has_slept == told:
            raise Unexpected(f"{user}'s lock of {what} is said {'' if told else 'not '}to keep it awake, "
                             f"and it {'slept' if has_slept else 'did not sleep'}: {report['whyAwake']} {report['idleSleep']}")
    context.desktop.dismiss_dialogs(context.machine)
    return told


def expect_idle_rule(context):
    """What would put the computer to sleep, and when."""
    expected = context.desktop.configured_idle_time
    rules = [(rule["action"], rule["afterSeconds"]) for rule in ask(context)["idleSleep"]]
    if (("suspend", expected) if expected else (None, None)) not in rules:
        raise Unexpected(f"what would put it to sleep: {rules}")


def expect_sleep_without_lock(context):
    """Else it would be no wonder that it stays awake with one. Afterwards it is told when that was."""
    report = ask(context)
    if report["isKeptAwake"]:
        raise Unexpected(f"without any lock: {report['whyAwake']}")
    without_work(context)
    slept = context.machine.suspends()[-1]
    report = ask(context)
    if not report["sleeps"] or abs(report["sleeps"][-1]["from"] - slept) > TOLERANCE:
        raise Unexpected(f"slept at {slept}, but: {report['sleeps']}")


def expect_own_work(context):
    """Tarvik's own lock is said to work, and to be there no more on battery where a rule says so."""
    work = Agent()
    context.set("requireAC", True)
    work.begin(context)
    try:
        context.expect_awake()
        report = ask(context)
        if not report["tarvik"]["keepsAwake"] or "Claude Code" not in report["whyAwake"]:
            raise Unexpected(f"with an agent: {report['whyAwake']} {report['tarvik']}")
        context.machine.root(HARDWARE, "mains", "off")
        eventually(lambda: context.status().startswith("Paused"), REACTION, "Tarvik pauses on battery")
        report = ask(context)
        if report["isKeptAwake"] or not any("Paused" in sentence for sentence in (report["whyAwake"], *report["remarks"])):
            raise Unexpected(f"on battery: {report['whyAwake']} {report['remarks']}")
    finally:
        context.machine.root(HARDWARE, "mains", "on")
        work.end(context)
        context.set("requireAC", False)
    context.expect_awake(False)


def why(context):
    """Tells what is true: of Tarvik's own lock, of those of others, of what would put the computer to sleep, of its last sleep."""
    context.expect_awake(False)
    expect_idle_rule(context)
    expect_sleep_without_lock(context)
    expect_own_work(context)
    told = {f"{user} {what}": is_true_of_lock(context, user, what)
            for user, what in ((USER, "idle"), (USER, "sleep"), ("root", "sleep"))}
    return "held by " + (", ".join(name for name, keeps in told.items() if keeps) or "none")


ALL = {"why": why}
