# SPDX-License-Identifier: MIT
"""Hears what programs say of their start, as what draws the pointer does."""

import ctypes
import ctypes.util

from virtual_desktop import wait_until

CLIENT_MESSAGE = 33
PROPERTY_CHANGES = 1 << 22
PIECE = 20  # bytes


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong),
                ("message_type", ctypes.c_ulong), ("format", ctypes.c_int),
                ("data", ctypes.c_long * 5), ("rest", ctypes.c_long * 24)]


class StartupListener:
    """Listens on a display until close()."""

    def __init__(self, display):
        self._x = ctypes.CDLL(ctypes.util.find_library("X11"))
        self._x.XOpenDisplay.restype = ctypes.c_void_p
        self._x.XDefaultRootWindow.restype = self._x.XInternAtom.restype = ctypes.c_ulong
        self._display = ctypes.c_void_p(self._x.XOpenDisplay(display.encode()))
        root = ctypes.c_ulong(self._x.XDefaultRootWindow(self._display))
        self._x.XSelectInput(self._display, root, ctypes.c_long(PROPERTY_CHANGES))
        self._x.XSync(self._display, 0)
        self._begin, self._next = (self._x.XInternAtom(self._display, name, 0) for name in
                                   (b"_NET_STARTUP_INFO_BEGIN", b"_NET_STARTUP_INFO"))
        self._unfinished = {}
        self._heard = []

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._x.XCloseDisplay(self._display)

    def heard(self):
        """The messages so far."""
        event = ClientMessage()
        while self._x.XPending(self._display):
            self._x.XNextEvent(self._display, ctypes.byref(event))
            if event.type == CLIENT_MESSAGE and event.message_type in (self._begin, self._next):
                self._take(event)
        return list(self._heard)

    def _take(self, event):
        if event.message_type == self._begin:
            self._unfinished[event.window] = b""
        offset = ClientMessage.data.offset
        piece = bytes(event)[offset:offset + PIECE]
        text = self._unfinished.get(event.window, b"") + piece
        self._unfinished[event.window] = text
        if b"\0" in piece:
            del self._unfinished[event.window]
            self._heard.append(text.split(b"\0")[0].decode())

    def wait_for(self, *messages):
        wait_until(lambda: self.heard() == list(messages), f"{messages}",
                   describe=lambda: self._heard)
