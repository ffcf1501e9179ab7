#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What docs/scripts.md says to those who write scripts: its commands are run, and its examples by the programs they are for."""
import configparser
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import threading
import unittest
import unittest.mock

import program
from program import eventually

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = (ROOT / "docs/scripts.md").read_text(encoding="utf-8")
EXAMPLES = ROOT / "docs/examples"
IDLE = "Dozing — nothing to watch"
AWAKE = "Awake"
NOT_RUNNING = "Tarvik is not running."

sys.path.append(str(ROOT / "tests/ui"))
from sway import Sway  # noqa: E402


def blocks(language):
    return re.findall(rf"^```{language}\n(.*?)^```$", PAGE, re.MULTILINE | re.DOTALL)


class Output:
    """What a program prints, as it comes."""

    def __init__(self, stream):
        self.stream = stream
        self.text = ""
        self.thread = threading.Thread(target=self.read, daemon=True)
        self.thread.start()

    def read(self):
        while True:
            try:
                piece = os.read(self.stream, 4096)
            except OSError:
                return
            if not piece:
                return
            self.text += piece.decode(errors="replace")

    def lines(self):
        return self.text.splitlines()


class ScriptsTestCase(program.TarvikTestCase):
    def setUp(self):
        super().setUp()
        self.home = self.config / "home"
        self.home.mkdir()
        # The tool by the name that people type.
        (self.config / "bin").mkdir()
        (self.config / "bin/tarvik").symlink_to(program.TOOL)
        self.environment = {**os.environ, "HOME": str(self.home), "LC_ALL": "C.UTF-8",
                            "PATH": f"{self.config / 'bin'}:{os.environ['PATH']}"}

    def start_idle_tarvik(self):
        tarvik = self.start_tarvik(environment=self.environment)
        eventually(lambda: tarvik.status()["reason"] == IDLE, "it has looked around")
        return tarvik

    def run_command(self, command):
        return subprocess.run(["sh", "-c", command], env=self.environment, capture_output=True, text=True, check=False,
                              timeout=program.PATIENCE)

    def follow(self, command):
        """What a status line sees of a command that goes on."""
        process = subprocess.Popen(["sh", "-c", command], env=self.environment, stdout=subprocess.PIPE, start_new_session=True)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.wait)
        self.addCleanup(lambda: process.poll() is None and os.killpg(process.pid, signal.SIGKILL))
        return Output(process.stdout.fileno())

    def acquire(self):
        self.run_command("tarvik acquire --session test --tool make")

    def release(self):
        self.run_command("tarvik release --session test")


class PageTest(ScriptsTestCase):
    def test_every_command_of_the_page_does_what_it_says(self):
        self.start_idle_tarvik()
        commands = blocks("sh")
        self.assertGreater(len(commands), 8)
        for command in commands:
            with self.subTest(command):
                result = self.run_command(f"set -e\n{command}")
                self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_the_keys_are_those_of_the_program(self):
        tarvik = self.start_idle_tarvik()
        self.acquire()
        eventually(lambda: [each["effective"] for each in tarvik.status()["assertions"]] == [True], "it is held")
        status = tarvik.status()
        (example,) = map(json.loads, blocks("json"))
        self.assertEqual(list(example), list(status))
        rows = re.findall(r"^\| (`.*?) \|", PAGE, re.MULTILINE)
        self.assertEqual(sorted(re.findall(r"`(\w+)`", " ".join(rows))), sorted(status))
        for name in ("leases", "assertions"):
            self.assertEqual([sorted(each) for each in example[name]], [sorted(each) for each in status[name]])
        tarvik.end()
        self.assertEqual(json.loads(self.run_command("tarvik status --json").stdout), {"isRunning": False})

    def test_the_files_are_shown_as_they_are(self):
        for name, language in (("tmux/tarvik.conf", "tmux"), ("sway/bar.conf", "sway")):
            (block,) = blocks(language)
            lines = (EXAMPLES / name).read_text(encoding="utf-8").splitlines()
            self.assertLessEqual(set(block.splitlines()), set(lines))
        for name in re.findall(r"\]\((examples/\S+?)\)", PAGE):
            self.assertTrue((ROOT / "docs" / name).is_file(), name)


