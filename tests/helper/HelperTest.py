#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""The built background helper on a real system bus, with a real logind and a real polkit.

Usage, as root in a virtual desktop with the helper's files: HelperTest.py HELPER [UNITTEST-ARGUMENT...]
"""
import json
import os
import pathlib
import pwd
import signal
import subprocess
import sys
import tempfile
import threading
import time
import unittest
import xml.etree.ElementTree as ElementTree

from gi.repository import Gio, GLib

import helper_client
from helper_client import LABEL, PATH, PROTOCOL

TESTS = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(TESTS / "program"))
from program import LOGIND, eventually, hardware, inhibitors, system_property  # pylint: disable=wrong-import-position

HELPER = ""
# In KiB; the sanitizers need more.
PSS_LIMIT = int(os.environ.get("HELPER_TEST_PSS", "1024"))
# "Normal sleep is back" and the like: what has to be so at once.
AT_ONCE = 1
# The one has the right by a rule, the other has not and, without a session, would have to log in as an administrator.
USER, STRANGER = 1, 65534
RULE = pathlib.Path("/etc/polkit-1/rules.d/helper.rules")
ACTION = "com.morvanta.Tarvik.helper.set-keep-awake"
ACCESS_DENIED = "org.freedesktop.DBus.Error.AccessDenied"
INVALID_ARGUMENTS = "org.freedesktop.DBus.Error.InvalidArgs"
ON, OFF = GLib.Variant("(b)", (True,)), GLib.Variant("(b)", (False,))
DONE = (True, "")


def call_bus(method, arguments=None):
    return BUS.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method, arguments, None,
                         Gio.DBusCallFlags.NONE, helper_client.TIMEOUT).unpack()[0]


def owner_of(name):
    """The process that owns a name on the system bus; None when nobody does."""
    try:
        return call_bus("GetConnectionUnixProcessID", GLib.Variant("(s)", (name,)))
    except GLib.Error:
        return None


def locks():
    """(what, why, mode, uid, pid) of the helper's inhibitors."""
    return [(what, why, mode, uid, pid) for what, who, why, mode, uid, pid in inhibitors() if who == "Tarvik"]


def is_locked():
    return len(locks()) == 1


def is_not_locked():
    return locks() == []


def pss(pid):
    rollup = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text(encoding="utf-8")
    return int(next(line for line in rollup.splitlines() if line.startswith("Pss:")).split()[1])


def state_of(pid):
    return pathlib.Path(f"/proc/{pid}/stat").read_text(encoding="utf-8").rpartition(")")[2].split()[0]


def stop(pid):
    os.kill(pid, signal.SIGSTOP)
    eventually(lambda: state_of(pid) == "T", "it stands still")


def kill_owner(name, number=signal.SIGKILL):
    pid = owner_of(name)
    if pid is not None:
        os.kill(pid, number)
        eventually(lambda: owner_of(name) != pid, f"{name} is free")


def start_daemon(*command):
    subprocess.run(["setsid", "--fork", *command], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


class Caller:
    """A connection of this process to the helper."""

    def __init__(self):
        self.connection = helper_client.connect()

    def __call__(self, method, arguments=None):
        """The values of the reply, or the name of the error."""
        try:
            return helper_client.call(self.connection, method, arguments)
        except GLib.Error as error:
            return Gio.DBusError.get_remote_error(error)

    def leave(self):
        self.connection.close_sync()


class CallingProgram:
    """A process of some user that calls the helper."""

    def __init__(self, user=0):
        self.process = subprocess.Popen(
            ["/usr/bin/python3", helper_client.__file__], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
            user=user, group=user, extra_groups=[],
        )
        self.name = json.loads(self.process.stdout.readline())

    def send(self, *words):
        self.process.stdin.write(json.dumps(words) + "\n")
        self.process.stdin.flush()

    def receive(self):
        answer = json.loads(self.process.stdout.readline())
        return answer["error"] if "error" in answer else tuple(answer["value"])

    def __call__(self, *words):
        self.send(*words)
        return self.receive()

    def end(self):
        self.process.kill()
        self.process.wait()
        self.process.stdin.close()
        self.process.stdout.close()


class StartedHelper:
    """A helper that was started with options of its own, and its log."""

    def __init__(self, *options, environment=None):
        self.log_file = tempfile.NamedTemporaryFile(mode="r", suffix=".log")
        with open(self.log_file.name, "w", encoding="utf-8") as log:
            self.process = subprocess.Popen(
                [HELPER, *options], stderr=log, env={"TARVIK_MACH_LABEL": LABEL} if environment is None else environment
            )

    def wait_for_name(self):
        eventually(lambda: owner_of(LABEL) == self.process.pid, "the helper has its name")
        return self

    def log(self):
        return pathlib.Path(self.log_file.name).read_text(encoding="utf-8")

    def end(self):
        self.process.kill()
        self.process.wait()
        self.log_file.close()


class Service:
    """Another program's service, played in this one by a user who may: answers each method with what a function of that name
    returns, or never when that is None."""

    def __init__(self, user, name, path, xml, **methods):
        os.seteuid(pwd.getpwnam(user).pw_uid)
        try:
            self.connection = helper_client.connect()
        finally:
            os.seteuid(0)
        self.methods = methods
        self.calls = []
        self.loop = GLib.MainLoop()
        ready = threading.Event()

        def serve():
            context = GLib.MainContext()
            context.push_thread_default()
            self.loop = GLib.MainLoop(context)
            interface = Gio.DBusNodeInfo.new_for_xml(xml).interfaces[0]
            self.connection.register_object(path, interface, self.on_call, None, None)
            self.connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                                      GLib.Variant("(su)", (name, 4)), None, Gio.DBusCallFlags.NONE, -1)
            ready.set()
            self.loop.run()
            context.pop_thread_default()

        self.thread = threading.Thread(target=serve, daemon=True)
        self.thread.start()
        assert ready.wait(helper_client.TIMEOUT / 1000)

    def on_call(self, _connection, _sender, _path, _interface, method, parameters, invocation):
        self.calls.append((method, parameters.unpack()))
        answer = self.methods[method]()
        if isinstance(answer, str):
            invocation.return_dbus_error(answer, "It is not to be")
        elif answer is not None:
            invocation.return_value(answer)

    def end(self):
        self.connection.close_sync()
        self.loop.quit()
        self.thread.join()


