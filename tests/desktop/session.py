# SPDX-License-Identifier: MIT
"""A user's session: a virtual desktop, the client on it, and a simulated daemon for it to talk to.

    with Session() as session:
        session.open_panel()
        session.click("Use Auth Key...")
        session.wait_for_texts("Connect to Tarnwick Network")

The user works with the mouse, the keys or assistive technology, and what is shown is what assistive
technology reads. What was asked of the daemon comes from the daemon.
"""

import concurrent.futures
import os
import shutil
import subprocess
import time
import unittest

from screen_reader import Role, ScreenReader
from simulated_daemon import SERVER, SimulatedDaemon, programs, quick_world
from virtual_desktop import TIME_LIMIT, Desktop, Rect, bin_dir, comes, stays, wait_until

CLIENT = bin_dir() / "tarnwick-client"
GOOD_KEY = "twkey-harbor-good"
ADDRESS = "100.72.14.3"
PANEL = "Tarnwick Network"
DOUBLE_CLICK = 0.5  # seconds; what is faster counts as one

# As the client's own, in its own view of the file system. The one that has it mounted for a user
# who is not root gives the rights for that away again.
AS_ROOT = ("unshare", "--mount", "sh", "-c", '{mounts} exec "$@"', "sh")
AS_USER = ("unshare", "--user", "--map-root-user", "--mount", "sh", "-c",
           '{mounts} exec unshare --user --map-user={uid} --map-group={gid} -- "$@"', "sh")

# Takes the place of the program that opens a web page, and tells which one.
BROWSER = '#!/bin/sh\nprintf "%s\\n" "$*" >>"$HOME/opened"\n'


def with_mounts(mounts, *line):
    """The line that runs a program with these mounts, a piece of shell, in force for it alone."""
    wrapper = AS_ROOT if os.getuid() == 0 else AS_USER
    text = {"mounts": f"set -e; {mounts};", "uid": os.getuid(), "gid": os.getgid()}
    return [part.format(**text) for part in wrapper] + [str(part) for part in line]


def error_of(line, environment=None):
    """What a program that fails says; "" when it succeeds."""
    run = subprocess.run(line, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                         stderr=subprocess.PIPE, text=True, timeout=TIME_LIMIT, check=False)
    return run.stderr.strip() or f"status {run.returncode}" if run.returncode != 0 else ""


def skip_where_mounts_are_refused():
    """As in a container: nothing that the client could do about it."""
    if error := error_of(with_mounts("mount --bind /opt /opt", "true")):
        raise unittest.SkipTest(f"no mounts here: {error.splitlines()[-1]}")


def at_the_same_time(work, sessions):
    """Does that work in every session; fails with the first failure, when all have ended. Time
    limits make many tests slow, and waiting costs nothing."""
    with concurrent.futures.ThreadPoolExecutor(len(sessions)) as pool:
        futures = [pool.submit(work, *session) for session in sessions]
    for future in futures:
        future.result()


def removal(profile):
    """The command that removes a profile."""
    return ["debug", "localapi", "DELETE", f"/localapi/v0/profiles/{profile}"]


