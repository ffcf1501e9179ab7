#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""The hooks of the real coding agents: turns of each, headless, in a home of its own, with a model that is ours."""
import json
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import unittest.mock

import model
import program
from model import Model
from program import TarvikTestCase, eventually, is_held, is_not_held

INSTALLER = ""
AGENTS = pathlib.Path()
PROMPT = "Please run the shell tool once."
DECOY = "Aider"
# What an agent gets of the environment: the caller's accounts, proxies and settings are none of its business.
INHERITED = ("HOME", "USER", "LOGNAME", "LANG", "SHELL", "DISPLAY", "XAUTHORITY", "XDG_RUNTIME_DIR", "DBUS_SESSION_BUS_ADDRESS")
# Agents wait for their hooks: Tarvik has been told of an event before the turn goes on.
REACTION = 1


class AgentTests:
    """The tests of every agent. A subclass says which one it is and how to run it with the model at `url`, with
    everything off that it would send or fetch unasked."""

    agent_id = ""
    name = ""
    announces_prompt = True
    command = ()

    def environment(self, url):
        return {}

    def files(self, url):
        """What lies in the home directory beforehand."""
        return {}

    def setUp(self):
        super().setUp()
        directory = tempfile.TemporaryDirectory(dir=pathlib.Path.home(), ignore_cleanup_errors=True)
        self.addCleanup(directory.cleanup)
        self.home = pathlib.Path(directory.name)
        in_this_home = unittest.mock.patch.dict(os.environ, {"HOME": directory.name})
        in_this_home.start()
        self.addCleanup(in_this_home.stop)
        self.model = Model()
        self.addCleanup(self.model.close)
        (self.home / "project").mkdir()
        for file, text in self.files(self.model.url).items():
            (self.home / file).parent.mkdir(parents=True, exist_ok=True)
            (self.home / file).write_text(text, encoding="utf-8")

    def edit_hooks(self, action):
        subprocess.run([INSTALLER, action, self.agent_id, self.home, program.TOOL], check=True)

    def take_turn(self, at_prompt=lambda: None, at_result=lambda: None):
        """Runs the agent; the checks are made while it waits for the model, before and after it has run its tool. What
        it printed, and its exit status."""
        environment = {name: os.environ[name] for name in INHERITED if name in os.environ}
        environment |= {"PATH": f"{AGENTS}:{os.environ['PATH']}"} | self.environment(self.model.url)
        with tempfile.TemporaryFile(mode="w+", encoding="utf-8") as errors:
            process = subprocess.Popen(self.command, env=environment, cwd=self.home / "project", stdin=subprocess.DEVNULL,
                                       stdout=subprocess.PIPE, stderr=errors, text=True, start_new_session=True)
            try:
                for has_result, check in ((False, at_prompt), (True, at_result)):
                    turn = self.model.next_turn()
                    self.assertIsNotNone(turn, "the model is asked")
                    self.assertEqual((turn.has_result, model.TOOL_OUTPUT in turn.text), (has_result, has_result))
                    check()
                    turn.answer()
                output, _ = process.communicate(timeout=program.PATIENCE)
            except (AssertionError, subprocess.TimeoutExpired):
                os.killpg(process.pid, signal.SIGKILL)
                errors.seek(0)
                print(process.communicate()[0], errors.read(), file=sys.stderr)
                raise
        return output, process.returncode

    def seen_running(self, tarvik):
        """What process detection lists, besides a program that comes and goes to show that it has looked."""
        decoy = self.programs.start("aider")
        eventually(lambda: DECOY in tarvik.status()["activeAgents"], "process detection has looked")
        found = tarvik.status()["activeAgents"]
        decoy.kill()
        decoy.wait()
        eventually(lambda: DECOY not in tarvik.status()["activeAgents"], "process detection has looked again")
        found.remove(DECOY)
        # Leases come first in the list.
        return found[len(tarvik.status()["leases"]):]

    def check_lease(self, tarvik):
        """That nothing but a lease of the agent's session holds the computer awake; the lease's key."""
        eventually(is_held, "held during the turn", REACTION)
        status = tarvik.status()
        [lease] = status["leases"]
        self.assertEqual(lease["tool"], self.agent_id)
        self.assertRegex(lease["key"], f"^{self.agent_id}:[0-9a-f-]{{36}}$")
        self.assertEqual(status["activeAgents"], [self.name])
        return lease["key"]

    def test_the_hooks_hold_the_computer_awake_exactly_during_the_turn(self):
        self.edit_hooks("install")
        tarvik = self.start_tarvik()
        keys = set()

        def at_prompt():
            if self.announces_prompt:
                keys.add(self.check_lease(tarvik))
            self.assertEqual(self.seen_running(tarvik), [])
            self.assertEqual(is_held(), self.announces_prompt)

        def at_result():
            keys.add(self.check_lease(tarvik))

        self.take_turn(at_prompt, at_result)
        eventually(lambda: tarvik.status()["leases"] == [], "the lease goes with the turn", REACTION)
        eventually(is_not_held, "released at the end of the turn", REACTION)
        self.assertEqual(len(keys), 1)

    def test_the_hooks_change_nothing_in_the_turn(self):
        plain = self.take_turn()
        self.assertEqual(plain[1], 0)
        self.assertIn(model.ANSWER, plain[0])
        self.edit_hooks("install")
        self.assertEqual(self.take_turn(), plain, "without Tarvik")
        self.start_tarvik()
        self.assertEqual(self.take_turn(), plain, "with Tarvik")

    def test_once_uninstalled_it_is_seen_by_its_process_and_announces_nothing(self):
        self.edit_hooks("install")
        self.edit_hooks("uninstall")
        tarvik = self.start_tarvik()

        def at_prompt():
            eventually(lambda: tarvik.status()["activeAgents"] == [self.name], f"{self.name} is seen running")

        self.take_turn(at_prompt, at_result=lambda: self.assertEqual(tarvik.status()["leases"], []))
        self.assertNotIn("hook acquire", tarvik.log())
        eventually(is_not_held, "released when the agent has ended")