LOGIND_XML = """<node><interface name="org.freedesktop.login1.Manager"><method name="Inhibit">
<arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
<arg type="h" direction="out"/></method></interface></node>"""
POLKIT_XML = """<node><interface name="org.freedesktop.PolicyKit1.Authority"><method name="CheckAuthorization">
<arg type="(sa{sv})" direction="in"/><arg type="s" direction="in"/><arg type="a{ss}" direction="in"/>
<arg type="u" direction="in"/><arg type="s" direction="in"/><arg type="(bba{ss})" direction="out"/></method>
<method name="CancelCheckAuthorization"><arg type="s" direction="in"/></method></interface></node>"""


class HelperTestCase(unittest.TestCase):
    def setUp(self):
        kill_owner(LABEL)
        eventually(is_not_locked, "nothing is held")

    def caller(self):
        caller = Caller()
        self.addCleanup(caller.leave)
        return caller

    def program(self, user=0):
        program = CallingProgram(user)
        self.addCleanup(program.end)
        return program

    def start_helper(self, *options):
        helper = StartedHelper(*options)
        self.addCleanup(helper.end)
        return helper.wait_for_name()

    def play_logind(self, inhibit):
        """In logind's place, until the end of the test."""
        kill_owner("org.freedesktop.login1")
        logind = Service("root", "org.freedesktop.login1", "/org/freedesktop/login1", LOGIND_XML, Inhibit=inhibit)
        self.addCleanup(self.start_logind)
        self.addCleanup(logind.end)
        return logind

    @staticmethod
    def start_logind():
        start_daemon("/lib/systemd/systemd-logind")
        eventually(lambda: owner_of("org.freedesktop.login1") is not None, "logind is there")

    def play_polkit(self, check, cancel=lambda: GLib.Variant("()", ())):
        """In polkit's place, until the end of the test."""
        kill_owner("org.freedesktop.PolicyKit1")
        polkit = Service("polkitd", "org.freedesktop.PolicyKit1", "/org/freedesktop/PolicyKit1/Authority", POLKIT_XML,
                         CheckAuthorization=check, CancelCheckAuthorization=cancel)
        self.addCleanup(self.start_polkit)
        self.addCleanup(polkit.end)
        return polkit

    @staticmethod
    def start_polkit():
        start_daemon("/usr/lib/polkit-1/polkitd", "--no-debug")
        eventually(lambda: owner_of("org.freedesktop.PolicyKit1") is not None, "polkit is there")


