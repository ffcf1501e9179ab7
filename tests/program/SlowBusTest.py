#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""Tarvik on a bus that takes its time to say who owns a name, as at a busy login."""
import array
import os
import pathlib
import socket
import struct
import subprocess
import tempfile
import threading

import program
from program import TarvikTestCase, eventually, is_held


class HoldingBus:
    """A bus between a program and the real one, which hands on everything except the questions who owns a name: those wait until
    `let_go`. Messages of the D-Bus specification, little-endian, as this machine sends them."""

    HELD = b"GetNameOwner"

    def __init__(self, real):
        self.real = real
        self.directory = tempfile.TemporaryDirectory()
        self.path = pathlib.Path(self.directory.name) / "bus"
        self.held = []
        self.is_holding = True
        self.lock = threading.Lock()
        self.listener = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self.listener.bind(str(self.path))
        self.listener.listen()
        threading.Thread(target=self.accept, daemon=True).start()

    @property
    def address(self):
        return f"unix:path={self.path}"

    def accept(self):
        while True:
            try:
                client, _ = self.listener.accept()
            except OSError:
                return
            server = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
            server.connect(self.real)
            threading.Thread(target=self.hand_on, args=(server, client), daemon=True).start()
            threading.Thread(target=self.hand_on_questions, args=(client, server), daemon=True).start()

    @staticmethod
    def receive(source):
        """Some bytes and the descriptors that came with them."""
        data, ancillary, _, _ = source.recvmsg(65536, socket.CMSG_SPACE(64))
        descriptors = array.array("i")
        for _, _, content in ancillary:
            descriptors.frombytes(content[: len(content) - len(content) % descriptors.itemsize])
        return data, list(descriptors)

    @staticmethod
    def send(target, data, descriptors):
        rights = [(socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", descriptors))] if descriptors else []
        sent = target.sendmsg([data], rights)
        target.sendall(data[sent:])
        for descriptor in descriptors:
            os.close(descriptor)

    def hand_on(self, source, target):
        try:
            while True:
                data, descriptors = self.receive(source)
                if not data:
                    break
                self.send(target, data, descriptors)
        except OSError:
            pass
        target.close()

    def hand_on_questions(self, source, target):
        pending = b""
        has_begun = False
        try:
            while True:
                data, descriptors = self.receive(source)
                if not data:
                    break
                if not has_begun:
                    greeting, has_begun, data = (data if b"BEGIN\r\n" not in data else data[: data.index(b"BEGIN\r\n") + 7],
                                                 b"BEGIN\r\n" in data, data.partition(b"BEGIN\r\n")[2])
                    self.send(target, greeting, [])
                pending += data
                while message := self.first_message(pending):
                    pending = pending[len(message):]
                    self.pass_message(target, message, descriptors)
                    descriptors = []
        except OSError:
            pass
        target.close()

    @staticmethod
    def first_message(data):
        if len(data) < 16:
            return b""
        body, _, fields = struct.unpack_from("<III", data, 4)
        size = 16 + (fields + 7) // 8 * 8 + body
        return data[:size] if len(data) >= size else b""

    def pass_message(self, target, message, descriptors):
        with self.lock:
            if self.is_holding and self.HELD in message:
                self.held.append((target, message, descriptors))
                return
        self.send(target, message, descriptors)

    def let_go(self):
        with self.lock:
            self.is_holding = False
            for target, message, descriptors in self.held:
                self.send(target, message, descriptors)

    def stop(self):
        self.listener.close()
        self.directory.cleanup()


class SlowBusTest(TarvikTestCase):
    # Seconds; whoever waits for an answer gives up after 25.
    LONGEST = 15

    def test_tarvik_answers_and_sees_the_work_while_the_system_bus_does_not_say_who_owns_a_name(self):
        bus = HoldingBus("/run/dbus/system_bus_socket")
        self.addCleanup(bus.stop)
        self.programs.start("claude")
        tarvik = self.start_tarvik(environment={**os.environ, "DBUS_SYSTEM_BUS_ADDRESS": bus.address}, wait=False)
        eventually(lambda: self.answers(), "Tarvik answers", self.LONGEST)
        self.assertEqual(tarvik.status()["activeAgents"], ["Claude Code"])
        self.assertTrue(bus.held)
        self.assertFalse(is_held())
        bus.let_go()
        eventually(is_held, "the work is held once logind is known")

    @staticmethod
    def answers():
        return subprocess.run([program.TOOL, "status"], stdout=subprocess.DEVNULL, check=False).returncode in (0, 1)


if __name__ == "__main__":
    program.main()
