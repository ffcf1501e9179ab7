# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""A window of Tarvik's, steered like a user's and photographed when nothing moves any more."""
import collections
import os
import pathlib
import re
import subprocess

import pyatspi
from gi.repository import Atspi, GLib
from stage import RESTING_PLACES, output, xdotool
from waiting import PATIENCE, eventually
from x_windows import x_windows

NAME = "com.morvanta.TarvikUi"
# A look: what a window is like when nothing about it is special.
PLAIN = {"scale": "1", "reverse": "0", "compositor": "1", "dark": "0", "text": "1", "contrast": "0", "accent": "", "language": ""}
# How versions of AT-SPI and Qt call them.
PUSH_BUTTON = ("push button", "button", "push button menu")
CHECK_BOX = ("check box", "switch")
SLIDER = ("slider",)
LIST_ITEM = ("list item",)
TAB = ("page tab",)


def work_of_others():
    """How often the desktop's processes have begun to run, by thread; None while one of them runs. Taking a picture is work for
    the X server, so that of this one it is only known that it has none."""
    work = {}
    for task in pathlib.Path("/proc").glob("[0-9]*/task/[0-9]*/status"):
        process = int(task.parts[2])
        try:
            status = dict(line.split(":\t", 1) for line in task.read_text(encoding="utf-8").splitlines() if ":\t" in line)
        except OSError:
            continue
        if process == os.getpid() or status["State"].startswith("Z"):
            continue
        if not status["State"].startswith(("S", "I")):
            return None
        if status["Name"] != "Xvfb":
            work[task] = (status["voluntary_ctxt_switches"], status["nonvoluntary_ctxt_switches"])
    return work


class Window:
    """One of the windows, in a UI process that shows no other."""
    # Pixels around it that belong to its picture.
    around = 8

    def __init__(self, executable, look):
        self.is_reversed = look["reverse"] == "1"
        arguments = ["-reverse"] if self.is_reversed else []
        self.process = subprocess.Popen([executable, *arguments], env={
            **os.environ, "QT_SCALE_FACTOR": look["scale"], "LANGUAGE": look["language"], "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
        eventually(lambda: output("busctl", "--user", "call", "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                  "GetConnectionUnixProcessID", "s", NAME) == f"u {self.process.pid}", "the UI process is up")
        self.shown = b""

    def end(self):
        self.process.kill()
        self.process.wait()

    def show(self, method, *arguments):
        subprocess.run(["busctl", "--user", "call", NAME, "/com/morvanta/TarvikUi", f"{NAME}.Windows1", method, *arguments], check=True,
                       stdout=subprocess.DEVNULL, timeout=PATIENCE)

    def windows(self):
        return x_windows("--pid", str(self.process.pid))

    def window(self):
        return eventually(self.windows, "there is a window")[-1]

    def await_focus(self):
        eventually(lambda: output("xdotool", "getwindowfocus", "-f") in self.windows(), "the window has the focus")

    def geometry(self):
        """Left, top, width and height of the content, once it has them."""
        def told():
            shell = output("xwininfo", "-id", self.window())
            found = [re.search(rf"{name}: +(-?\d+)$", shell, re.M)
                     for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]
            # It may have been closed since it was found.
            return all(found) and tuple(int(match[1]) for match in found)

        return eventually(told, "the window has a place")

    def area(self):
        """The whole window and a little of what is around it, as the program that takes the picture wants it."""
        x, y, width, height = self.geometry()
        extents = re.findall(r"\d+", output("xprop", "-id", self.window(), "_NET_FRAME_EXTENTS"))
        left, right, top, bottom = (self.around + int(extent) for extent in (extents or 4 * "0"))
        x, y = x - left, y - top
        return f"{max(x, 0)},{max(y, 0)},{width + left + right + min(x, 0)},{height + top + bottom + min(y, 0)}"

    def photograph(self, file):
        """Whether there is something else to be seen than on the picture before: takes a picture of what is there once every
        process has done what it had to, and two pictures in a row are equal. Or once there is a third one that is equal: a caret
        that blinks never rests."""
        before, seen, often = self.shown, b"", collections.Counter()

        def is_at_rest():
            nonlocal seen
            work, last = work_of_others(), seen
            if work is None:
                return False
            subprocess.run(["scrot", "--overwrite", "--silent", "--autoselect", self.area(), file], check=True, timeout=PATIENCE)
            seen = file.read_bytes()
            often[seen] += 1
            return often[seen] == 3 or seen == last and work_of_others() == work

        eventually(is_at_rest, "the window comes to rest")
        self.shown = seen
        return seen != before

    def leave(self):
        """Moves the pointer away, to where it touches no window."""
        left, top, width, height = self.geometry() if self.windows() else (0, 0, 0, 0)
        xdotool("mousemove", *next(place for place in RESTING_PLACES
                                   if not (left <= place[0] < left + width and top <= place[1] < top + height)))

    def frame(self):
        desktop = pyatspi.Registry.getDesktop(0)
        # What is there now, not what was there when it was first asked for.
        desktop.set_cache_mask(Atspi.Cache.NONE)
        for application in children(desktop):
            application.set_cache_mask(Atspi.Cache.NONE)
            if application.get_process_id() == self.process.pid:
                return next(iter(children(application)), None)
        return None

    def parts(self):
        """All that a screen reader finds in the window, outermost first."""
        try:
            frame = self.frame()
            return list(descendants(frame)) if frame else []
        except GLib.Error:
            # What was there a moment ago is gone.
            return []

    def focused(self):
        return next((part for part in reversed(self.parts()) if part.getState().contains(pyatspi.STATE_FOCUSED)), None)

    def tab_to(self, roles, count=1, key="Tab"):
        """Goes by keys to the so-manieth part of a kind."""
        steps = []
        while count:
            before = self.focused()
            assert len(steps) < 60, f"no {roles[0]} gets the focus, but {steps}"
            xdotool("key", key)
            now = eventually(lambda: (part := self.focused()) and part != before and part, f"{key} moves the focus")
            steps.append(f"{now.getRoleName()} {now.name}")
            count -= now.getRoleName() in roles

    def point_at(self, roles, index=0):
        """Moves the pointer over a part of a kind: of those from the first, 0, to the last, -1."""
        def place():
            found = [part for part in self.parts() if part.getRoleName() in roles and part.getState().contains(pyatspi.STATE_SHOWING)]
            frame = self.frame()
            # In logical pixels, and on a screen that begins elsewhere.
            return found and frame and [part.queryComponent().getExtents(pyatspi.DESKTOP_COORDS) for part in (frame, found[index])]

        frame, part = eventually(place, f"there is a {roles[0]}")
        x, y, width, _height = self.geometry()
        ratio = width / frame.width
        xdotool("mousemove", x + int((part.x - frame.x + part.width / 2) * ratio), y + int((part.y - frame.y + part.height / 2) * ratio))

    def point(self, share_x, share_y):
        """Moves the pointer: shares of the window's width, from where lines begin, and of its height."""
        x, y, width, height = self.geometry()
        xdotool("mousemove", x + int((1 - share_x if self.is_reversed else share_x) * width), y + int(share_y * height))


def children(accessible):
    return [child for child in (accessible.getChildAtIndex(index) for index in range(accessible.childCount)) if child]


def descendants(accessible):
    for child in children(accessible):
        yield child
        yield from descendants(child)