class OverrideTest(HelperTestCase):
    def test_one_lock_of_root_is_held_from_on_to_off(self):
        caller = self.caller()
        self.assertEqual(caller("getState"), (False,))
        self.assertEqual(caller("setKeepAwake", ON), DONE)
        self.assertEqual(
            locks(), [("sleep:handle-lid-switch", "Work goes on with the lid closed", "block", 0, owner_of(LABEL))]
        )
        self.assertEqual(caller("getState"), (True,))
        blocked = system_property(LOGIND, "BlockInhibited").split(":")
        self.assertLessEqual({"sleep", "handle-lid-switch"}, set(blocked))
        self.assertEqual(caller("setKeepAwake", OFF), DONE)
        eventually(is_not_locked, "released", AT_ONCE)
        self.assertEqual(caller("getState"), (False,))

    def test_a_thousand_requests_are_as_one(self):
        caller = self.caller()
        for _ in range(1000):
            self.assertEqual(caller("setKeepAwake", ON), DONE)
        self.assertTrue(is_locked())
        self.assertEqual(caller("setKeepAwake", OFF), DONE)
        eventually(is_not_locked, "released", AT_ONCE)
        for _ in range(1000):
            self.assertEqual(caller("setKeepAwake", OFF), DONE)
        self.assertLess(pss(owner_of(LABEL)), PSS_LIMIT)

    def test_the_last_of_a_thousand_changes_counts(self):
        caller = self.caller()
        for _ in range(500):
            self.assertEqual(caller("setKeepAwake", ON), DONE)
            self.assertEqual(caller("setKeepAwake", OFF), DONE)
        eventually(is_not_locked, "released", AT_ONCE)
        self.assertEqual(caller("setKeepAwake", ON), DONE)
        self.assertTrue(is_locked())

    def test_it_is_on_until_the_last_of_its_callers_wants_it_off(self):
        first, second = self.caller(), self.caller()
        self.assertEqual(first("setKeepAwake", ON), DONE)
        self.assertEqual(second("setKeepAwake", ON), DONE)
        self.assertTrue(is_locked())
        self.assertEqual(first("setKeepAwake", OFF), DONE)
        self.assertEqual(second("getState"), (True,))
        self.assertTrue(is_locked())
        self.assertEqual(second("setKeepAwake", OFF), DONE)
        eventually(is_not_locked, "released", AT_ONCE)

    def test_a_caller_that_is_killed_asks_no_more(self):
        killed, other = self.program(), self.program()
        self.assertEqual(killed("setKeepAwake", "(true,)"), DONE)
        self.assertEqual(other("setKeepAwake", "(true,)"), DONE)
        killed.end()
        helper = owner_of(LABEL)
        eventually(lambda: call_bus("NameHasOwner", GLib.Variant("(s)", (killed.name,))) is False, "it has left the bus")
        self.assertEqual(other("getState"), (True,))
        other.process.kill()
        eventually(is_not_locked, "released", AT_ONCE)
        self.assertEqual(owner_of(LABEL), helper)

    def test_a_caller_that_has_gone_before_it_is_answered_gets_nothing(self):
        witness = self.caller()
        for _ in range(20):
            caller = Caller()
            caller.connection.call(LABEL, PATH, PROTOCOL, "setKeepAwake", ON, None, Gio.DBusCallFlags.NONE, -1, None, None)
            caller.connection.flush_sync()
            caller.leave()
        eventually(lambda: witness("getState") == (False,) and is_not_locked(), "nothing is held")

    def test_a_caller_that_stands_still_asks_no_more(self):
        helper = self.start_helper("--lapse-seconds", "2")
        caller = self.program()
        began = time.monotonic()
        self.assertEqual(caller("setKeepAwake", "(true,)"), DONE)
        stop(caller.process.pid)
        eventually(is_not_locked, "released", 2 + AT_ONCE)
        self.assertGreaterEqual(time.monotonic() - began, 2)
        self.assertIn(f"{caller.name} has given no sign of life for too long.", helper.log())
        # When it goes on it can ask again.
        caller.process.send_signal(signal.SIGCONT)
        self.assertEqual(caller("heartbeat"), (True,))
        self.assertEqual(caller("getState"), (False,))
        self.assertEqual(caller("setKeepAwake", "(true,)"), DONE)
        self.assertTrue(is_locked())

    def test_heartbeats_hold_the_request_of_their_sender(self):
        self.start_helper("--lapse-seconds", "2")
        sender, silent = self.caller(), self.caller()
        self.assertEqual(silent("setKeepAwake", ON), DONE)
        self.assertEqual(sender("setKeepAwake", ON), DONE)
        end = time.monotonic() + 5
        while time.monotonic() < end:
            self.assertEqual(sender("heartbeat"), (True,))
            self.assertTrue(is_locked())
        # Those of somebody who does not ask hold nothing.
        eventually(lambda: silent("heartbeat") == (True,) and is_not_locked(), "released", 2 + AT_ONCE)


