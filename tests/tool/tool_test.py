#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""The command-line tool as a whole program, on buses of its own. Usage: tool_test.py TOOL [UNITTEST-ARGUMENT...]"""

import json
import os
import pty
import signal
import socket
import subprocess
import sys
import tempfile
import threading
import time
import unittest
from pathlib import Path

from gi.repository import Gio, GLib

sys.path.append(str(Path(__file__).resolve().parents[1] / "support"))
from waiting import PATIENCE, eventually

TOOL = ""
CONTRACTS = Path(__file__).resolve().parents[2] / "src/dbus/contracts"
# An agent is never kept waiting longer; what comes on top is the time that a busy machine takes to start a process.
HOOK_LIMIT = 0.25
SLACK = 0.25
# So many processes at once still have to start within the time limit of each.
SENDERS = int(os.environ.get("TOOL_TEST_SENDERS", "50"))


def payload(session, event="PreToolUse", **more):
    return json.dumps({"session_id": session, "hook_event_name": event, **more}).encode()


class Bus:
    """A private session bus and a listener that notes every announcement on it."""

    def __init__(self, directory, user=None):
        self.directory = Path(directory)
        self.socket = self.directory / "bus"
        self.address = f"unix:path={self.socket}"
        become = {} if user is None else {"user": user, "group": user}
        environment = {"PATH": os.environ["PATH"], "XDG_DATA_HOME": str(self.directory / "data")}
        arguments = ["dbus-daemon", "--session", "--nofork", "--nosyslog", f"--address={self.address}"]
        self.daemon = subprocess.Popen(
            arguments, env=environment, stderr=subprocess.DEVNULL, extra_groups=[] if become else None, **become
        )
        eventually(self.is_listening, "the bus listens")
        self.lines = []
        self.monitor = subprocess.Popen(
            ["busctl", f"--address={self.address}", "--json=short", "monitor",
             "--match=type='signal',interface='com.morvanta.tarvik.hook'"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, extra_groups=[] if become else None, **become,
        )
        self.reader = threading.Thread(target=self.read, daemon=True)
        self.reader.start()

    def is_listening(self):
        # The socket's file is there before anybody accepts connections.
        with socket.socket(socket.AF_UNIX) as client:
            return client.connect_ex(str(self.socket)) == 0

    def wait_for_monitor(self):
        def is_heard():
            subprocess.run(
                ["busctl", f"--address={self.address}", "emit", "/probe", "com.morvanta.tarvik.hook", "Probe"],
                check=False, stderr=subprocess.DEVNULL, **self.as_owner(),
            )
            return any('"Probe"' in line for line in self.lines)

        eventually(is_heard, "the listener hears")

    def as_owner(self):
        owner = self.socket.stat().st_uid
        return {} if owner == os.geteuid() else {"user": owner, "group": owner, "extra_groups": []}

    def read(self):
        for line in self.monitor.stdout:
            self.lines.append(line.decode())

    def events(self):
        messages = [json.loads(line) for line in self.lines]
        return [m["payload"]["data"][0] for m in messages if m.get("member") == "Event"]

    def settled_events(self):
        """All events that had been sent when this was called: the probe comes after them."""
        name = f"Probe{time.monotonic_ns()}"
        subprocess.run(
            ["busctl", f"--address={self.address}", "emit", "/probe", "com.morvanta.tarvik.hook", name],
            check=True, **self.as_owner(),
        )
        eventually(lambda: any(name in line for line in self.lines), "the probe arrives")
        return self.events()

    def close(self):
        for process in (self.monitor, self.daemon):
            process.send_signal(signal.SIGCONT)
            process.terminate()
            process.wait()
        self.reader.join()
        self.monitor.stdout.close()


class ToolTestCase(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="tarvik-tool-")
        self.addCleanup(directory.cleanup)
        self.directory = Path(directory.name)
        self.directory.chmod(0o755)

    def start_bus(self, name="run", user=None):
        directory = self.directory / name
        directory.mkdir()
        if user is not None:
            os.chown(directory, user, user)
        bus = Bus(directory, user)
        self.addCleanup(bus.close)
        bus.wait_for_monitor()
        return bus

    def run_tool(self, *arguments, environment=None, **options):
        return subprocess.run(
            [TOOL, *arguments], env=environment or {}, capture_output=True, check=False, timeout=PATIENCE, **options
        )

    def assert_silent_success(self, result):
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, b"", b""))

    def hook(self, text=b"", tool="claude", environment=None, limit=HOOK_LIMIT, **options):
        """Runs the hook, which has to be quick and silent."""
        if "stdin" not in options:
            options["input"] = text
        begin = time.monotonic()
        result = self.run_tool("hook", "--tool", tool, environment=environment, **options)
        self.assertLess(time.monotonic() - begin, limit + SLACK)
        self.assert_silent_success(result)


