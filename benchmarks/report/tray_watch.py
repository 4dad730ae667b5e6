# SPDX-License-Identifier: MIT
"""Notices within a millisecond that an icon is in the tray: the tray is as wide as its icons."""

import ctypes
import ctypes.util
import time

IDLE_WIDTH = 10


class TrayWatch:
    def __init__(self, display, tray):
        self._x11 = ctypes.CDLL(ctypes.util.find_library("X11") or "libX11.so.6")
        self._x11.XOpenDisplay.restype = ctypes.c_void_p
        self._display = ctypes.c_void_p(self._x11.XOpenDisplay(display.encode()))
        self._tray = ctypes.c_ulong(int(tray))

    def width(self):
        root, border, depth = ctypes.c_ulong(), ctypes.c_uint(), ctypes.c_uint()
        x, y, width, height = ctypes.c_int(), ctypes.c_int(), ctypes.c_uint(), ctypes.c_uint()
        self._x11.XGetGeometry(self._display, self._tray, *map(ctypes.byref, (
            root, x, y, width, height, border, depth)))
        return width.value

    def wait_for_icon(self, seconds=20.0):
        self._wait(lambda: self.width() > IDLE_WIDTH, seconds, "no icon in the tray")

    def wait_for_none(self, seconds=20.0):
        self._wait(lambda: self.width() <= IDLE_WIDTH, seconds, "an icon stays in the tray")

    @staticmethod
    def _wait(condition, seconds, problem):
        end = time.monotonic() + seconds
        while not condition():
            if time.monotonic() > end:
                raise TimeoutError(problem)
            time.sleep(0.0005)
