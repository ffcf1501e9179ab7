# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""sway.py COMMAND...: runs a command in the session of a Wayland compositor, sway, that draws on screens in memory.

For tests in this language, a Sway is such a session with a bar; the environment of this process becomes that of a program in
it."""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

from virtual_seat import VirtualSeat

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from waiting import PATIENCE as DEADLINE, eventually  # noqa: E402

NOBODY = 65534
BAR_HEIGHT = 30
CONFIGURATION = f"""
output HEADLESS-1 resolution 1280x800 position 0 0 bg #2b4a63 solid_color
output HEADLESS-2 resolution 1024x768 position 1280 0 bg #2b4a63 solid_color
focus_follows_mouse no
xwayland disable
bar {{
    id bar
    position @BAR@
    height {BAR_HEIGHT}
    icon_theme Adwaita
    swaybar_command true
}}
"""
SCREENS = (1280 + 1024, 800)


class Sway:
    def __init__(self, bar="top", bars=""):
        """`bars` are more of them, as they stand in sway's configuration."""
        self.processes = []
        self.seat = None
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="sway-"))
        (self.directory / "config").write_text(CONFIGURATION.replace("@BAR@", bar) + bars, encoding="utf-8")
        # sway does not run for root, and its clients may be anybody's who reaches its sockets.
        ordinary = {"user": NOBODY, "group": NOBODY, "extra_groups": []} if os.geteuid() == 0 else {}
        for path in (self.directory, self.directory / "config"):
            os.chown(path, ordinary.get("user", -1), -1)
        os.environ.update(XDG_SESSION_TYPE="wayland", XDG_CURRENT_DESKTOP="sway", SWAYSOCK=str(self.directory / "ipc"),
                          WAYLAND_DISPLAY=str(self.directory / "wayland-1"))
        self.log = open(self.directory / "log", "wb")
        self.start("sway", "--config", str(self.directory / "config"), stdout=self.log, stderr=self.log, **ordinary,
                   env={**os.environ, "XDG_RUNTIME_DIR": str(self.directory), "HOME": str(self.directory), "WLR_BACKENDS": "headless",
                        "WLR_HEADLESS_OUTPUTS": "2", "WLR_LIBINPUT_NO_DEVICES": "1", "WLR_RENDERER": "pixman"})
        try:
            eventually(self.is_up, lambda: f"sway is up: {self.said()}")
            self.seat = VirtualSeat(*SCREENS)
        except BaseException:
            self.close()
            raise

    def start(self, *command, **options):
        process = subprocess.Popen(command, **options)
        self.processes.append(process)
        return process

    def start_bar(self, name="bar", **options):
        self.start("swaybar", "--bar_id", name, stdout=self.log, stderr=self.log, **options)

    def close(self):
        if self.seat:
            self.seat.close()
        for process in reversed(self.processes):
            process.kill()
            process.wait()
        self.log.close()
        shutil.rmtree(self.directory)

    def said(self):
        """The end of what sway has written."""
        return (self.directory / "log").read_text(encoding="utf-8")[-2000:]

    def is_up(self):
        assert self.processes[0].poll() is None, self.said()
        return pathlib.Path(os.environ["WAYLAND_DISPLAY"]).exists() and self.tell("-t", "get_version")

    def tell(self, *words):
        """Whether sway did as it was told."""
        return subprocess.run(["swaymsg", "--quiet", *words], check=False, timeout=DEADLINE, stderr=subprocess.DEVNULL).returncode == 0

    def ask(self, what):
        return json.loads(subprocess.run(["swaymsg", "--raw", "-t", what], check=True, capture_output=True, timeout=DEADLINE).stdout)

    def rows(self, screen="HEADLESS-1", scale=1):
        """What the screen shows: the bytes of its rows of pixels, red, green and blue."""
        picture = subprocess.run(["grim", "-s", str(scale), "-t", "ppm", "-o", screen, "-"], check=True, capture_output=True,
                                 timeout=DEADLINE).stdout
        _magic, width, height, _rest = picture.split(maxsplit=3)
        pixels = picture[-3 * int(width) * int(height):]
        return [pixels[start:start + 3 * int(width)] for start in range(0, len(pixels), 3 * int(width))]


if __name__ == "__main__":
    session = Sway()
    try:
        status = subprocess.run(sys.argv[1:], check=False).returncode
    finally:
        session.close()
    sys.exit(status)