class HookTest(ToolTestCase):
    def setUp(self):
        super().setUp()
        self.bus = self.start_bus()
        self.environment = {"DBUS_SESSION_BUS_ADDRESS": self.bus.address}

    def assert_heard(self, *sessions):
        self.assertEqual([event["session"] for event in self.bus.settled_events()], list(sessions))

    def test_a_turn_is_announced_from_its_start_to_its_end(self):
        self.hook(payload("s", "UserPromptSubmit"), environment=self.environment)
        self.hook(payload("s", "PreToolUse"), environment=self.environment)
        self.hook(payload("s", "Stop") + b"\n", environment=self.environment)
        lease = {"session": "claude:s", "tool": "claude"}
        self.assertEqual(
            self.bus.settled_events(),
            [{"action": action, **lease} for action in ("acquire", "acquire", "release")],
        )

    def test_the_signal_is_a_broadcast_under_the_agreed_names(self):
        self.hook(payload("s"), environment=self.environment)
        self.bus.settled_events()
        message = next(json.loads(line) for line in self.bus.lines if '"Event"' in line)
        self.assertEqual(message["path"], "/com/morvanta/tarvik/Hook")
        self.assertEqual(message["interface"], "com.morvanta.tarvik.hook")
        self.assertEqual(message["payload"]["type"], "a{ss}")
        self.assertIsNone(message.get("destination"))

    def test_a_bus_of_which_the_address_is_stale_is_passed_over(self):
        stale = self.directory / "stale"
        with socket.socket(socket.AF_UNIX) as listener:
            listener.bind(str(stale))
        for address in (f"unix:path={stale}", "unix:path=/nonexistent/bus,guid=0", "unix:abstract=gone", "tcp:host=x", "x"):
            with self.subTest(address):
                environment = {"DBUS_SESSION_BUS_ADDRESS": address, "XDG_RUNTIME_DIR": str(self.bus.directory)}
                before = len(self.bus.settled_events())
                self.hook(payload("s"), environment=environment)
                self.assertEqual(len(self.bus.settled_events()), before + 1)

    def test_a_second_address_of_the_list_is_tried(self):
        self.hook(payload("s"), environment={"DBUS_SESSION_BUS_ADDRESS": f"unix:path=/nonexistent;{self.bus.address}"})
        self.assert_heard("claude:s")

    def test_an_empty_environment_is_enough(self):
        # /run is replaced for the tool alone; inside a user namespace it is the superuser there.
        run = f"/run/user/{os.geteuid() if os.geteuid() == 0 else 0}"
        script = (
            'mount --bind "$1" "$1" && mount -t tmpfs tmpfs /run && mkdir -p "$2" && touch "$2/bus" && '
            'mount --bind "$1/bus" "$2/bus" && printf %s "$4" | env -i "$3" hook --tool claude'
        )
        result = subprocess.run(
            ["unshare", *([] if os.geteuid() == 0 else ["--map-root-user"]), "--mount", "sh", "-c", script, "sh",
             str(self.bus.directory), run, TOOL, payload("s").decode()],
            capture_output=True, check=False, timeout=PATIENCE,
        )
        self.assert_silent_success(result)
        self.assert_heard("claude:s")

    def test_a_bus_that_never_answers_delays_nobody(self):
        with socket.socket(socket.AF_UNIX) as listener:
            listener.bind(str(self.directory / "dead"))
            listener.listen(8)
            accepted = []

            def accept():
                try:
                    while True:
                        accepted.append(listener.accept()[0])
                except OSError:
                    pass

            thread = threading.Thread(target=accept, daemon=True)
            thread.start()
            environment = {"DBUS_SESSION_BUS_ADDRESS": f"unix:path={self.directory / 'dead'}"}
            self.hook(payload("s"), environment=environment)
            eventually(lambda: len(accepted) == 1, "one connection")
            environment["XDG_RUNTIME_DIR"] = str(self.bus.directory)
            self.hook(payload("s"), environment=environment)
            self.assert_heard("claude:s")
            listener.shutdown(socket.SHUT_RDWR)
            thread.join()
            for connection in accepted:
                connection.close()

    def test_a_bus_that_accepts_nobody_delays_nobody(self):
        with socket.socket(socket.AF_UNIX) as listener, socket.socket(socket.AF_UNIX) as first:
            listener.bind(str(self.directory / "full"))
            listener.listen(0)
            first.connect(str(self.directory / "full"))
            environment = {"DBUS_SESSION_BUS_ADDRESS": f"unix:path={self.directory / 'full'}"}
            self.hook(payload("s"), environment=environment)
            environment["XDG_RUNTIME_DIR"] = str(self.bus.directory)
            self.hook(payload("s"), environment=environment)
            self.assert_heard("claude:s")

    def test_a_frozen_bus_delays_nobody(self):
        self.bus.daemon.send_signal(signal.SIGSTOP)
        self.hook(payload("s"), environment=self.environment)
        self.bus.daemon.send_signal(signal.SIGCONT)

    def test_a_bus_that_answers_nonsense_is_survived(self):
        for answer in (b"REJECTED EXTERNAL\r\n", b"\r\n" * 10, b"OK\r\n" + b"\xff" * 64, b"OK\r\nl" + b"\x7f" * 64, b"x" * 70000):
            with self.subTest(answer[:20]), socket.socket(socket.AF_UNIX) as listener:
                name = self.directory / f"odd{len(answer)}"
                listener.bind(str(name))
                listener.listen(1)

                def serve():
                    connection, _ = listener.accept()
                    with connection:
                        connection.recv(65536)
                        try:
                            connection.sendall(answer)
                        except OSError:
                            pass

                thread = threading.Thread(target=serve)
                thread.start()
                self.hook(payload("s"), environment={"DBUS_SESSION_BUS_ADDRESS": f"unix:path={name}"})
                thread.join()

    def test_no_bus_is_no_matter(self):
        self.hook(payload("s"), environment={})

    def test_no_input_is_no_matter(self):
        self.hook(environment=self.environment, stdin=subprocess.DEVNULL)
        result = subprocess.run(
            ["sh", "-c", 'exec "$0" hook --tool claude <&-', TOOL], env=self.environment, capture_output=True, check=False
        )
        self.assert_silent_success(result)
        directory = os.open(self.directory, os.O_RDONLY)
        self.hook(environment=self.environment, stdin=directory)
        os.close(directory)
        self.assert_heard()

    def test_a_terminal_that_is_anothers_is_no_matter(self):
        pid, terminal = pty.fork()
        if pid == 0:
            # In a group of its own the hook is in the background.
            hook = subprocess.Popen(
                [TOOL, "hook", "--tool", "claude"], env=self.environment, preexec_fn=lambda: os.setpgid(0, 0)
            )
            _, status = os.waitpid(hook.pid, os.WUNTRACED)
            if os.WIFSTOPPED(status):
                hook.kill()
            os._exit(0 if os.WIFEXITED(status) and os.WEXITSTATUS(status) == 0 else 1)
        os.write(terminal, payload("typed") + b"\n")
        self.assertEqual(os.waitstatus_to_exitcode(os.waitpid(pid, 0)[1]), 0)
        os.close(terminal)
        self.assert_heard()

    def test_closed_output_is_no_matter(self):
        script = 'printf %s "$1" | "$0" hook --tool claude >&- 2>&-'
        subprocess.run(["sh", "-c", script, TOOL, payload("s").decode()], env=self.environment, check=True)
        self.assert_heard("claude:s")

    def test_input_without_an_end_is_used_as_far_as_it_goes(self):
        for text, is_quick in ((payload("whole"), True), (payload("cut", x="y")[:-4], False), (b"", False)):
            with self.subTest(text):
                read_end, write_end = os.pipe()
                os.write(write_end, text)
                begin = time.monotonic()
                self.hook(environment=self.environment, stdin=read_end)
                if is_quick:
                    self.assertLess(time.monotonic() - begin, 0.1 + SLACK / 2)
                os.close(read_end)
                os.close(write_end)
        self.assert_heard("claude:whole", "claude:cut")

    def test_input_that_streams_without_an_end_is_left_in_time(self):
        with subprocess.Popen(["cat", "/dev/zero"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as endless:
            self.hook(environment=self.environment, stdin=endless.stdout)
            endless.kill()
        self.assert_heard()

    def test_input_of_twenty_megabytes_is_drained(self):
        bulk = "x" * 20_000_000
        early = payload("first", tool_input={"content": bulk})
        begin = time.monotonic()
        with subprocess.Popen([TOOL, "hook", "--tool", "claude"], env=self.environment, stdin=subprocess.PIPE) as process:
            # A reader that leaves early would break the pipe here.
            process.stdin.write(early)
        self.assertEqual(process.returncode, 0)
        self.assertLess(time.monotonic() - begin, HOOK_LIMIT + SLACK)
        late = json.dumps({"tool_input": {"content": bulk}, "session_id": "late", "hook_event_name": "Stop"}).encode()
        self.hook(late, environment=self.environment)
        self.assert_heard("claude:first")

    def test_input_of_less_than_a_megabyte_may_have_the_event_last(self):
        text = json.dumps({"x": "y" * 1_000_000, "session_id": "late", "hook_event_name": "Stop"}).encode()
        self.hook(text, environment=self.environment)
        self.assert_heard("claude:late")

    def test_input_through_a_socket_is_read(self):
        ours, theirs = socket.socketpair()
        with ours, theirs:
            ours.sendall(payload("s"))
            ours.shutdown(socket.SHUT_WR)
            self.hook(environment=self.environment, stdin=theirs)
        self.assert_heard("claude:s")

    def test_input_that_does_not_block_is_read_and_left_as_it_was(self):
        read_end, write_end = os.pipe()
        os.set_blocking(read_end, False)
        with subprocess.Popen([TOOL, "hook", "--tool", "claude"], env=self.environment, stdin=read_end) as process:
            time.sleep(0.02)
            os.write(write_end, payload("s"))
            os.close(write_end)
            self.assertEqual(process.wait(), 0)
        self.assertFalse(os.get_blocking(read_end))
        os.close(read_end)
        self.assert_heard("claude:s")

    def test_whatever_is_not_understood_is_ignored(self):
        self.hook(b"not JSON", environment={**self.environment, "CLAUDE_CODE_SESSION_ID": "e"})
        self.hook(b"\xff\xfe\0", environment=self.environment)
        self.hook(b'{"session_id":"s"}', environment=self.environment)
        self.hook(b'{"hook_event_name":"Stop"}', environment=self.environment)
        self.hook(payload("s", "SessionStart"), environment=self.environment)
        self.hook(payload("s"), tool="unknown", environment=self.environment)
        self.hook(payload("s"), tool="", environment=self.environment)
        self.assert_heard()

    def test_usage_errors_are_silent(self):
        for arguments in (["hook"], ["hook", "--tool"], ["hook", "--help"], ["hook", "--odd", "x"]):
            with self.subTest(arguments):
                self.assert_silent_success(self.run_tool(*arguments, environment=self.environment, input=payload("s")))
        self.assert_heard()

    def test_the_session_of_the_environment_serves(self):
        self.hook(b'{"hook_event_name":"Stop"}', environment={**self.environment, "CLAUDE_CODE_SESSION_ID": "e"})
        self.assert_heard("claude:e")

    def test_text_that_no_message_may_carry_is_cleaned(self):
        self.hook(b'{"session_id":"a\\u0000b\xff\\n","hook_event_name":"Stop"}', environment=self.environment)
        self.assert_heard("claude:a?b??")

    def start_guarded_hook(self, **options):
        process = subprocess.Popen(
            [TOOL, "hook", "--tool", "claude"], env=self.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=subprocess.PIPE, **options,
        )
        # It comes to ignore them one after the other.
        interruptions = sum(1 << (number - 1) for number in (signal.SIGINT, signal.SIGHUP, signal.SIGPIPE, signal.SIGTTIN))

        def is_guarded():
            fields = Path(f"/proc/{process.pid}/status").read_text(encoding="utf-8").splitlines()
            ignored = next(line for line in fields if line.startswith("SigIgn:"))
            return int(ignored.split()[1], 16) & interruptions == interruptions

        eventually(is_guarded, "the hook guards itself")
        return process

    def test_the_users_interrupt_does_not_lose_the_event(self):
        process = self.start_guarded_hook()
        process.send_signal(signal.SIGINT)
        process.send_signal(signal.SIGHUP)
        process.send_signal(signal.SIGPIPE)
        self.assertEqual(process.communicate(payload("s", "Stop")), (b"", b""))
        self.assertEqual(process.returncode, 0)
        self.assert_heard("claude:s")

    def test_a_request_to_terminate_is_obeyed(self):
        def ignore():
            signal.signal(signal.SIGTERM, signal.SIG_IGN)
            signal.pthread_sigmask(signal.SIG_BLOCK, [signal.SIGTERM])

        for options in ({}, {"preexec_fn": ignore}):
            process = self.start_guarded_hook(**options)
            # Guarding ends after that with the time limit; the order of the two cannot be seen from here.
            eventually(lambda: process.send_signal(signal.SIGTERM) or process.poll() is not None, "it ends")
            self.assertEqual(process.returncode, -signal.SIGTERM)
            self.assertEqual(process.communicate(), (b"", b""))

    def test_a_crash_is_a_silent_success(self):
        for crash in (signal.SIGSEGV, signal.SIGABRT, signal.SIGBUS, signal.SIGFPE, signal.SIGILL):
            process = self.start_guarded_hook()
            process.send_signal(crash)
            self.assertEqual(process.communicate(), (b"", b""))
            self.assertEqual(process.returncode, 0)

    def test_two_thousand_of_two_thousand_arrive(self):
        script = """
            i=0
            while [ $i -lt 2000 ]; do
                echo '{"session_id":"'$i'","hook_event_name":"PreToolUse"}' | "$0" hook --tool claude || exit 1
                i=$((i + 1))
            done"""
        subprocess.run(["sh", "-c", script, TOOL], env={**self.environment, "PATH": os.environ["PATH"]}, check=True)
        self.assert_heard(*(f"claude:{i}" for i in range(2000)))

    def test_many_senders_at_once_all_arrive(self):
        script = """
            for i in $(seq "$1"); do
                echo '{"session_id":"'$i'","hook_event_name":"PreToolUse"}' | "$0" hook --tool claude &
            done
            wait"""
        for _ in range(10):
            before = len(self.bus.settled_events())
            environment = {**self.environment, "PATH": os.environ["PATH"]}
            subprocess.run(["sh", "-c", script, TOOL, str(SENDERS)], env=environment, check=True)
            sessions = {event["session"] for event in self.bus.settled_events()[before:]}
            self.assertEqual(sessions, {f"claude:{i}" for i in range(1, SENDERS + 1)})


class LeaseTest(ToolTestCase):
    def setUp(self):
        super().setUp()
        self.bus = self.start_bus()
        self.environment = {"DBUS_SESSION_BUS_ADDRESS": self.bus.address}

    def test_leases_are_handed_to_the_bus(self):
        self.assert_silent_success(
            self.run_tool("acquire", "--session", "k", "--tool", "make", "--ttl", "1.5", "--reason", "a é",
                          environment=self.environment)
        )
        self.assert_silent_success(self.run_tool("release", "--session=k", environment=self.environment))
        self.assert_silent_success(self.run_tool("release-all", environment=self.environment))
        self.assertEqual(
            self.bus.settled_events(),
            [
                {"action": "acquire", "session": "k", "tool": "make", "ttl": "1.5", "reason": "a é"},
                {"action": "release", "session": "k"},
                {"action": "release-all"},
            ],
        )

    def test_no_bus_is_said_in_one_line(self):
        for arguments in (["acquire", "--session", "k"], ["release", "--session", "k"], ["release-all"]):
            result = self.run_tool(*arguments)
            self.assertEqual((result.returncode, result.stdout), (1, b""))
            self.assertEqual(result.stderr.count(b"\n"), 1)
            self.assertIn(b"no session bus", result.stderr)

    def test_usage_errors_are_said_in_one_line(self):
        for arguments in ([], ["sleep"], ["acquire"], ["acquire", "--session", "k", "--ttl", "soon"], ["hold"], ["status", "x"]):
            result = self.run_tool(*arguments, environment=self.environment)
            self.assertEqual((result.returncode, result.stdout), (64, b""))
            self.assertEqual(result.stderr.count(b"\n"), 1)
            self.assertIn(b"tarvik --help", result.stderr)
        self.assertEqual(self.bus.settled_events(), [])

    def test_help_and_version_are_printed(self):
        for arguments in (["--help"], ["help"], ["hold", "--help"]):
            result = self.run_tool(*arguments)
            self.assertEqual((result.returncode, result.stderr), (0, b""))
            self.assertTrue(result.stdout.startswith(b"Usage: tarvik"))
        self.assertRegex(self.run_tool("--version").stdout, rb"^tarvik \d+\.\d+\.\d+\n$")


class HoldTest(ToolTestCase):
    def setUp(self):
        super().setUp()
        self.bus = self.start_bus()
        self.environment = {"DBUS_SESSION_BUS_ADDRESS": self.bus.address, "PATH": os.environ["PATH"]}

    def actions(self):
        return [event["action"] for event in self.bus.settled_events()]

    def start_hold(self, script, **options):
        return subprocess.Popen(
            [TOOL, "hold", "sh", "-c", script], env=self.environment, stdout=subprocess.PIPE, **options
        )

    def test_the_lease_lasts_as_long_as_the_command(self):
        result = self.run_tool("hold", "--reason", "why", "--", "sh", "-c", "echo out; echo err >&2; exit 7",
                               environment=self.environment)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (7, b"out\n", b"err\n"))
        acquire, release = self.bus.settled_events()
        self.assertRegex(acquire["session"], r"^hold:\d+-[0-9a-f]{16}$")
        self.assertEqual(
            acquire,
            {"action": "acquire", "session": acquire["session"], "tool": "sh", "ttl": "120", "reason": "why"},
        )
        self.assertEqual(release, {"action": "release", "session": acquire["session"], "tool": "sh"})

    def test_the_ends_of_commands_are_passed_on(self):
        for command, status in ((["sh", "-c", "kill -KILL $$"], 137), (["/nonexistent"], 127), (["/"], 126)):
            result = self.run_tool("hold", *command, environment=self.environment)
            self.assertEqual(result.returncode, status)
            self.assertEqual(self.actions()[-2:], ["acquire", "release"])

    def test_the_input_is_the_commands(self):
        result = self.run_tool("hold", "cat", environment=self.environment, input=b"text")
        self.assertEqual(result.stdout, b"text")

    def test_signals_reach_the_command(self):
        for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT, signal.SIGUSR1):
            with self.subTest(number):
                hold = self.start_hold(f"trap 'echo heard; exit 5' {number}; echo ready; while :; do sleep 0.01; done")
                self.assertEqual(hold.stdout.readline(), b"ready\n")
                hold.send_signal(number)
                self.assertEqual(hold.communicate()[0], b"heard\n")
                self.assertEqual(hold.returncode, 5)
                self.assertEqual(self.actions()[-2:], ["acquire", "release"])

    def test_the_command_that_a_signal_ends_gives_the_lease_back(self):
        hold = self.start_hold("echo ready; exec sleep 60")
        self.assertEqual(hold.stdout.readline(), b"ready\n")
        hold.terminate()
        self.assertEqual(hold.wait(), 128 + signal.SIGTERM)
        hold.stdout.close()
        self.assertEqual(self.actions(), ["acquire", "release"])

    def test_a_killed_hold_leaves_a_lease_that_lapses(self):
        hold = self.start_hold("echo $$; exec sleep 60")
        child = int(hold.stdout.readline())
        hold.kill()
        hold.wait()
        hold.stdout.close()
        os.kill(child, signal.SIGKILL)
        (event,) = self.bus.settled_events()
        self.assertEqual((event["action"], event["ttl"]), ("acquire", "120"))

    def test_a_stop_from_the_terminal_stops_both_and_the_lease(self):
        hold = self.start_hold("echo $$; while :; do sleep 0.01; done", preexec_fn=os.setpgrp)
        hold.stdout.readline()
        hold.send_signal(signal.SIGTSTP)
        self.assertTrue(os.WIFSTOPPED(os.waitpid(hold.pid, os.WUNTRACED)[1]))
        self.assertEqual(self.actions(), ["acquire", "release"])
        os.killpg(hold.pid, signal.SIGCONT)
        eventually(lambda: self.actions()[:3] == ["acquire", "release", "acquire"], "the lease is back")
        os.killpg(hold.pid, signal.SIGTERM)
        self.assertEqual(hold.wait(), 128 + signal.SIGTERM)
        hold.stdout.close()
        self.assertEqual(self.actions()[-1], "release")

    def test_the_terminals_interrupt_reaches_the_command_once(self):
        script = "trap 'n=x$n' INT; echo ready; read line; echo got:$n; exit 3"
        pid, terminal = pty.fork()
        if pid == 0:
            os.execve(TOOL, [TOOL, "hold", "sh", "-c", script], self.environment)
        output = b""

        def read_to(text):
            # What was said at once may come in parts, and what was said one after the other together.
            nonlocal output
            while text not in output:
                output += os.read(terminal, 4096)

        read_to(b"ready")
        os.write(terminal, b"\x03")
        read_to(b"^C")
        os.write(terminal, b"\n")
        read_to(b"got:x\r\n")
        self.assertEqual(os.waitstatus_to_exitcode(os.waitpid(pid, 0)[1]), 3)
        os.close(terminal)
        self.assertEqual(self.actions(), ["acquire", "release"])

    def test_without_a_bus_the_command_runs_after_a_warning(self):
        result = self.run_tool("hold", "sh", "-c", "echo out; exit 4", environment={"PATH": os.environ["PATH"]})
        self.assertEqual((result.returncode, result.stdout), (4, b"out\n"))
        self.assertEqual(result.stderr.count(b"\n"), 1)
        self.assertIn(b"no session bus", result.stderr)