class ClosedLidTest(HelperTestCase):
    """Somebody who no longer can switches sleep on again while the lid is closed. The virtual laptop cannot sleep, which
    logind says when it is asked for it."""

    ASKED = "logind does not put the computer to sleep: "

    def setUp(self):
        super().setUp()
        self.addCleanup(self.move_lid, "open")

    @staticmethod
    def move_lid(state):
        hardware("lid", state)
        eventually(lambda: system_property(LOGIND, "LidClosed") == (state == "close"), "logind sees it")

    def take_lock(self, what):
        """A desktop's: most take the lid from logind for as long as they run."""
        lock = subprocess.Popen(["systemd-inhibit", f"--what={what}", "--who=desktop", "sleep", "infinity"],
                                start_new_session=True)
        self.addCleanup(lock.wait)
        self.addCleanup(os.killpg, lock.pid, signal.SIGKILL)
        eventually(lambda: any(who == "desktop" and what in locked.split(":") for locked, who, *_ in inhibitors()),
                   f"{what} is locked")

    def caller_that_is_killed(self, helper_options=()):
        helper = self.start_helper(*helper_options)
        caller = self.program()
        self.assertEqual(caller("setKeepAwake", "(true,)"), DONE)
        caller.process.kill()
        return helper

    def expect_nothing_asked(self, helper):
        """It ends when there is nothing more that it would do."""
        self.assertEqual(helper.process.wait(20), 0)
        self.assertNotIn(self.ASKED, helper.log())

    def test_the_computer_of_a_killed_caller_sleeps(self):
        self.take_lock("handle-lid-switch")
        self.move_lid("close")
        helper = self.caller_that_is_killed(("--idle-seconds", "2"))
        self.assertEqual(helper.process.wait(20), 0)
        self.assertEqual(helper.log().count(self.ASKED), 1)

    def test_the_computer_of_a_caller_that_stands_still_sleeps(self):
        self.take_lock("handle-lid-switch")
        self.move_lid("close")
        helper = self.start_helper("--lapse-seconds", "1")
        self.assertEqual(self.caller()("setKeepAwake", ON), DONE)
        eventually(lambda: self.ASKED in helper.log(), "logind is asked")

    def test_a_lock_that_goes_away_is_waited_for(self):
        self.take_lock("handle-lid-switch")
        self.move_lid("close")
        short = subprocess.Popen(["systemd-inhibit", "--what=sleep", "--who=short", "sleep", "2"])
        self.addCleanup(short.wait)
        eventually(lambda: any(who == "short" for _, who, *_ in inhibitors()), "it is held")
        helper = self.caller_that_is_killed()
        eventually(lambda: self.ASKED in helper.log(), "logind is asked")
        self.assertIsNotNone(short.poll())

    def test_whoever_switches_sleep_on_again_sees_to_the_lid(self):
        self.take_lock("handle-lid-switch")
        self.move_lid("close")
        helper = self.start_helper("--idle-seconds", "2")
        caller = self.caller()
        self.assertEqual(caller("setKeepAwake", ON), DONE)
        self.assertEqual(caller("setKeepAwake", OFF), DONE)
        self.expect_nothing_asked(helper)

    def test_the_last_of_two_callers_need_not_see_to_the_lid(self):
        self.take_lock("handle-lid-switch")
        self.move_lid("close")
        helper = self.start_helper()
        callers = self.caller(), self.caller()
        for caller in callers:
            self.assertEqual(caller("setKeepAwake", ON), DONE)
        for caller in callers:
            self.assertEqual(caller("setKeepAwake", OFF), DONE)
        eventually(lambda: self.ASKED in helper.log(), "logind is asked")

    def test_an_open_lid_is_left_alone(self):
        self.take_lock("handle-lid-switch")
        self.expect_nothing_asked(self.caller_that_is_killed(("--idle-seconds", "1")))

    def test_a_lid_of_loginds_own_is_left_to_it(self):
        self.move_lid("close")
        self.expect_nothing_asked(self.caller_that_is_killed(("--idle-seconds", "1")))

    def test_whoever_objects_to_sleep_is_heard(self):
        self.take_lock("handle-lid-switch")
        self.take_lock("sleep")
        self.move_lid("close")
        self.expect_nothing_asked(self.caller_that_is_killed(("--idle-seconds", "1")))

    def test_whoever_asks_meanwhile_keeps_it_awake(self):
        self.take_lock("handle-lid-switch")
        self.move_lid("close")
        helper = self.caller_that_is_killed(("--idle-seconds", "2"))
        other = self.caller()
        eventually(lambda: "has left the bus" in helper.log(), "the first is gone")
        self.assertEqual(other("setKeepAwake", ON), DONE)
        self.assertEqual(other("setKeepAwake", OFF), DONE)
        self.expect_nothing_asked(helper)