class StatusLineTest(ScriptsTestCase):
    def see_changes(self, shown, begin=lambda: None):
        """Plays what a status line has to show. `begin` may start it when there is something to show already."""
        tarvik = self.start_idle_tarvik()
        begin()
        shown(IDLE)
        self.acquire()
        shown(AWAKE)
        self.release()
        shown(IDLE)
        tarvik.end()
        shown(NOT_RUNNING)
        self.start_idle_tarvik()
        shown(IDLE)

    def see_lines(self, command):
        output = self.follow(command)
        self.see_changes(lambda text: eventually(lambda: output.lines() and output.lines()[-1].startswith(text),
                                                 lambda: f"{text} is the last of {output.lines()}"))

    def test_tmux_shows_it(self):
        environment = {name: value for name, value in self.environment.items() if name != "TMUX"}
        environment["TMUX_TMPDIR"] = str(self.config)
        outer = ["tmux", "-L", "outer", "-f", "/dev/null"]
        inner = ["tmux", "-L", "inner", "-f", EXAMPLES / "tmux/tarvik.conf"]

        def tmux(*command):
            return subprocess.run([*map(str, command)], env=environment, capture_output=True, text=True, check=False).stdout

        for server in (inner, outer):
            self.addCleanup(tmux, *server, "kill-server")
        # It asks and draws only where somebody looks: in a terminal, which is one of another tmux, that tells what it shows.
        tmux(*outer, "new-session", "-d", "-x", 120, "-y", 10, "env", "-u", "TMUX", *inner, "new-session", "cat")

        def status_line():
            return tmux(*outer, "capture-pane", "-p").rstrip("\n").rpartition("\n")[2]

        def shown(text):
            eventually(lambda: f"{text} | " in status_line(), lambda: f"tmux shows {text} in {status_line()}")

        self.see_changes(shown)

    def test_the_bar_of_sway_shows_it(self):
        example = (EXAMPLES / "sway/bar.conf").read_text(encoding="utf-8")
        environment = unittest.mock.patch.dict(os.environ)
        environment.start()
        self.addCleanup(environment.stop)
        sway = Sway(bars=example.replace("bar {", "bar {\nid example\nswaybar_command true\ntray_output none"))
        self.addCleanup(sway.close)
        known = {}

        def text_in_bar():
            """The pixels at its end, where the text stands."""
            return [row[-3 * 600:] for row in sway.rows()[:20]]

        def start_bar():
            sway.start_bar("example", env={**os.environ, "PATH": self.environment["PATH"], "LC_ALL": "C.UTF-8"})

        def is_new(text):
            known[text] = text_in_bar()
            others = [picture for name, picture in known.items() if name != text]
            return any(row != row[:3] * 600 for row in known[text]) and known[text] not in others

        def shown(text):
            if text in known:
                eventually(lambda: text_in_bar() == known[text], f"the bar looks as it did when it showed {text}")
            else:
                eventually(lambda: is_new(text), f"the bar shows {text}")

        self.see_changes(shown, start_bar)

    def test_a_status_line_with_a_clock_shows_it(self):
        self.see_lines(str(EXAMPLES / "sway/with-clock"))
        self.assertRegex(self.follow_once(EXAMPLES / "sway/with-clock"), r" \| \d{4}-\d\d-\d\d \d\d:\d\d$")

    def follow_once(self, command):
        output = self.follow(str(command))
        eventually(output.lines, "it says something")
        return output.lines()[0]

    def test_blocks_that_go_on_show_it(self):
        polybar, i3blocks = (configparser.ConfigParser(interpolation=None, comment_prefixes=("#", ";")) for _ in range(2))
        polybar.read(EXAMPLES / "polybar/tarvik.ini")
        i3blocks.read(EXAMPLES / "i3blocks/tarvik.conf")
        module, block = polybar["module/tarvik"], i3blocks["tarvik"]
        self.assertEqual((module["type"], module["tail"], block["interval"]), ("custom/script", "true", "persist"))
        self.assertEqual(module["exec"], block["command"])
        self.see_lines(module["exec"])

    def test_a_module_of_waybar_shows_it(self):
        shutil.copytree(EXAMPLES / "waybar", self.home / ".config/waybar")
        module = json.loads((EXAMPLES / "waybar/tarvik.json").read_text(encoding="utf-8"))["custom/tarvik"]
        self.assertEqual(module["return-type"], "json")
        output = self.follow(module["exec"])

        def shown(**what):
            def last():
                return json.loads(output.lines()[-1]) if output.text.endswith("\n") else {}

            eventually(lambda: what.items() <= last().items(), lambda: f"{what} are among {last()}")
            self.assertEqual(set(last()), {"text", "alt", "class", "tooltip"})
            self.assertIn(last()["alt"], module["format-icons"])
            return last()["tooltip"]

        self.assertEqual(shown(alt="off", text=""), NOT_RUNNING)
        tarvik = self.start_idle_tarvik()
        self.assertTrue(shown(alt="watching", text="").startswith(f"{IDLE}\n"))
        self.acquire()
        self.assertEqual(shown(alt="awake", text="make").split("\n")[:2], [AWAKE, "make"])
        self.set("isEnabled", False)
        shown(alt="paused")
        self.set("isEnabled", True)
        self.release()
        shown(alt="watching")

        self.assertEqual(self.run_command(module["on-click-right"]).returncode, 0)
        self.assertIn("60 min", shown(alt="awake"))
        self.assertEqual(self.run_command(module["on-click-middle"]).returncode, 0)
        shown(alt="watching")
        self.assertEqual(self.run_command(module["on-click"]).returncode, 0)
        eventually(program.windows_processes, "the panel opens")
        tarvik.end()
        shown(alt="off")

    @staticmethod
    def set(name, value):
        subprocess.run(["busctl", "--user", "set-property", "com.morvanta.Tarvik", "/com/morvanta/Tarvik",
                        "com.morvanta.Tarvik.Settings1", name, "b", str(value).lower()], check=True)


if __name__ == "__main__":
    program.main()