class FakeTarvik:
    """Answers on the bus as a running Tarvik does, with the interfaces as they are described for programs."""

    # By the tool's command, as text and as JSON.
    ANSWERS = {"status": ("Awake · 1 agent\n  Now       Claude Code", '{"isRunning":true}'),
               "why": ("Steam keeps this computer awake.\n\n  Others hold off  every sleep", '{"isRunning":true,"locks":[]}')}
    TEXT, JSON = ANSWERS["status"]

    def __init__(self, address, is_awake):
        self.is_awake = is_awake
        self.loop = GLib.MainLoop()
        self.owned = threading.Event()
        self.thread = threading.Thread(target=self.serve, args=(address,))
        self.thread.start()
        if not self.owned.wait(PATIENCE):
            raise AssertionError("the name was never owned")

    def serve(self, address):
        context = GLib.MainContext.default()
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        connection = self.connection = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)

        def called(_connection, _sender, _path, _interface, method, arguments, invocation):
            answers = {"Describe": (self.TEXT, self.JSON), "Explain": self.ANSWERS["why"]}
            text = answers[method][arguments.unpack()[0]]
            if not text:
                invocation.return_dbus_error("org.freedesktop.DBus.Error.UnknownObject", "It has yet to be offered.")
                return
            invocation.return_value(GLib.Variant("(sb)", (text, self.is_awake)))

        for interface in ("Status1", "Why1"):
            contract = (CONTRACTS / f"com.morvanta.Tarvik.{interface}.xml").read_text(encoding="utf-8")
            connection.register_object("/com/morvanta/Tarvik", Gio.DBusNodeInfo.new_for_xml(contract).interfaces[0], called, None, None)
        Gio.bus_own_name_on_connection(
            connection, "com.morvanta.Tarvik", Gio.BusNameOwnerFlags.NONE, lambda *_: self.owned.set(), None
        )
        self.loop.run()
        connection.close_sync(None)
        while context.iteration(False):
            pass

    def announce(self):
        """That its properties have changed."""
        changes = GLib.Variant("(sa{sv}as)", ("com.morvanta.Tarvik.Status1", {"Reason": GLib.Variant("s", "")}, []))
        self.connection.emit_signal(None, "/com/morvanta/Tarvik", "org.freedesktop.DBus.Properties", "PropertiesChanged", changes)

    def close(self):
        self.loop.quit()
        self.thread.join()