class EndTest(HelperTestCase):
    def test_however_it_ends_sleep_is_back_at_once(self):
        for number, status in ((signal.SIGKILL, -signal.SIGKILL), (signal.SIGTERM, 0), (signal.SIGINT, 0)):
            with self.subTest(number.name):
                helper = self.start_helper()
                self.assertEqual(self.caller()("setKeepAwake", ON), DONE)
                self.assertTrue(is_locked())
                helper.process.send_signal(number)
                self.assertEqual(helper.process.wait(AT_ONCE), status)
                eventually(is_not_locked, "released", AT_ONCE)

    def test_a_bus_that_stands_still_does_not_delay_the_end(self):
        bus = owner_of("org.freedesktop.DBus")
        helper = self.start_helper()
        self.assertEqual(self.caller()("setKeepAwake", ON), DONE)
        stop(bus)
        try:
            helper.process.terminate()
            self.assertEqual(helper.process.wait(AT_ONCE), 0)
        finally:
            os.kill(bus, signal.SIGCONT)
        eventually(is_not_locked, "released", AT_ONCE)

    def test_the_next_call_starts_another_which_knows_of_nothing(self):
        caller = self.caller()
        self.assertEqual(caller("setKeepAwake", ON), DONE)
        first = owner_of(LABEL)
        kill_owner(LABEL)
        self.assertEqual(caller("heartbeat"), (True,))
        self.assertNotEqual(owner_of(LABEL), first)
        self.assertEqual(caller("getState"), (False,))
        self.assertEqual(caller("setKeepAwake", ON), DONE)
        self.assertTrue(is_locked())

    def test_it_ends_when_nobody_needs_it(self):
        helper = self.start_helper("--idle-seconds", "1")
        caller = self.caller()
        self.assertEqual(caller("setKeepAwake", ON), DONE)
        with self.assertRaises(subprocess.TimeoutExpired):
            helper.process.wait(3)
        self.assertEqual(caller("setKeepAwake", OFF), DONE)
        self.assertEqual(helper.process.wait(20), 0)
        self.assertEqual(caller("getState"), (False,))

    def test_it_ends_when_the_last_request_has_lapsed(self):
        helper = self.start_helper("--idle-seconds", "1", "--lapse-seconds", "1")
        self.assertEqual(self.caller()("setKeepAwake", ON), DONE)
        self.assertEqual(helper.process.wait(20), 0)

    def test_no_call_is_lost_when_it_crosses_with_the_end(self):
        """The bus stands still while the one side gives the name back and the other calls; whichever is heard first."""
        bus = owner_of("org.freedesktop.DBus")
        crossed = 0
        for round_number in range(6):
            helper = self.start_helper("--idle-seconds", "1")
            caller, answers = self.caller(), {}
            self.assertEqual(caller("version"), (VERSION,))
            stop(bus)
            try:
                if round_number % 2 == 0:
                    self.send_all(caller, answers)
                eventually(lambda: "Nobody needs the helper: ending." in helper.log(), "it ends")
                if round_number % 2 == 1:
                    self.send_all(caller, answers)
            finally:
                os.kill(bus, signal.SIGCONT)
            self.assertEqual(helper.process.wait(20), 0)
            self.iterate_until(lambda: len(answers) == 3)
            self.assertEqual((answers["version"], answers["heartbeat"]), ((VERSION,), (True,)))
            if answers["setKeepAwake"] != DONE:
                crossed += 1
                self.assertEqual(answers["setKeepAwake"], (False, "The background helper was just ending. Please try again."))
                self.assertEqual(caller("setKeepAwake", ON), DONE)
            self.assertTrue(is_locked())
            self.assertNotEqual(owner_of(LABEL), helper.process.pid)
            kill_owner(LABEL)
        print(f"{crossed} of 6 requests crossed with the end", file=sys.stderr)

    @staticmethod
    def send_all(caller, answers):
        for method, arguments in (("version", None), ("setKeepAwake", ON), ("heartbeat", None)):
            caller.connection.call(
                LABEL, PATH, PROTOCOL, method, arguments, None, Gio.DBusCallFlags.NONE, helper_client.TIMEOUT, None,
                lambda connection, result, method: answers.update({method: connection.call_finish(result).unpack()}), method,
            )

    @staticmethod
    def iterate_until(condition):
        def is_so():
            while GLib.MainContext.default().iteration(False):
                pass
            return condition()

        eventually(is_so, "all calls are answered")

    def test_it_ends_when_the_bus_does(self):
        with tempfile.TemporaryDirectory() as directory:
            address = f"unix:path={directory}/bus"
            with subprocess.Popen(["dbus-daemon", "--session", "--nofork", f"--address={address}"], stderr=subprocess.DEVNULL) as bus:
                environment = {"TARVIK_MACH_LABEL": LABEL, "DBUS_SYSTEM_BUS_ADDRESS": address}
                eventually(pathlib.Path(directory, "bus").exists, "the bus is there")
                helper = StartedHelper(environment=environment)
                self.addCleanup(helper.end)
                ask = ["busctl", f"--address={address}", "call", LABEL, PATH, PROTOCOL, "version"]
                eventually(lambda: subprocess.run(ask, capture_output=True, check=False).returncode == 0, "it answers")
                bus.kill()
            self.assertEqual(helper.process.wait(AT_ONCE), 1)
            self.assertIn("The system bus has gone.", helper.log())