class ClaudeTest(AgentTests, TarvikTestCase):
    agent_id = "claude"
    name = "Claude Code"
    command = ("claude", "--print", PROMPT, "--allowedTools", "Bash")

    def environment(self, url):
        return {"ANTHROPIC_BASE_URL": url, "ANTHROPIC_API_KEY": "none", "DISABLE_AUTOUPDATER": "1",
                "CLAUDE_CODE_DISABLE_NONESSENTIAL_TRAFFIC": "1"}


class CodexTest(AgentTests, TarvikTestCase):
    agent_id = "codex"
    name = "Codex"
    # In a terminal the user approves of hooks once; headless, unapproved ones are left out in silence.
    command = ("codex", "exec", "--skip-git-repo-check", "--dangerously-bypass-approvals-and-sandbox",
               "--dangerously-bypass-hook-trust", PROMPT)

    def files(self, url):
        return {".codex/config.toml": f"""
            model = "gpt-5"
            model_provider = "ours"
            check_for_update_on_startup = false
            [analytics]
            enabled = false
            [model_providers.ours]
            name = "ours"
            base_url = "{url}/v1"
            wire_api = "responses"
            """}


class GeminiTest(AgentTests, TarvikTestCase):
    agent_id = "gemini"
    name = "Gemini CLI"
    command = ("gemini", "--yolo", "--model", "gemini-2.5-flash", "--prompt", PROMPT)

    def environment(self, url):
        return {"GEMINI_API_KEY": "none", "GOOGLE_GEMINI_BASE_URL": url}

    def files(self, url):
        # Hooks run in trusted folders only.
        return {".gemini/settings.json": json.dumps({
            "security": {"auth": {"selectedType": "gemini-api-key"}, "folderTrust": {"enabled": False}},
            "privacy": {"usageStatisticsEnabled": False}, "general": {"enableAutoUpdate": False},
        })}


class QwenTest(AgentTests, TarvikTestCase):
    agent_id = "qwen"
    name = "Qwen Code"
    command = ("qwen", "--yolo", "--prompt", PROMPT)

    def environment(self, url):
        return {"OPENAI_API_KEY": "none", "OPENAI_BASE_URL": f"{url}/v1", "OPENAI_MODEL": "ours"}

    def files(self, url):
        return {".qwen/settings.json": json.dumps({
            "security": {"auth": {"selectedType": "openai"}}, "privacy": {"usageStatisticsEnabled": False},
            "general": {"enableAutoUpdate": False},
        })}


class CopilotTest(AgentTests, TarvikTestCase):
    agent_id = "copilot"
    name = "Copilot CLI"
    command = ("copilot", "--allow-all-tools", "--no-auto-update", "--prompt", PROMPT)

    def environment(self, url):
        return {"COPILOT_OFFLINE": "true", "COPILOT_PROVIDER_BASE_URL": f"{url}/v1", "COPILOT_PROVIDER_TYPE": "openai",
                "COPILOT_PROVIDER_API_KEY": "none", "COPILOT_MODEL": "gpt-5"}


class DroidTest(AgentTests, TarvikTestCase):
    agent_id = "droid"
    name = "Factory Droid"
    # A run of a single prompt does not announce it; the turn is known from its first tool on.
    announces_prompt = False
    command = ("droid", "exec", "--auto", "low", "--model", "custom:ours-0", PROMPT)

    def environment(self, url):
        return {"FACTORY_API_KEY": "none"}

    def files(self, url):
        own = {"model": "ours", "displayName": "ours", "baseUrl": f"{url}/v1", "apiKey": "none",
               "provider": "generic-chat-completion-api", "maxOutputTokens": 1000}
        return {".factory/settings.json": json.dumps({"customModels": [own]})}


if __name__ == "__main__":
    INSTALLER, AGENTS = sys.argv[4], pathlib.Path(sys.argv[5]).resolve()
    del sys.argv[4:6]
    program.main()
