# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""A pointer and a keyboard for a Wayland compositor that has none, by the protocol extensions wlr-virtual-pointer and
virtual-keyboard. They are there as long as the VirtualSeat lives."""
import array
import os
import pathlib
import socket
import struct
import tempfile
import time

KEYMAP = (b'xkb_keymap { xkb_keycodes { include "evdev" }; xkb_types { include "complete" }; '
          b'xkb_compat { include "complete" }; xkb_symbols { include "pc+us" }; };\0')
# linux/input-event-codes.h
KEYS = {"Escape": 1, "Tab": 15, "Return": 28, "space": 57, "Up": 103, "Down": 108}
LEFT_BUTTON = 0x110
DISPLAY, REGISTRY = 1, 2


def string(text):
    data = text.encode() + b"\0"
    return struct.pack("=I", len(data)) + data + bytes(-len(data) % 4)


class VirtualSeat:
    def __init__(self, width, height, has_pointer=True):
        """The size is that of all screens together."""
        self.size = (width, height)
        self.last_id = REGISTRY
        display = pathlib.Path(os.environ.get("XDG_RUNTIME_DIR", ""), os.environ["WAYLAND_DISPLAY"])
        self.socket = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self.socket.connect(str(display))
        self.send(DISPLAY, 1, struct.pack("=I", REGISTRY))
        names = self.read_globals()
        seat = self.bind(names, "wl_seat")
        if has_pointer:
            self.pointer = self.create(self.bind(names, "zwlr_virtual_pointer_manager_v1"), seat)
        self.keyboard = self.create(self.bind(names, "zwp_virtual_keyboard_manager_v1"), seat)
        with tempfile.TemporaryFile() as keymap:
            keymap.write(KEYMAP)
            keymap.flush()
            self.send(self.keyboard, 0, struct.pack("=II", 1, len(KEYMAP)), [keymap.fileno()])
        self.sync()

    def close(self):
        self.socket.close()

    def move(self, x, y):
        self.send(self.pointer, 1, struct.pack("=IIIII", self.now(), x, y, *self.size))
        self.send(self.pointer, 4)
        self.sync()

    def click(self, x, y):
        self.move(x, y)
        for state in (1, 0):
            self.send(self.pointer, 2, struct.pack("=III", self.now(), LEFT_BUTTON, state))
            self.send(self.pointer, 4)
        self.sync()

    def press(self, *keys):
        for key in keys:
            for state in (1, 0):
                self.send(self.keyboard, 1, struct.pack("=III", self.now(), KEYS[key], state))
        self.sync()

    def now(self):
        return int(time.monotonic() * 1000) & 0xFFFFFFFF

    def new_id(self):
        self.last_id += 1
        return self.last_id

    def bind(self, names, interface):
        new = self.new_id()
        self.send(REGISTRY, 0, struct.pack("=I", names[interface]) + string(interface) + struct.pack("=II", 1, new))
        return new

    def create(self, manager, seat):
        new = self.new_id()
        self.send(manager, 0, struct.pack("=II", seat, new))
        return new

    def send(self, target, opcode, arguments=b"", files=()):
        message = struct.pack("=IHH", target, opcode, 8 + len(arguments)) + arguments
        ancillary = [(socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", files))] if files else []
        self.socket.sendmsg([message], ancillary)

    def receive(self):
        """The next event: who sent it, which one, its arguments."""
        target, opcode, size = struct.unpack("=IHH", self.socket.recv(8, socket.MSG_WAITALL))
        return target, opcode, self.socket.recv(size - 8, socket.MSG_WAITALL) if size > 8 else b""

    def sync(self, on_event=lambda *event: None):
        """Returns when the compositor has handled everything so far."""
        callback = self.new_id()
        self.send(DISPLAY, 0, struct.pack("=I", callback))
        while (event := self.receive())[0] != callback:
            if event[:2] == (DISPLAY, 0):
                raise ConnectionError(event[2][12:].rstrip(b"\0").decode())
            on_event(*event)

    def read_globals(self):
        names = {}

        def take(target, opcode, arguments):
            if (target, opcode) == (REGISTRY, 0):
                name, length = struct.unpack_from("=II", arguments)
                names[arguments[8:8 + length - 1].decode()] = name
        self.sync(take)
        return names