class LogindTest(HelperTestCase):
    def test_a_new_logind_holds_one_lock_as_well(self):
        helper = self.start_helper()
        caller = self.caller()
        self.assertEqual(caller("setKeepAwake", ON), DONE)
        for _ in range(3):
            before = helper.log().count("taking the lock again")
            kill_owner("org.freedesktop.login1")
            self.start_logind()
            eventually(lambda: helper.log().count("taking the lock again") == before + 1, "it has noticed")
            eventually(is_locked, "one lock", AT_ONCE)
            self.assertEqual(locks()[0][-1], helper.process.pid)
        self.assertEqual(caller("setKeepAwake", OFF), DONE)
        eventually(is_not_locked, "released", AT_ONCE)

    def test_a_logind_that_refuses_is_told(self):
        self.play_logind(lambda: ACCESS_DENIED)
        caller = self.caller()
        self.assertEqual(caller("setKeepAwake", ON), (False, "Sleep could not be switched off: It is not to be"))
        self.assertEqual(caller("getState"), (False,))

    def test_a_new_logind_that_refuses_is_logged(self):
        helper = self.start_helper()
        caller = self.caller()
        self.assertEqual(caller("setKeepAwake", ON), DONE)
        self.play_logind(lambda: ACCESS_DENIED)
        eventually(lambda: "<3>The lock could not be taken again from the new logind: It is not to be" in helper.log(), "logged")
        self.assertEqual(caller("setKeepAwake", OFF), DONE)

    def test_a_logind_that_never_answers_delays_nobody_for_long(self):
        logind = self.play_logind(lambda: None)
        waiting, other = self.program(), self.caller()
        began = time.monotonic()
        waiting.send("setKeepAwake", "(true,)")
        eventually(lambda: logind.calls, "logind is asked")
        self.assertEqual(other("getState"), (False,))
        self.assertEqual(waiting.receive(), (False, "Sleep could not be switched off: Method call timed out"))
        self.assertLess(time.monotonic() - began, 6)

    def test_without_logind_it_stays_off(self):
        kill_owner("org.freedesktop.login1")
        self.addCleanup(self.start_logind)
        ok, error = self.caller()("setKeepAwake", ON)
        self.assertFalse(ok)
        self.assertTrue(error.startswith("Sleep could not be switched off: "), error)


class AuthorizationTest(HelperTestCase):
    def test_polkit_knows_whom_it_lets(self):
        text = subprocess.run(["pkaction", "--verbose", "--action-id", ACTION], check=True, capture_output=True, text=True).stdout
        for line in ("implicit any:      auth_admin", "implicit inactive: yes", "implicit active:   yes"):
            self.assertIn(f"  {line}\n", text)

    def test_a_stranger_is_refused_and_changes_nothing(self):
        stranger = self.program(STRANGER)
        for _ in range(3):
            self.assertEqual(stranger("setKeepAwake", "(true,)"), ACCESS_DENIED)
            self.assertEqual(stranger("interactive", "setKeepAwake", "(true,)"), ACCESS_DENIED)
        self.assertEqual(locks(), [])
        self.assertEqual(stranger("getState"), (False,))
        self.assertEqual(stranger("version"), (VERSION,))

    def test_a_stranger_cannot_end_what_others_asked_for(self):
        caller, stranger = self.caller(), self.program(STRANGER)
        self.assertEqual(caller("setKeepAwake", ON), DONE)
        self.assertEqual(stranger("setKeepAwake", "(false,)"), DONE)
        self.assertEqual(stranger("heartbeat"), (True,))
        self.assertEqual(stranger("getState"), (True,))
        self.assertTrue(is_locked())

    def test_whom_polkit_lets_may(self):
        RULE.write_text(
            f'polkit.addRule(function (action, subject) {{ if (action.id == "{ACTION}" && subject.user == "daemon") '
            'return polkit.Result.YES; });\n', encoding="utf-8")
        self.addCleanup(RULE.unlink)
        user, stranger = self.program(USER), self.program(STRANGER)
        eventually(lambda: user("setKeepAwake", "(true,)") == DONE, "polkit has read the rule")
        self.assertTrue(is_locked())
        self.assertEqual(locks()[0][3], 0)
        self.assertEqual(stranger("setKeepAwake", "(true,)"), ACCESS_DENIED)
        self.assertEqual(user("setKeepAwake", "(false,)"), DONE)
        eventually(is_not_locked, "released", AT_ONCE)

    def test_polkit_is_asked_about_the_callers_connection(self):
        polkit = self.play_polkit(lambda: GLib.Variant("((bba{ss}))", ((True, False, {}),)))
        caller = self.program()
        self.assertEqual(caller("setKeepAwake", "(true,)"), DONE)
        self.assertEqual(caller("interactive", "setKeepAwake", "(true,)"), DONE)
        self.assertEqual(
            polkit.calls,
            [("CheckAuthorization", (("system-bus-name", {"name": caller.name}), ACTION, {}, flags, caller.name))
             for flags in (0, 1)],
        )

    def test_a_polkit_that_never_answers_allows_nothing_and_delays_nobody(self):
        polkit = self.play_polkit(lambda: None)
        waiting, other = self.program(), self.caller()
        began = time.monotonic()
        waiting.send("setKeepAwake", "(true,)")
        eventually(lambda: polkit.calls, "polkit is asked")
        self.assertEqual(other("version"), (VERSION,))
        self.assertEqual(waiting.receive(), ACCESS_DENIED)
        self.assertLess(time.monotonic() - began, 6)
        eventually(lambda: ("CancelCheckAuthorization", (waiting.name,)) in polkit.calls, "the question is withdrawn")
        self.assertEqual(locks(), [])

    def test_without_polkit_nothing_is_allowed(self):
        self.play_polkit(lambda: "org.freedesktop.PolicyKit1.Error.Failed")
        self.assertEqual(self.program(STRANGER)("setKeepAwake", "(true,)"), ACCESS_DENIED)

    def test_off_overtakes_a_request_about_which_the_user_is_still_asked(self):
        polkit = self.play_polkit(lambda: None)
        caller, answers = self.caller(), []
        parameters = ((ON, Gio.DBusCallFlags.ALLOW_INTERACTIVE_AUTHORIZATION), (ON, Gio.DBusCallFlags.NONE), (OFF, Gio.DBusCallFlags.NONE))
        for arguments, flags in parameters:
            caller.connection.call(
                LABEL, PATH, PROTOCOL, "setKeepAwake", arguments, None, flags, helper_client.TIMEOUT, None,
                lambda connection, result: answers.append(connection.call_finish(result).unpack()))
        EndTest.iterate_until(lambda: len(answers) == 3)
        overtaken = (False, "It was switched off again before it was on.")
        self.assertEqual(answers, [overtaken, overtaken, DONE])
        eventually(lambda: [method for method, _ in polkit.calls] == ["CheckAuthorization", "CancelCheckAuthorization"], "one question")
        self.assertEqual(locks(), [])

    def test_one_caller_cannot_pile_questions_up(self):
        self.play_polkit(lambda: None)
        caller, errors = self.caller(), []

        def on_answer(connection, result):
            try:
                connection.call_finish(result)
            except GLib.Error as error:
                errors.append(Gio.DBusError.get_remote_error(error))

        for _ in range(1000):
            caller.connection.call(LABEL, PATH, PROTOCOL, "setKeepAwake", ON, None,
                                   Gio.DBusCallFlags.ALLOW_INTERACTIVE_AUTHORIZATION, helper_client.TIMEOUT, None, on_answer)
        EndTest.iterate_until(lambda: len(errors) == 1000 - 16)
        self.assertEqual(set(errors), {"org.freedesktop.DBus.Error.LimitsExceeded"})
        self.assertEqual(self.caller()("version"), (VERSION,))