class StatusTest(ToolTestCase):
    def setUp(self):
        super().setUp()
        self.bus = self.start_bus()
        self.environment = {"DBUS_SESSION_BUS_ADDRESS": self.bus.address, "TZ": "UTC"}

    def start_tarvik(self, is_awake=True):
        tarvik = FakeTarvik(self.bus.address, is_awake)
        self.addCleanup(tarvik.close)

    def test_the_exit_status_tells_awake_from_not(self):
        self.start_tarvik()
        for command in FakeTarvik.ANSWERS:
            self.assertEqual(self.run_tool(command, environment=self.environment).returncode, 0)

    def test_the_exit_status_tells_not_awake(self):
        self.start_tarvik(is_awake=False)
        for command in FakeTarvik.ANSWERS:
            for options in ([], ["--json"]):
                result = self.run_tool(command, *options, environment=self.environment)
                self.assertEqual((result.returncode, result.stderr), (1, b""))

    def test_the_exit_status_tells_not_running(self):
        for command in FakeTarvik.ANSWERS:
            for environment in (self.environment, {}):
                result = self.run_tool(command, environment=environment)
                self.assertEqual((result.returncode, result.stdout, result.stderr), (2, b"Tarvik is not running.\n", b""))
                result = self.run_tool(command, "--json", environment=environment)
                self.assertEqual((result.returncode, json.loads(result.stdout)), (2, {"isRunning": False}))

    def test_asking_starts_nothing(self):
        services = self.bus.directory / "data/dbus-1/services"
        services.mkdir(parents=True)
        mark = self.directory / "started"
        (services / "com.morvanta.Tarvik.service").write_text(
            f"[D-BUS Service]\nName=com.morvanta.Tarvik\nExec=/usr/bin/touch {mark}\n", encoding="utf-8"
        )
        reload = ["busctl", f"--address={self.bus.address}", "call", "org.freedesktop.DBus", "/org/freedesktop/DBus",
                  "org.freedesktop.DBus"]
        subprocess.run([*reload, "ReloadConfig"], check=True)
        names = subprocess.run([*reload, "ListActivatableNames"], check=True, capture_output=True).stdout
        self.assertIn(b"com.morvanta.Tarvik", names)
        for command in FakeTarvik.ANSWERS:
            self.assertEqual(self.run_tool(command, environment=self.environment).returncode, 2)
        self.run_tool("acquire", "--session", "k", environment=self.environment)
        self.bus.settled_events()
        self.assertFalse(mark.exists())

    def test_what_tarvik_says_is_printed(self):
        self.start_tarvik()
        for command, (text, as_json) in FakeTarvik.ANSWERS.items():
            for options, expected in (([], text), (["--json"], as_json)):
                result = self.run_tool(command, *options, environment=self.environment)
                self.assertEqual((result.returncode, result.stdout.decode()), (0, f"{expected}\n"))

    def test_the_bus_where_tarvik_runs_is_found_behind_one_where_it_does_not(self):
        other = self.start_bus("other")
        self.start_tarvik()
        environment = {"DBUS_SESSION_BUS_ADDRESS": other.address, "XDG_RUNTIME_DIR": str(self.bus.directory)}
        self.assertEqual(self.run_tool("status", environment=environment).returncode, 0)
        self.hook(payload("s"), environment=environment)
        self.assertEqual(len(self.bus.settled_events()), 1)
        self.assertEqual(len(other.settled_events()), 1)


