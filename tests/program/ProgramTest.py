#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""Tarvik as a whole program on a real bus, a real logind and a real process table."""
import json
import os
import pathlib
import shutil
import signal
import socket
import subprocess
import threading

import program
from program import TarvikTestCase, eventually, inhibitors, is_held, is_not_held, ours


class HoldingTest(TarvikTestCase):
    def test_an_inhibitor_is_held_exactly_while_an_agent_runs(self):
        self.start_tarvik()
        self.assertEqual(ours(), [])
        agent = self.programs.start("claude")
        eventually(is_held, "held", program.POLL_PERIOD + 1)
        entry = next(entry for entry in inhibitors() if entry[1] == "Tarvik")
        self.assertIn("idle", entry[0])
        self.assertEqual(entry[3], "block")
        agent.kill()
        agent.wait()
        eventually(is_not_held, "released", program.POLL_PERIOD + 1)
        self.wait_for_journal("on: Awake · 1 agent", "off: Dozing — nothing to watch")

    def test_agents_are_recognised_by_name_interpreter_and_hint(self):
        for command_line in (
            ["/usr/local/bin/codex", "exec"],
            ["node", "/home/u/.npm/bin/gemini", "--yolo"],
            ["python3.11", "-m", "aider", "--model", "x"],
            ["node", "--inspect=9229", "/opt/pi-coding-agent/dist/pi.js"],
            ["/opt/Antigravity/bin/agy"],
            ["pdx"],
        ):
            self.programs.start(*command_line)
        tarvik = self.start_tarvik()
        self.assertEqual(
            tarvik.status()["activeAgents"], ["Codex", "Gemini CLI", "Antigravity CLI", "Aider", "Pi", "Plandex"]
        )

    def test_names_that_are_only_mentioned_do_not_count(self):
        for command_line in (
            ["/bin/bash", "-c", "claude"],
            ["less", "codex"],
            ["pi"],
            ["cn", "--continue"],
            ["claude-helper"],
            ["node", "server.js", "claude"],
        ):
            self.programs.start(*command_line)
        zombie = self.programs.start("goose")
        zombie.kill()
        os.waitid(os.P_PID, zombie.pid, os.WEXITED | os.WNOWAIT)
        tarvik = self.start_tarvik()
        self.assertEqual(tarvik.status()["activeAgents"], [])
        self.assertEqual(ours(), [])

    def test_odd_command_lines_do_no_harm(self):
        self.programs.start(b"\xff\xfe\xc3", b"\xe9t\xe9")
        self.programs.start("line\nbreak", "claude\ncodex")
        self.programs.start("", "")
        self.programs.start("node", *["x" * 100_000] * 9, "claude")
        self.programs.start("goose")
        tarvik = self.start_tarvik()
        self.assertEqual(tarvik.status()["activeAgents"], ["Goose"])


    def test_a_launcher_that_ignores_its_children_does_no_harm(self):
        self.programs.start("claude")
        before = signal.signal(signal.SIGCHLD, signal.SIG_IGN)
        try:
            self.start_tarvik(wait=False)
        finally:
            signal.signal(signal.SIGCHLD, before)
        eventually(is_held, "held")


