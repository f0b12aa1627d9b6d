"""A pointer and a keyboard of a Wayland compositor of the wlroots kind, by the few messages that this takes.

See https://wayland.freedesktop.org/docs/html/ch04.html (the wire), wlr-virtual-pointer-unstable-v1 and
virtual-keyboard-unstable-v1.
"""

import os
import socket
import struct
import time

# In the order in which they come to be.
DISPLAY, REGISTRY, CALLBACK, SEAT, POINTERS, KEYBOARDS, POINTER, KEYBOARD = range(1, 9)
GLOBALS = {SEAT: b"wl_seat", POINTERS: b"zwlr_virtual_pointer_manager_v1",
           KEYBOARDS: b"zwp_virtual_keyboard_manager_v1"}
LEFT, RIGHT, MIDDLE = 0x110, 0x111, 0x112
# As the kernel numbers them.
KEYS = {"Escape": 1, "Tab": 15, "Return": 28, "space": 57}
KEYMAP = b"""xkb_keymap {
  xkb_keycodes { include "evdev+aliases(qwerty)" };
  xkb_types { include "complete" };
  xkb_compat { include "complete" };
  xkb_symbols { include "pc+us+inet(evdev)" };
};
\0"""
XKB_V1 = 1


def text(value):
    """A string as it goes over the wire: its length with the end, and whole words of four bytes."""
    value += b"\0"
    return struct.pack("I", len(value)) + value + b"\0" * (-len(value) % 4)


class WaylandInput:
    """`path`: the compositor's socket. `size`: of all outputs together, logical."""

    def __init__(self, path, size):
        self.size = size
        self._buffer = b""
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.connect(str(path))
        self._send(DISPLAY, 1, struct.pack("I", REGISTRY))
        self._bind_globals()
        self._send(POINTERS, 0, struct.pack("II", SEAT, POINTER))
        self._send(KEYBOARDS, 0, struct.pack("II", SEAT, KEYBOARD))
        self._send_keymap()
        self.move(size[0] // 2, size[1] // 2)

    def close(self):
        self._socket.close()

    def move(self, x, y):
        self._send(POINTER, 1, struct.pack("5I", self._now(), x, y, *self.size))
        self._send(POINTER, 4)

    def press(self, button=LEFT):
        self._button(button, 1)

    def release(self, button=LEFT):
        self._button(button, 0)

    def click(self, x, y, button=LEFT, held=0.08):
        """As a hand does it: the pointer is there before the button, which stays down for a while."""
        self.move(x, y)
        time.sleep(0.05)
        self.press(button)
        time.sleep(held)
        self.release(button)

    def drag(self, start, end):
        """Presses at one place, moves as a hand does, and lets go at another."""
        self.move(*start)
        time.sleep(0.05)
        self.press()
        for step in range(1, 13):
            time.sleep(0.03)
            self.move(*(first + (last - first) * step // 12 for first, last in zip(start, end)))
        time.sleep(0.1)
        self.release()

    def key(self, *names):
        for name in names:
            for state in (1, 0):
                self._send(KEYBOARD, 1, struct.pack("3I", self._now(), KEYS[name], state))

    def _button(self, button, state):
        self._send(POINTER, 2, struct.pack("3I", self._now(), button, state))
        self._send(POINTER, 4)

    def _send_keymap(self):
        file = os.memfd_create("keymap")
        os.write(file, KEYMAP)
        message = struct.pack("4I", KEYBOARD, 16 << 16, XKB_V1, len(KEYMAP))
        socket.send_fds(self._socket, [message], [file])
        os.close(file)

    @staticmethod
    def _now():
        return int(time.monotonic() * 1000) & 0xFFFFFFFF

    def _send(self, sender, request, arguments=b""):
        self._socket.sendall(struct.pack("II", sender, (8 + len(arguments)) << 16 | request) + arguments)

    def _bind_globals(self):
        """All is told once the callback of a request to say so is."""
        self._send(DISPLAY, 0, struct.pack("I", CALLBACK))
        names = {}
        while True:
            sender, event, content = self._receive()
            if sender == CALLBACK:
                break
            if sender != REGISTRY or event != 0:
                continue
            for own, interface in GLOBALS.items():
                if content[8:].startswith(interface + b"\0"):
                    names[own] = struct.unpack_from("I", content)[0]
        for own, interface in GLOBALS.items():
            self._send(REGISTRY, 0, struct.pack("I", names[own]) + text(interface) + struct.pack("II", 1, own))

    def _receive(self):
        while len(self._buffer) < 8 or len(self._buffer) < struct.unpack_from("II", self._buffer)[1] >> 16:
            got = self._socket.recv(4096)
            if not got:
                raise RuntimeError("the compositor has gone")
            self._buffer += got
        sender, head = struct.unpack_from("II", self._buffer)
        content, self._buffer = self._buffer[8:head >> 16], self._buffer[head >> 16:]
        return sender, head & 0xFFFF, content