class FollowTest(ToolTestCase):
    NOT_RUNNING = "Tarvik is not running."

    def setUp(self):
        super().setUp()
        self.bus = self.start_bus()

    def follow(self, *options, **environment):
        environment = environment or {"DBUS_SESSION_BUS_ADDRESS": self.bus.address}
        process = subprocess.Popen([TOOL, "status", "--follow", *options], env=environment, stdout=subprocess.PIPE, text=True)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        self.lines = []

        def read():
            for line in process.stdout:
                self.lines.append(line.removesuffix("\n"))

        reader = threading.Thread(target=read)
        reader.start()
        self.addCleanup(reader.join)
        self.addCleanup(process.kill)
        return process

    def wait_for(self, *lines):
        eventually(lambda: self.lines == list(lines), lambda: f"{lines} are printed, not {self.lines}")

    def start_tarvik(self):
        tarvik = FakeTarvik(self.bus.address, True)
        self.addCleanup(tarvik.close)
        return tarvik

    def test_each_change_is_one_line_also_when_tarvik_ends_and_starts(self):
        self.follow()
        self.wait_for(self.NOT_RUNNING)
        tarvik = self.start_tarvik()
        self.wait_for(self.NOT_RUNNING, "Awake · 1 agent")
        tarvik.TEXT = "Watching\n  Now  nothing"
        tarvik.announce()
        self.wait_for(self.NOT_RUNNING, "Awake · 1 agent", "Watching")
        tarvik.close()
        self.wait_for(self.NOT_RUNNING, "Awake · 1 agent", "Watching", self.NOT_RUNNING)
        self.start_tarvik()
        self.wait_for(self.NOT_RUNNING, "Awake · 1 agent", "Watching", self.NOT_RUNNING, "Awake · 1 agent")

    def test_json_is_one_object_a_line(self):
        self.follow("--json")
        self.wait_for('{"isRunning":false}')
        self.start_tarvik()
        self.wait_for('{"isRunning":false}', FakeTarvik.JSON)

    def test_what_says_nothing_new_prints_nothing(self):
        tarvik = self.start_tarvik()
        self.follow()
        self.wait_for("Awake · 1 agent")
        for number in range(300):
            tarvik.TEXT = f"Awake · 1 agent\n  Now  {number}"
            tarvik.announce()
        tarvik.TEXT = "Off"
        tarvik.announce()
        self.wait_for("Awake · 1 agent", "Off")

    def test_a_flood_of_changes_becomes_a_few_lines(self):
        tarvik = self.start_tarvik()
        self.follow()
        self.wait_for("Awake · 1 agent")
        for number in range(2000):
            tarvik.TEXT = str(number)
            tarvik.announce()
        eventually(lambda: self.lines[-1] == "1999", "the last one is there")
        self.assertLess(len(self.lines), 200)

    def test_a_tarvik_that_has_its_name_before_it_answers_is_asked_again(self):
        answer = FakeTarvik.TEXT
        tarvik = self.start_tarvik()
        tarvik.TEXT = ""
        self.follow()
        self.wait_for(self.NOT_RUNNING)
        tarvik.TEXT = answer
        self.wait_for(self.NOT_RUNNING, "Awake · 1 agent")

    def test_it_follows_on_the_bus_where_tarvik_runs(self):
        other = self.start_bus("other")
        self.start_tarvik()
        self.follow(DBUS_SESSION_BUS_ADDRESS=other.address, XDG_RUNTIME_DIR=str(self.bus.directory))
        self.wait_for("Awake · 1 agent")

    def test_it_ends_with_the_bus(self):
        process = self.follow()
        self.wait_for(self.NOT_RUNNING)
        self.bus.daemon.kill()
        self.assertEqual(process.wait(timeout=PATIENCE), 2)
        process = self.follow(PATH="")
        self.assertEqual(process.wait(timeout=PATIENCE), 2)
        self.wait_for(self.NOT_RUNNING)

    def test_it_ends_when_nobody_reads_it_any_more(self):
        environment = {"DBUS_SESSION_BUS_ADDRESS": self.bus.address}
        process = subprocess.Popen([TOOL, "status", "--follow"], env=environment, stdout=subprocess.PIPE)
        self.addCleanup(process.kill)
        self.assertEqual(process.stdout.readline().decode(), f"{self.NOT_RUNNING}\n")
        process.stdout.close()
        self.assertEqual(process.wait(timeout=PATIENCE), 2)

    def test_it_waits_without_doing_anything(self):
        process = self.follow()
        self.wait_for(self.NOT_RUNNING)

        def has_not_run_for_a_second():
            before = self.switches(process.pid)
            time.sleep(1)
            return self.switches(process.pid) == before

        # It looks a few times whether a Tarvik is about to start.
        eventually(has_not_run_for_a_second, "it only waits")

    @staticmethod
    def switches(pid):
        text = Path(f"/proc/{pid}/status").read_text(encoding="utf-8")
        return [line for line in text.splitlines() if "ctxt_switches" in line]


