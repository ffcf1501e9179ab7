# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""The virtual desktop that windows are photographed on."""
import ctypes
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[3]
sys.path.append(str(ROOT / "tests" / "support"))
from waiting import PATIENCE, eventually  # noqa: E402

SIZE = (2560, 1600)
# Where the pointer may rest: so far from the screen's edges that no panel opens there.
RESTING_PLACES = ((300, 800), (2260, 800), (1280, 1450))
FAKE_PORTAL = str(ROOT / "tests" / "ui" / "fake_portal.py")
# The colours of wallpapers, above and below; pictures with the second are small files.
SKY = ((48, 82, 124), (140, 166, 196))
PLAIN_WALL = 2 * ((74, 108, 150),)


def enter(*options):
    """Starts the program anew inside the desktop, which gets the options, unless it runs there already."""
    if "TARVIK_DESKTOP" not in os.environ:
        desktop = str(ROOT / "scripts" / "desktop")
        os.execv(desktop, [desktop, "--size", "x".join(map(str, SIZE)), *options, "--", *sys.argv])


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False, timeout=PATIENCE).stdout.strip()


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True, timeout=PATIENCE)


class Portal:
    """The tests' stand-in for the desktop's settings, told line by line what they are."""

    def __init__(self, *pairs):
        self.process = subprocess.Popen(["/usr/bin/python3", FAKE_PORTAL, *pairs], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.process.stdout.readline()

    def tell(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()
        self.process.stdout.readline()


class Screen:
    """The root window: its wallpaper, and who manages the others."""

    def __init__(self):
        self.x11 = ctypes.CDLL("libX11.so.6")
        for name, result in (("XOpenDisplay", ctypes.c_void_p), ("XCreateGC", ctypes.c_void_p), ("XDefaultRootWindow", ctypes.c_ulong),
                             ("XCreatePixmap", ctypes.c_ulong), ("XInternAtom", ctypes.c_ulong), ("XGetSelectionOwner", ctypes.c_ulong)):
            getattr(self.x11, name).restype = result
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        self.root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))
        self.manager = None

    def atom(self, name):
        return ctypes.c_ulong(self.x11.XInternAtom(self.display, name, 0))

    def hang_wallpaper(self, colours=SKY):
        """Gives the root window a picture in the way that compositors look for; without one, all behind the panel is black."""
        width, height = SIZE
        pixmap = ctypes.c_ulong(self.x11.XCreatePixmap(self.display, self.root, width, height, 24))
        context = ctypes.c_void_p(self.x11.XCreateGC(self.display, pixmap, ctypes.c_ulong(0), None))
        for y in range(height):
            red, green, blue = (round(top + (bottom - top) * y / height) for top, bottom in zip(*colours))
            self.x11.XSetForeground(self.display, context, ctypes.c_ulong(red << 16 | green << 8 | blue))
            self.x11.XFillRectangle(self.display, pixmap, context, 0, y, width, 1)
        identifier = ctypes.c_ulong(pixmap.value)
        kind = ctypes.c_ulong(20)  # PIXMAP
        for name in b"_XROOTPMAP_ID", b"ESETROOT_PMAP_ID":
            self.x11.XChangeProperty(self.display, self.root, self.atom(name), kind, 32, 0, ctypes.byref(identifier), 1)
        self.x11.XSetWindowBackgroundPixmap(self.display, self.root, pixmap)
        self.x11.XClearWindow(self.display, self.root)
        self.x11.XSync(self.display, 0)

    def manage(self, compositor, dark):
        """Lets another window manager take over."""
        if self.manager == (compositor, dark):
            return
        self.manager = (compositor, dark)
        before = self.managed_by()
        subprocess.Popen(["xfwm4", "--replace", f"--compositor={'on' if compositor else 'off'}"],
                         env={**os.environ, "GTK_THEME": "Adwaita:dark" if dark else "Adwaita"},
                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        eventually(lambda: self.managed_by() not in ("", before), "the other window manager is there")
        eventually(lambda: bool(self.x11.XGetSelectionOwner(self.display, self.atom(b"_NET_WM_CM_S0"))) == compositor,
                   f"there is {'a' if compositor else 'no'} compositor")

    @staticmethod
    def double_frames():
        """Gives the frames of windows the size that goes with a scale of 200 %."""
        for name, value in (("theme", "Default-xhdpi"), ("title_font", "Sans Bold 18")):
            subprocess.run(["xfconf-query", "--channel", "xfwm4", "--property", f"/general/{name}", "--create", "--type", "string",
                            "--set", value], check=True, timeout=PATIENCE)

    @staticmethod
    def managed_by():
        """The window by which a window manager tells that it is there."""
        return "".join(re.findall(r"0x[0-9a-f]+", output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK")))


def install_applications(names):
    """Applications to choose from, in the desktop's own home directory."""
    folder = pathlib.Path.home() / ".local" / "share" / "applications"
    folder.mkdir(parents=True, exist_ok=True)
    for name in names:
        entry = f"[Desktop Entry]\nType=Application\nName={name}\nExec=true\n"
        (folder / f"{name.replace(' ', '')}.desktop").write_text(entry, encoding="utf-8")