class EndingTest(TarvikTestCase):
    def test_each_signal_ends_it_in_order_within_a_second(self):
        self.programs.start("claude")
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(number.name):
                tarvik = self.start_tarvik()
                eventually(is_held, "held")
                status, seconds = tarvik.end(number)
                self.assertEqual(status, 0)
                self.assertLess(seconds, 1)
                eventually(is_not_held, "released", 1)

    def test_the_system_releases_what_a_killed_tarvik_held(self):
        self.programs.start("claude")
        tarvik = self.start_tarvik()
        eventually(is_held, "held")
        tarvik.end(signal.SIGKILL)
        eventually(is_not_held, "released", 1)

    def test_it_goes_on_when_its_display_crashes(self):
        self.programs.start("claude")
        display = subprocess.Popen(["Xvfb", "-displayfd", "1", "-nolisten", "tcp"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        with display:
            self.addCleanup(display.kill)
            number = display.stdout.readline().strip()
            tarvik = self.start_tarvik(environment={**os.environ, "DISPLAY": f":{number}"})
            eventually(is_held, "held")
            held = inhibitors()
            display.kill()
        eventually(lambda: "the display has gone, but not the session" in tarvik.log(), "the loss is noticed")
        self.assertEqual(inhibitors(), held)
        self.assertIsNone(tarvik.process.poll())
        self.assertEqual(tarvik.status()["activeAgents"], ["Claude Code"])
        self.programs.stop()
        eventually(is_not_held, "released", program.POLL_PERIOD + 1)
        self.assertEqual(tarvik.end()[0], 0)

    def test_strangers_on_the_bus_cannot_fill_its_log(self):
        tarvik = self.start_tarvik()
        owner = subprocess.run(["busctl", "--user", "call", "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                "GetNameOwner", "s", "com.morvanta.Tarvik"], capture_output=True, text=True, check=True).stdout.split('"')[1]
        objects = (("/StatusNotifierItem", "org.kde.StatusNotifierItem"), ("/MenuBar", "com.canonical.dbusmenu"),
                   ("/com/morvanta/Tarvik", "com.morvanta.Tarvik.Status1"), ("/", "no.such.Interface"))
        for path, interface in objects:
            for call in (("Nonsense",), ("Activate", "s", "left"), ("GetLayout", "s", "root")):
                result = subprocess.run(["busctl", "--user", "call", owner, path, interface, *call], capture_output=True, text=True,
                                        check=False)
                self.assertNotEqual(result.returncode, 0, call)
        self.assertEqual(tarvik.log(), "")

    def test_it_goes_on_when_nobody_reads_its_log_any_more(self):
        self.programs.start("claude")
        self.write_settings(b"{")
        reader, writer = os.pipe()
        os.close(reader)
        tarvik = subprocess.Popen([program.TARVIK], stderr=writer)
        os.close(writer)
        self.addCleanup(tarvik.wait)
        self.addCleanup(tarvik.kill)
        eventually(lambda: is_held() or tarvik.poll() is not None, "it holds or has ended")
        self.assertIsNone(tarvik.poll())

    def test_a_start_after_a_kill_goes_on_with_the_stored_journal(self):
        self.programs.start("claude")
        self.start_tarvik().end(signal.SIGKILL)
        self.start_tarvik()
        self.wait_for_journal(*["on: Awake · 1 agent"] * 2)


class InstancesTest(TarvikTestCase):
    @staticmethod
    def has_windows():
        return subprocess.run(["busctl", "--user", "call", "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                               "GetNameOwner", "s", "com.morvanta.TarvikUi"], capture_output=True, check=False).returncode == 0

    def test_a_second_start_hands_over_to_the_first(self):
        self.programs.start("claude")
        first = self.start_tarvik()
        eventually(is_held, "held")
        second = subprocess.run([program.TARVIK], capture_output=True, timeout=10, check=False)
        self.assertEqual(second.returncode, 0)
        eventually(self.has_windows, "the first shows its panel")
        self.assertIsNone(first.process.poll())
        self.assertEqual(len(ours()), 1)

    def test_a_relaunch_starts_it_anew_in_the_same_process(self):
        self.programs.start("claude")
        tarvik = self.start_tarvik()
        eventually(is_held, "held")
        program.relaunch()
        tarvik.status()
        eventually(lambda: len(ours()) == 1, "held anew")
        self.assertIsNone(tarvik.process.poll())
        self.assertEqual(tarvik.end()[0], 0)
        self.assertEqual(tarvik.log(), "")

    def test_without_a_session_bus_it_still_holds(self):
        self.programs.start("claude")
        environment = {k: v for k, v in os.environ.items() if k not in ("DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR")}
        tarvik = self.start_tarvik(environment={**environment, "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent"}, wait=False)
        eventually(is_held, "held")
        self.assertEqual(tarvik.end()[0], 0)

    def test_without_a_display_it_runs_all_the_same(self):
        self.programs.start("claude")
        environment = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY")}
        self.start_tarvik(environment=environment)
        eventually(is_held, "held")

    def test_without_a_system_bus_it_runs_and_says_so(self):
        self.programs.start("claude")
        tarvik = self.start_tarvik(environment={**os.environ, "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nonexistent"})
        eventually(lambda: "Assertion PreventUserIdleSystemSleep failed: " in tarvik.log(), "the failure is logged")
        self.assertTrue(tarvik.status()["isAwake"])


class ServicesTest(TarvikTestCase):
    def test_the_hold_is_there_again_when_logind_returns(self):
        self.programs.start("claude")
        self.start_tarvik()
        eventually(is_held, "held")
        logind = int(subprocess.run(["pgrep", "-x", "systemd-logind"], capture_output=True, text=True, check=True).stdout)
        command_line = pathlib.Path(f"/proc/{logind}/cmdline").read_bytes().rstrip(b"\0").split(b"\0")
        environment = dict(
            pair.split(b"=", 1) for pair in pathlib.Path(f"/proc/{logind}/environ").read_bytes().rstrip(b"\0").split(b"\0")
        )
        os.kill(logind, signal.SIGKILL)
        eventually(lambda: not inhibitors(), "logind is gone")
        restarted = subprocess.Popen(command_line, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        # It serves the tests that follow and ends with the virtual desktop.
        restarted.returncode = 0
        # For a moment there are two: what is held is only given up when there is something in its place.
        eventually(lambda: len(ours()) == 1, "held again, once")


class SettingsTest(TarvikTestCase):
    def test_switched_off_holds_nothing(self):
        self.write_settings({"isEnabled": False})
        self.programs.start("claude")
        tarvik = self.start_tarvik()
        status = tarvik.status()
        self.assertEqual((status["title"], status["reason"], status["subtitle"]), ("Off", "Off", "Not watching"))
        self.assertEqual(ours(), [])

    def test_a_broken_file_is_kept_and_the_program_runs_on(self):
        self.programs.start("claude")
        for number, content in enumerate((b"", b"{", b"[]", b"\xff\xfe", b'{"isEnabled": false', b"\0" * 100)):
            with self.subTest(content):
                self.write_settings(content)
                tarvik = self.start_tarvik()
                eventually(is_held, "held")
                self.assertIn("[settings]", tarvik.log())
                self.assertEqual(len(list(self.settings_file.parent.glob("settings.json.unreadable-*"))), number + 1)
                self.wait_for_journal("on: Awake · 1 agent")
                tarvik.end()

    def test_a_file_that_another_program_wrote_by_the_same_rules_is_read(self):
        entry = {"kind": "paused", "id": "E621E1F8-C36C-495A-93FC-0C247A3E6E5F", "at": 760035849.5, "reason": "On battery"}
        self.write_settings({"journal": {"data": program.base64.b64encode(json.dumps([entry]).encode()).decode()}})
        self.programs.start("claude")
        self.start_tarvik()
        eventually(lambda: len(self.journal()) == 2, "an entry is added")
        self.assertEqual(self.journal()[0], "paused: On battery")

    def test_a_full_disk_changes_nothing_else(self):
        self.settings_file.parent.mkdir(parents=True)
        subprocess.run(["mount", "-t", "tmpfs", "-o", "size=4k", "none", str(self.settings_file.parent)], check=True)
        self.addCleanup(subprocess.run, ["umount", "--lazy", str(self.settings_file.parent)], check=False)
        (self.settings_file.parent / "filler").write_bytes(b"x" * 4096)
        self.programs.start("claude")
        tarvik = self.start_tarvik()
        eventually(is_held, "held")
        self.assertIn("cannot be written: No space left on device", tarvik.log())


class OtherProgramsChangesTest(TarvikTestCase):
    """Somebody else writes to the files that belong to Tarvik: an editor, a dotfile manager."""

    @staticmethod
    def call(*words):
        return subprocess.run(["busctl", "--user", "--json=short", *words], check=True, capture_output=True, text=True).stdout

    def setting(self, name):
        return json.loads(self.call("get-property", "com.morvanta.Tarvik", "/com/morvanta/Tarvik", "com.morvanta.Tarvik.Settings1", name))["data"]

    def set(self, name, kind, value):
        self.call("set-property", "com.morvanta.Tarvik", "/com/morvanta/Tarvik", "com.morvanta.Tarvik.Settings1", name, kind, value)

    def test_edited_settings_take_effect_within_a_second_and_stay(self):
        dotfiles = self.config / "dotfiles"
        dotfiles.mkdir()
        new = dotfiles / "new.json"

        def in_place(text):
            self.settings_file.write_text(text, encoding="utf-8")

        def replaced(text):
            new.write_text(text, encoding="utf-8")
            new.rename(self.settings_file)

        def linked(text):
            target = dotfiles / f"{len(list(dotfiles.iterdir()))}.json"
            target.write_text(text, encoding="utf-8")
            new.symlink_to(target)
            new.rename(self.settings_file)

        self.programs.start("claude")
        tarvik = self.start_tarvik()
        eventually(is_held, "held")
        self.wait_for_journal("on: Awake · 1 agent")
        for threshold, edit in enumerate((in_place, replaced, linked, in_place), 30):
            for on in False, True:
                with self.subTest(edit=edit.__name__, on=on):
                    edit(json.dumps({**self.read_settings(), "isEnabled": on, "batteryThreshold": threshold}))
                    eventually(lambda: self.setting("isEnabled") is on, "it is shown", 1)
                    eventually(is_held if on else is_not_held, "it takes effect", 1)
            # What Tarvik writes itself leaves the rest as it is.
            self.set("requireAC", "b", "false")
            self.assertEqual((self.setting("batteryThreshold"), self.read_settings()["batteryThreshold"]), (threshold, threshold))
        self.assertTrue(self.settings_file.is_symlink())
        self.assertEqual(tarvik.log(), "")

    def test_half_a_file_is_neither_taken_nor_destroyed(self):
        self.programs.start("claude")
        tarvik = self.start_tarvik()
        eventually(is_held, "held")
        self.wait_for_journal("on: Awake · 1 agent")
        text = json.dumps({**self.read_settings(), "isEnabled": False})
        self.settings_file.write_text(text[:-20], encoding="utf-8")
        eventually(lambda: "the settings stay as they are" in tarvik.log(), "it is reported")
        self.assertTrue(self.setting("isEnabled"))
        self.assertEqual(self.settings_file.read_text(encoding="utf-8"), text[:-20])
        self.settings_file.write_text(text, encoding="utf-8")
        eventually(is_not_held, "the whole is taken", 1)

    def test_the_login_item_is_shown_as_it_is(self):
        self.start_tarvik()
        entry = self.config / "autostart" / "com.morvanta.Tarvik.desktop"
        self.set("launchAtLogin", "b", "true")
        self.assertTrue(self.setting("launchAtLogin"))
        text = entry.read_text(encoding="utf-8")
        entry.unlink()
        eventually(lambda: not self.setting("launchAtLogin"), "it is gone", 1)
        entry.write_text(text, encoding="utf-8")
        eventually(lambda: self.setting("launchAtLogin"), "it is back", 1)
        entry.write_text(text + "Hidden=true\n", encoding="utf-8")
        eventually(lambda: not self.setting("launchAtLogin"), "it is switched off", 1)


class ExplanationTest(TarvikTestCase):
    @staticmethod
    def explain():
        """What "tarvik why" says as JSON, and its exit status."""
        answer = subprocess.run([program.TOOL, "why", "--json"], capture_output=True, text=True, check=False)
        return json.loads(answer.stdout), answer.returncode

    def start_lock(self, who, why):
        lock = subprocess.Popen(["systemd-inhibit", "--what=sleep:idle", f"--who={who}", f"--why={why}", "--mode=block",
                                 "sleep", "infinity"])
        self.addCleanup(lock.wait)
        self.addCleanup(lock.kill)
        eventually(lambda: any(entry[1] == who for entry in inhibitors()), f"{who} holds its lock")
        return lock

    def test_the_lock_of_another_program_is_named_and_then_that_of_tarvik(self):
        self.assertEqual(self.explain(), ({"isRunning": False}, 2))
        # It goes by logind's locks, as nobody else does here.
        daemon = self.config / "swayidle"
        shutil.copy(program.SLEEPER, daemon)
        idle_daemon = subprocess.Popen([daemon])
        self.addCleanup(idle_daemon.wait)
        self.addCleanup(idle_daemon.kill)
        self.start_tarvik()
        told, status = self.explain()
        self.assertEqual((told["isKeptAwake"], told["tarvik"]["holds"], status), (False, [], 1))
        self.assertTrue(told["whyAwake"].startswith("Nothing"), told["whyAwake"])
        self.assertIn("swayidle", told["whyAwake"])
        lock = self.start_lock("Backup", "Copying the photos")
        told, status = self.explain()
        self.assertEqual((told["whyAwake"], status), ("Backup keeps this computer awake (Copying the photos).", 0))
        self.assertEqual(told["remarks"], ["Tarvik does not keep it awake (Dozing — nothing to watch)."])
        self.programs.start("claude")
        eventually(is_held, "held", program.POLL_PERIOD + 1)
        told, status = self.explain()
        self.assertEqual((told["whyAwake"], status), ("Tarvik keeps this computer awake because work is going on: Claude Code.", 0))
        self.assertEqual(told["remarks"], ["It would stay awake without Tarvik, too, because of Backup."])
        lock.kill()
        eventually(lambda: self.explain()[0]["remarks"] == [], "the other lock is gone")
        self.programs.stop()
        eventually(is_not_held, "released", program.POLL_PERIOD + 1)
        self.assertEqual(self.explain()[1], 1)

    def test_an_explanation_is_for_people_as_well(self):
        self.start_tarvik()
        answer = subprocess.run([program.TOOL, "why"], capture_output=True, text=True, check=False)
        self.assertEqual(answer.returncode, 1)
        sentences, _, lists = answer.stdout.partition("\n\n")
        self.assertIn("Tarvik does not keep it awake (Dozing — nothing to watch).", sentences.splitlines())
        self.assertTrue(lists.startswith("  Tarvik holds off  nothing\n"), answer.stdout)


class LoggingTest(TarvikTestCase):
    def test_names_that_others_gave_neither_forge_a_line_nor_steer_a_terminal(self):
        config = self.config / "\x1b[2J\nTarvik [settings] all is well\u202e"
        (config / "tarvik").mkdir(parents=True)
        (config / "tarvik" / "settings.json").write_bytes(b"rubbish")
        tarvik = self.start_tarvik(environment={**os.environ, "XDG_CONFIG_HOME": str(config)})
        self.assertIn("/?[2J\n    Tarvik [settings] all is well?/tarvik/settings.json cannot be read", tarvik.log())
        self.assertNotRegex(tarvik.log(), "[\x1b\u202e]")

    def test_under_systemd_the_journal_gets_the_area_as_a_field(self):
        path = "/run/systemd/journal/socket"
        os.makedirs(os.path.dirname(path), exist_ok=True)
        journal = socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM)
        self.addCleanup(journal.close)
        journal.bind(path)
        self.addCleanup(os.unlink, path)
        os.chmod(path, 0o666)
        received = []

        def listen():
            while b"already-enough" not in received:
                try:
                    received.append(journal.recv(65536))
                except OSError:
                    return

        threading.Thread(target=listen, daemon=True).start()
        self.write_settings(b"rubbish")
        read_end, write_end = os.pipe()
        self.addCleanup(os.close, read_end)
        status = os.fstat(write_end)
        environment = {**os.environ, "JOURNAL_STREAM": f"{status.st_dev}:{status.st_ino}"}
        process = subprocess.Popen([program.TARVIK], stderr=write_end, env=environment)
        os.close(write_end)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        eventually(lambda: any(b"CATEGORY=settings\n" in message for message in received), "the journal is told")
        message = next(message for message in received if b"CATEGORY=settings\n" in message)
        for field in (b"SUBSYSTEM=com.morvanta.Tarvik\n", b"PRIORITY=4\n", b"SYSLOG_IDENTIFIER=Tarvik\n"):
            self.assertIn(field, message)


class HooksTest(TarvikTestCase):
    def announce(self, *arguments, payload=None):
        subprocess.run([program.TOOL, *arguments], input=payload, check=True, timeout=5)

    def test_a_turn_takes_a_lease_and_gives_it_back(self):
        tarvik = self.start_tarvik()
        session = {"session_id": "4711", "hook_event_name": "UserPromptSubmit", "prompt": "go"}
        self.announce("hook", "--tool", "claude", payload=json.dumps(session).encode())
        eventually(is_held, "held", 1)
        self.assertEqual(tarvik.status()["activeAgents"], ["Claude Code"])
        self.assertEqual(tarvik.status()["reason"], "Awake")
        session["hook_event_name"] = "Stop"
        self.announce("hook", "--tool", "claude", payload=json.dumps(session).encode())
        eventually(is_not_held, "released", 1)
        self.assertIn("hook acquire from claude (changed); 1 session(s) held", tarvik.log())

    def hooks(self, *call):
        result = subprocess.run(
            ["busctl", "--user", "--json=short", "call", "com.morvanta.Tarvik", "/com/morvanta/Tarvik",
             "com.morvanta.Tarvik.Hooks1", *call],
            capture_output=True, text=True, check=False,
        )
        return json.loads(result.stdout)["data"][0] if result.returncode == 0 else result.stderr

    def test_hooks_are_switched_on_and_off_over_the_bus(self):
        home = self.config / "home"
        (home / ".claude").mkdir(parents=True)
        settings = home / ".claude" / "settings.json"
        settings.write_text('{"model": "opus", "n": 12345678901234567890}', encoding="utf-8")
        self.programs.start("claude")
        tarvik = self.start_tarvik(environment={**os.environ, "HOME": str(home)})
        eventually(is_held, "held for the process")
        self.assertIs(self.hooks("Install", "s", "claude"), True)
        self.assertEqual(self.hooks("InstalledIds"), ["claude"])
        eventually(is_not_held, "the process no longer counts", program.POLL_PERIOD + 1)
        command = json.loads(settings.read_text())["hooks"]["Stop"][0]["hooks"][0]["command"]
        for event, condition in (("UserPromptSubmit", is_held), ("Stop", is_not_held)):
            payload = json.dumps({"session_id": "1", "hook_event_name": event}).encode()
            subprocess.run(["/bin/sh", "-c", command], input=payload, check=True, timeout=5)
            eventually(condition, event, 1)
        self.assertIs(self.hooks("Uninstall", "s", "claude"), True)
        self.assertEqual(settings.read_text().split(), '{ "model": "opus", "n": 12345678901234567890 }'.split())
        eventually(is_held, "the process counts again", program.POLL_PERIOD + 1)
        settings.write_text("{broken", encoding="utf-8")
        self.assertIs(self.hooks("Install", "s", "claude"), False)
        self.assertEqual(settings.read_text(), "{broken")
        self.assertIn("There are no hooks for an agent", self.hooks("Install", "s", "vim"))
        self.assertIn("settings.json is not valid JSON; refusing to touch it", tarvik.log())

    def test_the_tool_takes_the_hooks_out_and_tarvik_does_not_put_them_back(self):
        home = self.config / "home"
        environment = {**os.environ, "HOME": str(home)}
        self.programs.start("claude")
        tarvik = self.start_tarvik(environment=environment)
        eventually(is_held, "held for the process")
        agents = ("claude", "codex", "gemini", "qwen", "droid", "copilot")
        for agent in agents:
            self.assertIs(self.hooks("Install", "s", agent), True)
        self.assertEqual(set(self.hooks("InstalledIds")), set(agents))
        eventually(is_not_held, "the process no longer counts", program.POLL_PERIOD + 1)
        (home / ".codex" / "hooks.json").write_text("{broken", encoding="utf-8")

        result = subprocess.run([program.TOOL, "unhook"], env=environment, capture_output=True, text=True, check=False, timeout=5)
        self.assertEqual((result.returncode, result.stdout.count("Tarvik's entries are taken out\n")), (1, 5))
        self.assertIn("tarvik: ~/.codex/hooks.json: not changed: it is not valid JSON", result.stderr)
        self.assertEqual(self.hooks("InstalledIds"), [])
        eventually(is_held, "the process counts again", program.POLL_PERIOD + 1)

        files = {path: path.read_bytes() for path in home.rglob("*.json")}
        tarvik.end()
        self.start_tarvik(environment=environment)
        eventually(is_held, "held by the next Tarvik")
        self.assertEqual({path: path.read_bytes() for path in home.rglob("*.json")}, files)
        self.assertEqual(len(files), 6)
        for path, content in files.items():
            self.assertNotIn(b"tarvik", content, path)

    def test_hold_keeps_awake_while_its_command_runs(self):
        self.start_tarvik()
        with subprocess.Popen([program.TOOL, "hold", "--", "cat"], stdin=subprocess.PIPE) as hold:
            eventually(is_held, "held", 2)
            hold.stdin.close()
            self.assertEqual(hold.wait(timeout=5), 0)
        eventually(is_not_held, "released", 2)

    def test_status_tells_by_its_exit_status(self):
        def exit_status():
            return subprocess.run([program.TOOL, "status"], capture_output=True, check=False).returncode

        self.assertEqual(exit_status(), 2)
        self.start_tarvik()
        self.assertEqual(exit_status(), 1)
        self.announce("acquire", "--session", "x", "--ttl", "60")
        eventually(is_held, "held", 1)
        self.assertEqual(exit_status(), 0)
        self.announce("release-all")
        eventually(is_not_held, "released", 1)


if __name__ == "__main__":
    program.main()
