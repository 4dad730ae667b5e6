# SPDX-License-Identifier: MIT
"""A desktop that nobody sees: display, window manager, tray and message bus, all of them private."""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import time

PATIENCE = 20.0
TRAY_HEIGHT = 28

# No service is started by its name: what a program finds on its bus is the same on every machine.
BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>unix:path={}</listen><policy context="default">
<allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/>
</policy></busconfig>
"""


def wait_for(condition, what):
    """The first true value of `condition()`."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.05)
    raise TimeoutError(what)


class VirtualDesktop:
    """Use in a `with` block; leaving it ends every process that was started through it."""

    def __init__(self):
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="tw-", dir="/tmp"))
        self._processes = []
        kept = {key: os.environ[key] for key in ("PATH", "USER", "LOGNAME") if key in os.environ}
        self.environment = kept | {
            "HOME": str(self.home), "LANG": "C.UTF-8", "XDG_RUNTIME_DIR": str(self.home / "run"),
            "XDG_CONFIG_HOME": str(self.home / "config"), "XDG_CACHE_HOME": str(self.home / "cache"),
            "DBUS_SESSION_BUS_ADDRESS": f"unix:path={self.home}/bus"}

    def __enter__(self):
        try:
            self._start_all()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        while self._processes:
            self.end(self._processes[-1])
        shutil.rmtree(self.home, ignore_errors=True)

    def _start_all(self):
        (self.home / "run").mkdir(mode=0o700)
        (self.home / "bus.conf").write_text(BUS.format(self.home / "bus"), encoding="utf-8")
        self.start("dbus-daemon", "--nofork", f"--config-file={self.home}/bus.conf")
        wait_for((self.home / "bus").exists, "the message bus")
        read_end, write_end = os.pipe()
        self.start("Xvfb", "-displayfd", str(write_end), "-screen", "0", "1280x800x24",
                   "-nolisten", "tcp", pass_fds=(write_end,))
        os.close(write_end)
        with os.fdopen(read_end) as answer:
            self.environment["DISPLAY"] = ":" + answer.readline().strip()
        self.start("openbox")
        wait_for(lambda: "window id" in self._output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"),
                 "the window manager")
        self.start("trayer", "--edge", "top", "--align", "right", "--widthtype", "request",
                   "--height", str(TRAY_HEIGHT))
        self.tray = wait_for(self._find_tray, "the tray")

    def _find_tray(self):
        """Its window, which may be hidden while there is nothing in it."""
        for window in self.xdotool("search", "--class", "trayer").split():
            if f"HEIGHT={TRAY_HEIGHT}\n" in self.xdotool("getwindowgeometry", "--shell", window):
                return window
        return None

    def _output(self, *command):
        return subprocess.run(command, env=self.environment, capture_output=True, text=True,
                              check=False, timeout=PATIENCE).stdout

    def start(self, *command, **options):
        """A process in this desktop, its output thrown away."""
        process = subprocess.Popen(
            [str(word) for word in command], env=self.environment, stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options)
        self._processes.append(process)
        return process

    def end(self, process):
        self._processes.remove(process)
        process.terminate()
        try:
            process.wait(5)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()

    def xdotool(self, *arguments):
        return self._output("xdotool", *arguments)

    def tray_geometry(self):
        """x, y, width and height."""
        text = self.xdotool("getwindowgeometry", "--shell", self.tray)
        return [int(re.search(rf"^{key}=(-?\d+)$", text, re.M)[1])
                for key in ("X", "Y", "WIDTH", "HEIGHT")]

    def click_tray(self):
        x, y, width, height = self.tray_geometry()
        self.xdotool("mousemove", str(x + width // 2), str(y + height // 2), "click", "1")

    def windows_of(self, process):
        """The visible windows of a process, the icon aside."""
        found = self.xdotool("search", "--onlyvisible", "--pid", str(process.pid)).split()
        return [window for window in found if self._width(window) > 100]

    def _width(self, window):
        match = re.search(r"WIDTH=(\d+)", self.xdotool("getwindowgeometry", "--shell", window))
        return int(match[1]) if match else 0