# The configuration files of the agents, in the order in which they are told of.
CONFIGURATIONS = (".claude/settings.json", ".codex/hooks.json", ".gemini/settings.json", ".qwen/settings.json",
                  ".factory/hooks.json", ".copilot/hooks/tarvik.json")
OURS = {"type": "command", "command": '"/opt/tarvik/Contents/SharedSupport/tarvik" hook --tool claude', "name": "tarvik"}
FOREIGN = {"type": "command", "command": "notify-send done"}


def hooks(*entries, event="Stop"):
    return {"hooks": {event: [{"hooks": list(entries)}]}}


class UnhookTestCase(ToolTestCase):
    def setUp(self):
        super().setUp()
        self.home = self.directory / "home"
        self.home.mkdir()

    def put(self, name, content):
        path = self.home / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content if isinstance(content, bytes) else json.dumps(content).encode())
        return path

    def unhook(self, environment=None, **options):
        """The exit status, and what was said of each file: to which stream, and what."""
        environment = environment if environment is not None else {"HOME": str(self.home)}
        result = self.run_tool("unhook", environment=environment, **options)
        said = {}
        for stream, prefix, text in (("out", "~/", result.stdout), ("err", "tarvik: ~/", result.stderr)):
            for line in text.decode().splitlines():
                self.assertTrue(line.startswith(prefix), line)
                name, what = line.removeprefix(prefix).split(": ", 1)
                self.assertNotIn(name, said)
                said[name] = (stream, what)
        self.assertEqual(set(said), set(CONFIGURATIONS))
        return result.returncode, said


