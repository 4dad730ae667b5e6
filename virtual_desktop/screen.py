# SPDX-License-Identifier: MIT
"""What is on a display, and a hand on its mouse and keys."""

import collections
import pathlib
import subprocess

from virtual_desktop.waiting import TIME_LIMIT


class Rect(collections.namedtuple("Rect", "x y width height")):
    """A rectangle of the screen, in its pixels."""

    @property
    def center(self):
        return self.x + self.width // 2, self.y + self.height // 2

    @property
    def right(self):
        return self.x + self.width

    @property
    def bottom(self):
        return self.y + self.height

    def contains(self, other):
        return (self.x <= other.x and self.y <= other.y
                and other.right <= self.right and other.bottom <= self.bottom)

    def intersects(self, other):
        return (self.x < other.right and other.x < self.right
                and self.y < other.bottom and other.y < self.bottom)


class Screen:
    """Looks at the display that `environment` names, and works it. What needs a file of its own puts
    it into `directory`."""

    def __init__(self, directory, environment):
        self.directory = directory
        self.environment = environment

    def run(self, *line, check=False, seconds=TIME_LIMIT):
        """Runs a program to its end and returns what it printed."""
        return subprocess.run([str(part) for part in line], env=self.environment, timeout=seconds,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, check=check).stdout.decode()

    def windows(self, process):
        """The visible windows of a process, by their X ids."""
        windows = self.run("xdotool", "search", "--all", "--onlyvisible", "--pid", process.pid,
                           "--name", "").split()
        found = {window: self.geometry(window) for window in windows if not self._is_desktop(window)}
        return {window: rect for window, rect in found.items() if rect}

    def _is_desktop(self, window):
        """Whether it is below all others, as those that draw the desktop are."""
        return "_TYPE_DESKTOP" in self.run("xprop", "-id", window, "_NET_WM_WINDOW_TYPE")

    def geometry(self, window):
        """Where a window is without its shadow; None when it is gone."""
        values = dict(line.split("=") for line in self.run(
            "xdotool", "getwindowgeometry", "--shell", window).split() if "=" in line)
        if "WIDTH" not in values:
            return None
        x, y, width, height = (int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT"))
        left, right, top, bottom = self.shadow_margins(window) or (0, 0, 0, 0)
        return Rect(x + left, y + top, width - left - right, height - top - bottom)

    def shadow_margins(self, window):
        """The left, right, top and bottom margin that hold a window's shadow; None without one."""
        text = self.run("xprop", "-id", window, "_GTK_FRAME_EXTENTS")
        return tuple(int(part) for part in text.split("=")[1].split(",")) if "=" in text else None

    def find_window(self, process, condition):
        """Where the first such window of a process is; None when there is none."""
        return next((rect for rect in self.windows(process).values() if condition(rect)), None)

    def active_window(self):
        """The X id of the window that has the focus; "" when none has."""
        return self.run("xdotool", "getactivewindow").strip()

    # Mouse, keyboard, pictures

    def click(self, point, button=1):
        self.run("xdotool", "mousemove", *point, "click", button, check=True)

    def move_mouse(self, point):
        self.run("xdotool", "mousemove", *point, check=True)

    def key(self, *keys):
        self.run("xdotool", "key", *keys, check=True)

    def type(self, text):
        self.run("xdotool", "type", "--delay", 5, text, check=True)

    def screenshot(self, path, rect=None):
        """Saves a picture of the screen, or of a part of it, as PNG."""
        crop = ("-crop", f"{rect.width}x{rect.height}+{rect.x}+{rect.y}", "+repage") if rect else ()
        self.run("import", "-window", "root", *crop, path, check=True)
        return pathlib.Path(path)

    def pixels(self, picture, rect):
        """The colours of a part of a picture, row by row."""
        data = self.directory / "pixels.rgb"
        self.run("convert", picture, "-crop", f"{rect.width}x{rect.height}+{rect.x}+{rect.y}",
                 "-depth", 8, data, check=True)
        values = data.read_bytes()
        return [values[i:i + 3] for i in range(0, len(values), 3)]

    def brightness(self, rect):
        """Darkest and lightest grey in a part of the screen, from 0 to 1."""
        picture = self.screenshot(self.directory / "brightness.png", rect)
        text = self.run("convert", picture, "-colorspace", "gray", "-format",
                        "%[fx:minima] %[fx:maxima]", "info:", check=True)
        return tuple(float(part) for part in text.split())