class Session:
    """Everything that one user has before them. Leaving the block ends all of it."""

    def __init__(self, installed=True, mounts="", daemon=True, world=None, faults=(), limits=(),
                 environment=None, **desktop):
        self.desktop = Desktop(**{"tray": "top", **desktop})
        self.opt = self._make_directory("opt")
        self._mounts = "; ".join(filter(None, (f"mount --bind '{self.opt}' /opt", mounts)))
        self._limits = [f"--{limit}" for limit in limits]
        self._environment = environment or {}
        self._starts_daemon = daemon
        self.daemon = SimulatedDaemon(world or quick_world(), faults, self._make_directory("daemon"))
        self.daemon.socket = self.desktop.user_socket
        self.client = self.reader = self.icon = None
        self._last_click = 0.0
        self._install_browser()
        if installed:
            self.install()

    def _make_directory(self, name):
        directory = self.desktop.directory / name
        directory.mkdir()
        return directory

    def _install_browser(self):
        program = self._make_directory("bin") / "xdg-open"
        program.write_text(BROWSER, encoding="utf-8")
        program.chmod(0o755)
        path = f"{program.parent}:{self.desktop.environment.get('PATH', os.defpath)}"
        self.desktop.environment["PATH"] = path

    def install(self):
        """Puts daemon and tool where an installation puts them."""
        directory = self.opt / "tarnwick"
        directory.mkdir()
        daemon, tool = programs()
        shutil.copy2(tool, directory / "tarnwick")
        (directory / "tarnwick-daemon").symlink_to(daemon)

    @property
    def installed_tool(self):
        return self.opt / "tarnwick" / "tarnwick"

    def __enter__(self):
        try:
            self._start()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_):
        self.close()

    def _start(self):
        skip_where_mounts_are_refused()
        if failed := error_of(with_mounts(self._mounts, "true"), self.desktop.environment):
            raise RuntimeError(f"no view of the files of its own: {failed}")
        self.desktop.user_socket.parent.mkdir()
        if self._starts_daemon:
            self.daemon.start()
        self.desktop.__enter__()
        self.reader = ScreenReader(self.desktop)
        self.start_client()

    def start_client(self):
        limits = ["prlimit", *self._limits, "--"] if self._limits else []
        self.client = self.desktop.start(*with_mounts(self._mounts, *limits, CLIENT),
                                         environment=self._environment)
        self.icon = self.desktop.wait_for_icon(self.client)
        return self.client

    def start_again(self):
        """Launches the program once more, as a user does who looks for its panel."""
        return self.desktop.start(CLIENT, environment=self._environment)

    def begin(self, *keys, faults=()):
        """Starts over: a new daemon, logged in with these keys one after the other, no settings, and
        a client that has just been started. Returns the profiles' ids by their networks."""
        self.client.stop()
        self.daemon.stop()
        for path in (self.daemon.state_file, self.desktop.home / ".config/tarnwick"):
            subprocess.run(["rm", "-rf", path], check=True)
        self.daemon.faults = list(faults)
        self.daemon.start()
        for key in keys:
            self.daemon.log_in(key)
        self.daemon.clear_log()
        self.start_client()
        profiles = self.daemon.account()["profiles"]
        return {profile["network"]: profile["id"] for profile in profiles}

    def close(self):
        if self.reader:
            self.reader.close()
        self.daemon.close()
        self.desktop.stop()

    # What is shown

    def windows(self):
        return self.reader.windows(self.client)

    def shown(self):
        return [node for window in self.windows() for node in window.shown()]

    def texts(self):
        """The names of all that is shown, in reading order."""
        return [node.name for node in self.shown() if node.name]

    def find(self, role, name=None, description=None):
        return next((node for window in self.windows()
                     for node in window.find_all(role, name, description)), None)

    def wait_for(self, role, name=None, description=None, seconds=TIME_LIMIT):
        return wait_until(lambda: self.find(role, name, description),
                          f"{role.name} {name!r}", seconds,
                          describe=lambda: f"have {self.texts()}")

    def wait_for_texts(self, *wanted, without=(), seconds=TIME_LIMIT):
        """Waits until all of these are shown, and none of those `without`."""
        last = []

        def holds():
            last[:] = self.texts()
            return set(wanted) <= set(last) and not set(without) & set(last)

        try:
            wait_until(holds, "texts", seconds, step=0.1)
        except TimeoutError:
            raise AssertionError(f"waited for {wanted} without {without}; shown: {last}") from None
        return last

    def panel(self):
        """The open panel; None when it is closed."""
        return next((window for window in self.windows() if window.name == PANEL), None)

    def entries(self):
        """The buttons of the panel, from top to bottom."""
        panel = self.panel()
        buttons = panel.find_all(Role.BUTTON) if panel else []
        return [node.name for node in sorted(buttons, key=lambda node: node.rect[1])]

    # What the user does

    def open_panel(self):
        """Clicks on the icon until the panel stays: a window that is just being closed may hand the
        focus on in between, and the panel closes when it loses it."""
        def is_open():
            if not self.client.is_running():
                raise AssertionError(f"the client has ended: {self.client.output()}")
            if self.panel() is None:
                self.desktop.click(self.icon.center)
            return comes(self.has_focus, 3.0) and stays(self.panel, 0.3)

        wait_until(is_open, "the panel to open and stay")

    def has_focus(self):
        """Whether the panel is open, and it or another window of the client is the active one."""
        return self.panel() and self.desktop.active_window() in self.desktop.windows(self.client)

    def close_panel(self):
        def is_closed():
            if self.panel() is None:
                return True
            self.desktop.key("Escape")
            return comes(lambda: self.panel() is None, 0.5)

        wait_until(is_closed, "Escape to close the panel")

    def click(self, name, role=Role.BUTTON, description=None):
        """A click with the mouse in the middle of a control; never the second of a double click."""
        center = self.settled(role, name, description).center
        time.sleep(max(0.0, self._last_click + DOUBLE_CLICK - time.monotonic()))
        self.desktop.click(center)
        self._last_click = time.monotonic()

    def settled(self, role, name, description=None):
        """That control once its window is where the display has it, and not still on its way."""

        def on_display():
            node = self.wait_for(role, name, description)
            rect = Rect(*node.rect)
            there = any(window.contains(rect)
                        for window in self.desktop.windows(self.client).values())
            again = self.find(role, name, description)
            return node if there and again and again.rect == node.rect else None

        return wait_until(on_display, f"{role.name} {name!r} to stand still")

    def press(self, name, role=Role.BUTTON, description=None):
        """A press by assistive technology."""
        self.reader.press(self.wait_for(role, name, description))

    def refresh(self, *wanted, without=(), seconds=TIME_LIMIT):
        """Asks for the state of things until these texts are shown. A refresh that is under way
        already answers with what it found before. No mouse: the entry may be moving away."""
        deadline = time.monotonic() + seconds
        while True:
            self.open_panel()
            self.press("Refresh")
            try:
                return self.wait_for_texts(*wanted, without=without, seconds=2.0)
            except AssertionError:
                if time.monotonic() > deadline:
                    raise

    # What the daemon and the browser were asked

    def calls(self, *ignored):
        """The commands that the daemon was asked for since the log was cleared, without those."""
        return [entry["arguments"] for entry in self.daemon.log()
                if entry["command"] not in ignored]

    def wait_while(self, shown, condition, what, seconds=TIME_LIMIT):
        """Waits for the condition; `shown(texts)` has to hold all the while and a moment longer,
        as what the daemon has answered shows only then."""

        def holds():
            texts = self.texts()
            if not shown(texts):
                raise AssertionError(f"while waiting for {what}: {texts}")
            return True

        wait_until(lambda: holds() and condition(), what, seconds, step=0.1)
        stays(holds, 1.0, step=0.1)

    def wait_for_calls(self, wanted, seconds=TIME_LIMIT):
        """Waits until the daemon was asked for exactly these commands, polls aside."""
        last = []

        def holds():
            last[:] = self.calls("status", "list")
            return last == wanted

        try:
            wait_until(holds, "calls", seconds, step=0.1)
        except TimeoutError:
            raise AssertionError(f"waited for {wanted}; called: {last}") from None

    def opened(self):
        """The addresses that were opened in the browser."""
        log = self.desktop.home / "opened"
        return log.read_text(encoding="utf-8").splitlines() if log.exists() else []
