# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What brings Tarvik's windows into one situation after the other: tarvik-offline, see tests/offline/main.cpp."""
import pathlib
import subprocess

# Each begins the same, so that it does not matter which one was before.
PLAIN = ("set isEnabled true", "set requireAC false", "set pauseWhenHot true", "mains on", "battery 80", "thermal nominal", "session 0",
         "work off", "apps")
LONG_NAMES = ("Visual Studio Code Insiders <b>Nightly</b>", "A program whose name is longer than anybody would have thought of",
              "Blender", "GIMP")
SCENES = {
    "awake": (*PLAIN, "work claude codex", "apps Blender"),
    "asleep": (*PLAIN, "battery none"),
    "paused": (*PLAIN, "work claude", "set pauseWhenHot false", "set requireAC true", "mains off", "thermal serious"),
    "off": (*PLAIN, "set isEnabled false", "mains off", "battery 64"),
    "session": (*PLAIN, "session 60", "wait 1"),
    "long": (*PLAIN, "set pauseWhenHot false", "thermal critical", f"apps {';'.join(LONG_NAMES)}", "session 959", "wait 1"),
}


class Offline:
    """A running one, in the scene "awake"."""

    def __init__(self, windows):
        """`windows` is the program that shows the windows, of the same build."""
        executable = pathlib.Path(windows).resolve().parents[4] / "tests" / "offline" / "tarvik-offline"
        self.process = subprocess.Popen([executable], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.requests = []
        assert self.read() == "ready"
        self.enter("awake")

    def read(self):
        return self.process.stdout.readline().rstrip("\n")

    def request(self):
        """What the windows want done next, as a line; waits for it."""
        return self.requests.pop(0) if self.requests else self.read()

    def tell(self, *lines):
        """Lets the machine go through these, and waits until the bus has heard of what follows from them."""
        for line in lines:
            self.process.stdin.write(line + "\n")
            self.process.stdin.flush()
            while (answer := self.read()) != f"entered {line}":
                assert answer and answer != f"unknown {line}", answer or "tarvik-offline has ended"
                self.requests.append(answer)

    def enter(self, scene):
        self.tell(*SCENES[scene])

    def end(self):
        self.process.kill()
        self.process.wait()
        self.process.stdin.close()
        self.process.stdout.close()