class MessageTest(HelperTestCase):
    def test_it_offers_what_the_contract_says(self):
        answer = BUS.call_sync(LABEL, PATH, "org.freedesktop.DBus.Introspectable", "Introspect", None, None,
                               Gio.DBusCallFlags.NONE, helper_client.TIMEOUT).unpack()[0]
        contract = TESTS.parent / "helper" / f"{PROTOCOL}.xml"
        self.assertEqual(ElementTree.parse(contract).getroot().get("name"), PATH)
        offered, agreed = (
            [operation for operation in tree.iter("interface") if operation.get("name") == PROTOCOL]
            for tree in (ElementTree.fromstring(answer), ElementTree.parse(contract))
        )
        self.assertEqual([describe(each) for each in offered], [describe(each) for each in agreed])

    def test_other_types_are_refused_and_change_nothing(self):
        caller = self.caller()
        for arguments in ("('true',)", "(1,)", "(uint32 1,)", "(<true>,)", "(true, true)", "([true],)", None):
            self.assertEqual(caller("setKeepAwake", arguments), INVALID_ARGUMENTS, arguments)
        for method in ("getState", "heartbeat", "version"):
            self.assertEqual(caller(method, "(true,)"), INVALID_ARGUMENTS, method)
        self.assertEqual(caller("getState"), (False,))
        self.assertEqual(locks(), [])

    def test_what_another_version_offers_is_unknown_here(self):
        self.assertEqual(self.caller()("setKeepAwakeForever", ON), "org.freedesktop.DBus.Error.UnknownMethod")
        for path, interface, error in (
            (PATH, "com.morvanta.Tarvik.HelperProtocol2", ACCESS_DENIED),
            (PATH, "org.freedesktop.DBus.ObjectManager", ACCESS_DENIED),
            ("/com/morvanta/Tarvik/Other", PROTOCOL, "org.freedesktop.DBus.Error.UnknownObject"),
        ):
            with self.assertRaises(GLib.Error) as raised:
                BUS.call_sync(LABEL, path, interface, "setKeepAwake", ON, None, Gio.DBusCallFlags.NONE, -1)
            self.assertEqual(Gio.DBusError.get_remote_error(raised.exception), error, interface)

    def test_a_huge_message_is_refused_and_leaves_nothing(self):
        caller = self.caller()
        for size in (100, 1_000_000, 16_000_000):
            self.assertEqual(caller("setKeepAwake", GLib.Variant("(s)", ("x" * size,))), INVALID_ARGUMENTS)
        self.assertEqual(caller("version"), (VERSION,))
        self.assertLess(pss(owner_of(LABEL)), PSS_LIMIT)

    def test_only_root_is_called_like_it(self):
        ask = ["busctl", "call", "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "RequestName", "su", LABEL, "4"]
        answer = subprocess.run(ask, user=USER, group=USER, extra_groups=[], capture_output=True, text=True, check=False)
        self.assertNotEqual(answer.returncode, 0)
        self.assertIn("Access denied", answer.stderr)


class LabelTest(HelperTestCase):
    def run_helper(self, **environment):
        return subprocess.run([HELPER], env=environment, capture_output=True, text=True, check=False, timeout=20)

    def test_without_a_label_it_asks_for_the_default_one(self):
        with tempfile.TemporaryDirectory() as directory:
            address = f"unix:path={directory}/bus"
            with subprocess.Popen(["dbus-daemon", "--session", "--nofork", f"--address={address}"], stderr=subprocess.DEVNULL) as bus:
                self.addCleanup(bus.kill)
                eventually(pathlib.Path(directory, "bus").exists, "the bus is there")
                helper = StartedHelper(environment={"DBUS_SYSTEM_BUS_ADDRESS": address})
                self.addCleanup(helper.end)
                ask = ["busctl", f"--address={address}", "call", "com.morvanta.tarvik.helper", PATH, PROTOCOL, "version"]
                eventually(lambda: subprocess.run(ask, capture_output=True, check=False).returncode == 0, "it answers")
                helper.process.terminate()
                self.assertEqual(helper.process.wait(AT_ONCE), 0)
                bus.terminate()

    def test_without_a_label_the_system_bus_does_not_know_it(self):
        result = self.run_helper()
        self.assertEqual(result.returncode, 1)
        self.assertIn('<3>The bus does not let this program be called "com.morvanta.tarvik.helper": ', result.stderr)
        self.assertIn("<3>TARVIK_MACH_LABEL is not set; the helper is meant to be started by the bus.\n", result.stderr)

    def test_a_label_that_is_no_name_is_told(self):
        for label in ("", "helper", ":1.2", "org.freedesktop.DBus", "a..b"):
            result = self.run_helper(TARVIK_MACH_LABEL=label)
            self.assertEqual(
                (result.returncode, result.stderr),
                (1, f'<3>The bus does not let this program be called "{label}": it is no name that a service can have\n'))

    def test_a_second_helper_ends(self):
        self.assertEqual(self.caller()("version"), (VERSION,))
        result = self.run_helper(TARVIK_MACH_LABEL=LABEL)
        self.assertEqual((result.returncode, result.stderr), (1, f'<3>The bus does not let this program be called "{LABEL}": another program is\n'))

    def test_without_a_bus_it_ends(self):
        result = self.run_helper(TARVIK_MACH_LABEL=LABEL, DBUS_SYSTEM_BUS_ADDRESS="unix:path=/nonexistent")
        self.assertEqual((result.returncode, result.stderr), (1, "<3>connecting to the system bus: No such file or directory\n"))


class CostTest(HelperTestCase):
    def test_it_needs_little_memory(self):
        caller = self.caller()
        self.assertEqual(caller("setKeepAwake", ON), DONE)
        memory = pss(owner_of(LABEL))
        print(f"{memory} KiB of memory", file=sys.stderr)
        self.assertLess(memory, PSS_LIMIT)

    def test_it_is_soon_there(self):
        caller = self.caller()
        times = []
        for _ in range(20):
            kill_owner(LABEL)
            began = time.monotonic()
            self.assertEqual(caller("version"), (VERSION,))
            times.append(time.monotonic() - began)
        print(f"{1000 * sorted(times)[10]:.1f} ms from a call to its answer when it has to be started", file=sys.stderr)

    def test_it_does_nothing_while_nothing_happens(self):
        helper = self.start_helper()
        self.assertEqual(self.caller()("version"), (VERSION,))
        eventually(lambda: state_of(helper.process.pid) == "S", "it waits")
        before = switches(helper.process.pid)
        with self.assertRaises(subprocess.TimeoutExpired):
            helper.process.wait(2)
        self.assertEqual(switches(helper.process.pid), before)


def switches(pid):
    status = pathlib.Path(f"/proc/{pid}/status").read_text(encoding="utf-8")
    return next(line for line in status.splitlines() if line.startswith("voluntary_ctxt_switches"))


def describe(interface):
    """Operations in their order, with their arguments and annotations."""
    return [(each.tag, dict(each.attrib), [(inner.tag, dict(inner.attrib)) for inner in each]) for each in interface]


if __name__ == "__main__":
    HELPER = sys.argv.pop(1)
    BUS = Gio.bus_get_sync(Gio.BusType.SYSTEM)
    VERSION = subprocess.run([HELPER, "--version"], check=True, capture_output=True, text=True).stdout.split()[1]
    unittest.main(verbosity=2)
