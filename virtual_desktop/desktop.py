# SPDX-License-Identifier: MIT
"""A virtual desktop and what runs on it."""

import os
import pathlib
import shutil
import signal
import socket
import tempfile
import time

from virtual_desktop.process import Process
from virtual_desktop.screen import Rect, Screen
from virtual_desktop.waiting import TIME_LIMIT, stays, wait_until

# Anybody may own any name and talk to anybody: the bus is private to one desktop.
BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={socket}</listen>
  {services}
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""
SERVICES = "<servicedir>/usr/share/dbus-1/services</servicedir>"

PANEL_WIDTH = 300


def bin_dir():
    """Where the programs of the build are that is to be tried."""
    built = pathlib.Path(__file__).resolve().parents[1] / "build/debug/bin"
    return pathlib.Path(os.environ.get("TARNWICK_BIN_DIR", built)).resolve()


def accepts_connections(path):
    """Whether somebody listens there: a socket's file is there before."""
    with socket.socket(socket.AF_UNIX) as connection:
        return connection.connect_ex(str(path)) == 0


class Desktop(Screen):
    """An X display with a window manager, two buses and, if asked for, a tray at an edge."""

    def __init__(self, size="1280x800", tray=None, session_bus=True, accessibility=True,
                 environment=None):
        """Without `accessibility` programs serve no assistive technology, and no service is started
        for one that asks for it: what a program costs is then the same on every machine."""
        # Not TMPDIR, which may be too long for the path of a socket.
        super().__init__(pathlib.Path(tempfile.mkdtemp(prefix="tw-desktop-", dir="/tmp")), {})
        self.home = self._make_directory("home")
        self.runtime = self._make_directory("run")
        self.processes = []
        self.tray = self.tray_window = self.window_manager = None
        self._buses = {}
        self._size, self._tray_edge = size, tray
        self._has_session_bus, self._is_accessible = session_bus, accessibility
        self.environment.update(self._base_environment(), **(environment or {}))

    def _make_directory(self, name):
        directory = self.directory / name
        directory.mkdir(mode=0o700)
        return directory

    def _base_environment(self):
        kept = {name: os.environ[name] for name in ("PATH", "LD_LIBRARY_PATH", "ASAN_OPTIONS",
                                                    "LSAN_OPTIONS", "UBSAN_OPTIONS")
                if name in os.environ}
        if self._is_accessible:
            kept["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        return {"LANG": "C.UTF-8", "HOME": str(self.home), "XDG_RUNTIME_DIR": str(self.runtime),
                **kept}

    def __enter__(self):
        try:
            self._start()
        except BaseException:
            self.stop()
            raise
        return self

    def __exit__(self, *_):
        self.stop()

    def _start(self):
        if self._has_session_bus:
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.start_bus("session")
        self.environment["DBUS_SYSTEM_BUS_ADDRESS"] = self.start_bus("system")
        self.environment["DISPLAY"] = self.start_display(
            "Xvfb", "-screen", "0", f"{self._size}x24", "-dpi", 96, "-fbdir", self.directory)
        self.start_window_manager()
        if self._tray_edge:
            self.start_tray(self._tray_edge)

    def stop(self):
        for process in reversed(self.processes):
            process.stop()
        self.processes.clear()
        shutil.rmtree(self.directory, ignore_errors=True)

    # Processes

    def start(self, *line, environment=None, **options):
        """Starts a program on this desktop; it ends with the desktop."""
        log = self.directory / f"{len(self.processes)}-{pathlib.Path(line[0]).name}.log"
        process = Process(line, log, env={**self.environment, **(environment or {})}, **options)
        self.processes.append(process)
        return process

    def start_bus(self, name):
        """Starts a private message bus and returns its address."""
        path = self.runtime / f"{name}-bus"
        configuration = self.directory / f"{name}-bus.conf"
        services = SERVICES if self._is_accessible and name == "session" else ""
        configuration.write_text(BUS_CONFIGURATION.format(socket=path, services=services),
                                 encoding="utf-8")
        self._buses[name] = self.start("dbus-daemon", f"--config-file={configuration}", "--nofork",
                                       "--nopidfile")
        wait_until(lambda: accepts_connections(path), f"the {name} bus",
                   describe=self._buses[name].output)
        return f"unix:path={path}"

    def stop_bus(self, name):
        """As if it had crashed, but without its socket staying behind."""
        self._buses.pop(name).stop(signal.SIGKILL)
        (self.runtime / f"{name}-bus").unlink(missing_ok=True)

    def start_display(self, *line, environment=None):
        """Starts an X server and returns the name of its display."""
        reader, writer = os.pipe()
        self.start(*line, "-displayfd", writer, "-nolisten", "tcp", "-noreset",
                   environment=environment, pass_fds=(writer,))
        os.close(writer)
        with os.fdopen(reader) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise RuntimeError(self.processes[-1].output())
        return f":{number}"

    def start_window_manager(self, *options):
        """In place of one that runs. Returns when it does what it is asked: before that it may leave a
        window that wants to be shown until something else happens."""
        if self.window_manager:
            self.window_manager.stop()
        process = self.window_manager = self.start("openbox", "--sm-disable", *options)
        wanted = "2" if self._number_of_workspaces() == "1" else "1"

        def obeys():
            self.run("xdotool", "set_num_desktops", wanted)
            return self._number_of_workspaces() == wanted

        wait_until(obeys, "the window manager", describe=process.output)
        return process

    def _number_of_workspaces(self):
        return self.run("xdotool", "get_num_desktops").strip()

    def split_screen(self):
        """Makes two screens of one, side by side; returns them."""
        whole = Rect(0, 0, *(int(part) for part in self._size.split("x")))
        half = whole.width // 2
        for name, left, output in (("left", 0, "screen"), ("right", half, "none")):
            self.run("xrandr", "--setmonitor", name,
                     f"{half}/200x{whole.height}/150+{left}+0", output, check=True)
        wait_until(lambda: "Monitors: 2" in self.run("xrandr", "--listmonitors"), "two screens")
        return Rect(0, 0, half, whole.height), Rect(half, 0, half, whole.height)

    def start_tray(self, edge="top", align="right", height=26, tint="0x202020", screen=0):
        """Starts an X tray at that edge; it reserves its room, as panels do."""
        self.tray = self.start(
            "trayer", "--edge", edge, "--align", align, "--widthtype", "request", "--height",
            height, "--transparent", "true", "--alpha", 0, "--tint", tint, "--SetPartialStrut",
            "true", "--SetDockType", "true", "--expand", "true", "--monitor", screen)

        def windows():
            return self.run("xdotool", "search", "--onlyvisible", "--name", "^panel$").split()

        self.tray_window = wait_until(windows, "the tray", describe=self.tray.output)[0]
        return self.tray

    def stop_tray(self):
        self.tray.stop()
        self.tray = None

    # The client

    def start_client(self, *arguments, program=None, environment=None):
        """Starts the client, as built or another copy of it."""
        return self.start(program or bin_dir() / "tarnwick-client", *arguments,
                          environment=environment)

    def copy_client(self, tool):
        """A copy of the client in a directory of its own, beside a tool with that text."""
        directory = pathlib.Path(tempfile.mkdtemp(prefix="client-", dir=self.directory))
        suffix = "linux-arm64" if os.uname().machine in ("aarch64", "arm64") else "linux-amd64"
        client = pathlib.Path(shutil.copy2(bin_dir() / "tarnwick-client", directory))
        for name in (f"tarnwick-{suffix}", f"tarnwick-daemon-{suffix}"):
            (directory / name).write_text(tool, encoding="utf-8")
            (directory / name).chmod(0o755)
        return client

    @property
    def user_socket(self):
        """Where the client looks for a daemon of this desktop's user."""
        return self.home / ".tarnwick" / "tarnwick.sock"

    def icon(self, process):
        """The client's icon in an X tray; None when there is none."""
        return self.find_window(process, lambda rect: 8 <= rect.width <= 64 and rect.height <= 64
                            and rect.x >= 0 and rect.y >= 0)

    def panel(self, process):
        """The open panel; None when it is closed."""
        return self.find_window(process, lambda rect: rect.width >= PANEL_WIDTH)

    def wait_for_icon(self, process, seconds=TIME_LIMIT):
        def describe():
            return self.windows(process), process.output(), self.tray and self.tray.output()

        # Trays move their icons about while they grow.
        return self._wait_until_still(lambda: self.icon(process), "the icon", seconds, describe)

    def wait_for_panel(self, process, seconds=TIME_LIMIT):
        def describe():
            return self.windows(process), process.output()

        return self._wait_until_still(lambda: self.panel(process), "the panel", seconds, describe)

    def wait_for_no_panel(self, process):
        wait_until(lambda: self.panel(process) is None, "the panel to close")
        self.settle()

    def wait_for_menu(self, process):
        """The icon's context menu."""
        def menu():
            return self.find_window(process, lambda rect: 64 < rect.width < PANEL_WIDTH)
        return self._wait_until_still(menu, "the menu")

    def _wait_until_still(self, find, what, seconds=TIME_LIMIT, describe=None):
        """Where that window is as soon as it stays there."""
        rect = None

        def is_still():
            nonlocal rect
            rect = find()
            return rect and stays(lambda: find() == rect, 0.3)

        wait_until(is_still, what, seconds, describe=describe)
        return rect

    def settle(self):
        """Gives the window manager time to hand the focus on, as a user's hand does."""
        time.sleep(0.5)

    def open_window(self, rect):
        """Opens a window of another program there; returns its X id and its place."""
        def ids():
            return self.run("xdotool", "search", "--onlyvisible", "--class", "Xmessage").split()
        known = ids()
        self.start("xmessage", "-geometry",
                   f"{rect.width}x{rect.height}+{rect.x}+{rect.y}", "another window")
        window = wait_until(lambda: next(iter(set(ids()) - set(known)), None), "another window")
        return window, self.geometry(window)