class UnhookTest(UnhookTestCase):
    NONE = ("out", "no such file, or an empty one")
    FOREIGN = ("out", "has nothing of Tarvik's")
    TAKEN = ("out", "Tarvik's entries are taken out")

    def test_without_a_file_there_is_nothing_to_do_and_nothing_is_made(self):
        self.assertEqual(self.unhook(), (0, dict.fromkeys(CONFIGURATIONS, self.NONE)))
        self.assertEqual(list(self.home.iterdir()), [])

    def test_each_line_tells_of_one_file_in_a_fixed_order(self):
        result = self.run_tool("unhook", environment={"HOME": str(self.home)})
        names = [line.split(":")[0] for line in result.stdout.decode().splitlines()]
        self.assertEqual(names, [f"~/{name}" for name in CONFIGURATIONS])

    def test_only_our_entries_go_from_all_files(self):
        for name in CONFIGURATIONS[:-1]:
            event = "AfterAgent" if "gemini" in name else "Stop"
            self.put(name, {"model": "x", **hooks(FOREIGN, OURS, event=event)})
        self.put(CONFIGURATIONS[-1], {"version": 1, "hooks": {"agentStop": [OURS, FOREIGN]}})
        self.assertEqual(self.unhook(), (0, dict.fromkeys(CONFIGURATIONS, self.TAKEN)))
        for name in CONFIGURATIONS[:-1]:
            event = "AfterAgent" if "gemini" in name else "Stop"
            self.assertEqual(json.loads((self.home / name).read_bytes()), {"model": "x", **hooks(FOREIGN, event=event)})
        self.assertEqual(json.loads((self.home / CONFIGURATIONS[-1]).read_bytes()),
                         {"version": 1, "hooks": {"agentStop": [FOREIGN]}})
        self.assertEqual(self.unhook(), (0, dict.fromkeys(CONFIGURATIONS, self.FOREIGN)))

    def test_entries_of_a_copy_elsewhere_and_under_end_events_alone_are_found(self):
        moved = {"type": "command", "command": "/home/me/old/tarvik hook --tool claude"}
        path = self.put(CONFIGURATIONS[0], hooks(moved, event="StopFailure"))
        self.assertEqual(self.unhook()[1][CONFIGURATIONS[0]], self.TAKEN)
        self.assertEqual(json.loads(path.read_bytes()), {})

    def test_droids_top_level_is_cleaned_too(self):
        path = self.put(".factory/hooks.json", {"Stop": [{"hooks": [OURS]}], "UserPromptSubmit": "mine"})
        self.assertEqual(self.unhook()[1][".factory/hooks.json"], self.TAKEN)
        self.assertEqual(json.loads(path.read_bytes()), {"UserPromptSubmit": "mine"})

    def test_a_file_without_entries_of_ours_is_not_even_written(self):
        contents = [b'{"b":1,\n\n "a":2.50}', b'{"hooks":{}}', b'{"hooks":{"Stop":7}}', json.dumps(hooks(FOREIGN)).encode()]
        for content in contents:
            path = self.put(CONFIGURATIONS[0], content)
            before = path.stat()
            self.assertEqual(self.unhook()[1][CONFIGURATIONS[0]], self.FOREIGN)
            self.assertEqual((path.read_bytes(), path.stat().st_ino), (content, before.st_ino))

    def test_rubbish_is_told_of_and_left_as_it_is(self):
        ours = json.dumps(hooks(OURS)).encode()
        rubbish = [b"{", ours[:-1], b"[]", b"null", b"\xff\xfe{\0}\0", b"// mine\n" + ours, ours + b"x", b"\0" * 100, b" ",
                   b'{"hooks":' + b"[" * 100_000, b'{"a":"' + b"x" * 1_100_000 + b'"}', b'{"a":1,"a":2}', os.urandom(50_000)]
        for number, content in enumerate(rubbish):
            with self.subTest(number):
                path = self.put(CONFIGURATIONS[0], content)
                self.put(CONFIGURATIONS[1], hooks(OURS))
                status, said = self.unhook()
                self.assertEqual((status, said[CONFIGURATIONS[0]][0], path.read_bytes()), (1, "err", content))
                self.assertIn("not changed: it is not valid JSON", said[CONFIGURATIONS[0]][1])
                self.assertEqual(said[CONFIGURATIONS[1]], self.TAKEN)

    def test_what_is_no_file_is_told_of_and_never_waited_for(self):
        (self.home / ".claude").mkdir()
        os.mkfifo(self.home / ".claude/settings.json")
        (self.home / ".codex/hooks.json").mkdir(parents=True)
        self.put(".qwen", b"a file where a directory belongs")
        status, said = self.unhook()
        self.assertEqual(status, 1)
        self.assertEqual(said[".claude/settings.json"], ("err", "not changed: Not a regular file"))
        self.assertEqual(said[".codex/hooks.json"], ("err", "not changed: Not a regular file"))
        self.assertEqual(said[".qwen/settings.json"], ("err", "not changed: Not a directory"))
        self.assertEqual(said[".gemini/settings.json"], self.NONE)

    def test_links_of_a_dotfile_store_stay_and_their_files_change(self):
        store = self.home / "dotfiles"
        store.mkdir()
        (store / "claude.json").write_text(json.dumps(hooks(OURS)), encoding="utf-8")
        (self.home / ".claude").mkdir()
        (self.home / ".claude/settings.json").symlink_to("../dotfiles/claude.json")
        (self.home / ".codex").symlink_to("nowhere")
        status, said = self.unhook()
        self.assertEqual((status, said[CONFIGURATIONS[0]], said[CONFIGURATIONS[1]]), (0, self.TAKEN, self.NONE))
        self.assertTrue((self.home / ".claude/settings.json").is_symlink())
        self.assertEqual(json.loads((store / "claude.json").read_bytes()), {})
        self.assertEqual([path.name for path in store.iterdir()], ["claude.json"])

    def test_no_argument_makes_sense(self):
        path = self.put(CONFIGURATIONS[0], hooks(OURS))
        result = self.run_tool("unhook", "--all", environment={"HOME": str(self.home)})
        self.assertEqual((result.returncode, result.stdout), (64, b""))
        self.assertEqual(json.loads(path.read_bytes()), hooks(OURS))


if os.geteuid() == 0:

    class UnhookAsSomebodyTest(UnhookTestCase):
        """Only the superuser can play others."""

        USER = 65534

        def setUp(self):
            super().setUp()
            self.path = self.put(CONFIGURATIONS[0], hooks(OURS))
            self.give_away(self.home)

        def give_away(self, top):
            for path in (top, *top.rglob("*")):
                os.chown(path, self.USER, self.USER)

        def test_a_file_that_must_not_be_changed_is_told_of(self):
            self.put(".codex/hooks.json", hooks(OURS))
            self.path.chmod(0o400)
            status, said = self.unhook(user=self.USER, group=self.USER, extra_groups=[])
            self.assertEqual((status, said[".claude/settings.json"]), (1, ("err", "not changed: Permission denied")))
            self.path.chmod(0o200)
            status, said = self.unhook(user=self.USER, group=self.USER, extra_groups=[])
            self.assertEqual((status, said[".claude/settings.json"]), (1, ("err", "not changed: Permission denied")))
            self.assertEqual(json.loads(self.path.read_bytes()), hooks(OURS))

        def through_sudo(self, users):
            """Runs it as sudo does, where these are the machine's users."""
            listing = self.directory / "passwd"
            listing.write_text(users, encoding="utf-8")
            environment = {"PATH": os.environ["PATH"], "HOME": "/root", "SUDO_UID": str(self.USER), "SUDO_GID": str(self.USER)}
            script = 'mount --bind "$1" /etc/passwd && exec "$2" unhook'
            return subprocess.run(["unshare", "--mount", "sh", "-c", script, "sh", str(listing), TOOL],
                                  env=environment, capture_output=True, check=False, timeout=PATIENCE)

        def test_through_sudo_it_is_the_invoking_users_files(self):
            users = f"root:x:0:0::/root:/bin/sh\nbob:x:{self.USER}:{self.USER}:Bob:{self.home}:/bin/sh\n"
            result = self.through_sudo(users)
            self.assertEqual((result.returncode, result.stderr), (0, b""))
            self.assertIn(b"~/.claude/settings.json: Tarvik's entries are taken out\n", result.stdout)
            self.assertEqual(json.loads(self.path.read_bytes()), {})
            self.assertEqual(self.path.stat().st_uid, self.USER)

        def test_a_user_who_is_not_listed_is_told_to_do_it_without_sudo(self):
            result = self.through_sudo("root:x:0:0::/root:/bin/sh\n")
            self.assertEqual((result.returncode, result.stdout), (1, b""))
            self.assertEqual(result.stderr, b"tarvik: this user's home directory is not known; run it without sudo\n")
            self.assertEqual(json.loads(self.path.read_bytes()), hooks(OURS))

    class SudoTest(ToolTestCase):
        """Only the superuser can play the superuser."""

        USER = 65534

        def setUp(self):
            super().setUp()
            self.bus = self.start_bus(user=self.USER)
            self.sudo = {"SUDO_UID": str(self.USER), "SUDO_GID": str(self.USER), "PATH": os.environ["PATH"]}

        def test_the_superuser_is_refused_as_such(self):
            for environment in (
                {"DBUS_SESSION_BUS_ADDRESS": self.bus.address},
                {"XDG_RUNTIME_DIR": str(self.bus.directory)},
            ):
                self.assertEqual(self.run_tool("acquire", "--session", "k", environment=environment).returncode, 1)
            self.assertEqual(self.bus.settled_events(), [])

        def test_a_socket_of_somebody_else_is_reached_only_where_the_environment_names_it(self):
            directory = self.directory / "anybodys"
            directory.mkdir()
            with socket.socket(socket.AF_UNIX) as listener:
                listener.bind(str(directory / "bus"))
                listener.listen(8)
                listener.setblocking(False)
                os.chown(directory / "bus", self.USER, self.USER)
                self.hook(payload("s"), environment={"XDG_RUNTIME_DIR": str(directory)})
                self.assertRaises(BlockingIOError, listener.accept)
                self.hook(payload("s"), environment={"DBUS_SESSION_BUS_ADDRESS": f"unix:path={directory / 'bus'}"})
                listener.accept()[0].close()

        def test_through_sudo_the_users_bus_is_reached(self):
            for environment in (
                {"DBUS_SESSION_BUS_ADDRESS": self.bus.address},
                {"XDG_RUNTIME_DIR": str(self.bus.directory)},
            ):
                self.hook(payload("s"), environment={**self.sudo, **environment})
                result = self.run_tool("acquire", "--session", "k", environment={**self.sudo, **environment})
                self.assertEqual(result.returncode, 0)
            sessions = [event["session"] for event in self.bus.settled_events()]
            self.assertEqual(sessions, ["claude:s", "k", "claude:s", "k"])

        def test_a_held_command_keeps_its_rights(self):
            environment = {**self.sudo, "DBUS_SESSION_BUS_ADDRESS": self.bus.address}
            result = self.run_tool("hold", "id", "-u", environment=environment)
            self.assertEqual((result.returncode, result.stdout, result.stderr), (0, b"0\n", b""))
            self.assertEqual([event["action"] for event in self.bus.settled_events()], ["acquire", "release"])


if __name__ == "__main__":
    TOOL = str(Path(sys.argv.pop(1)).resolve())
    unittest.main()
