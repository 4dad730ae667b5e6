# SPDX-License-Identifier: MIT
"""What scripts/demo shows once the client is built: demonstration.py in_session|on_virtual_desktop
FOLDER. A Mac's own Python 3.9 runs it too."""

import os
import pathlib
import shutil
import signal
import subprocess
import sys

from simulated_daemon import SimulatedDaemon, programs, quick_world
from virtual_desktop import PANEL_WIDTH, Desktop, Process, Rect, bin_dir, wait_until

KEYS = ("twkey-fernwood-good", "twkey-kite-good", "twkey-harbor-good")
SYSTEM_SOCKET = pathlib.Path("/var/run/tarnwick.sock")
INSTALL_DIRECTORIES = ("/opt/tarnwick", "/Library/Application Support/Tarnwick")
SCREEN = Rect(0, 0, 1280, 800)
LEAST_HEIGHT = 200  # of a panel that shows a connection
LEAST_COLORS = 16  # with smooth letters there are many more


def refuse_beside_the_real_thing():
    if SYSTEM_SOCKET.exists():
        sys.exit(f"demo: {SYSTEM_SOCKET} exists: this machine has a daemon of its own.")
    for directory in INSTALL_DIRECTORIES:
        if pathlib.Path(directory, "tarnwick-daemon").exists():
            sys.exit(f"demo: a daemon is installed in {directory}; the client would use it.")


class DemoDaemon(SimulatedDaemon):
    """Knows three networks to switch between, and is connected to the last one."""

    def __init__(self, folder, socket, world=None):
        super().__init__(world, directory=folder)
        self.socket = socket
        if self.tool("status").returncode == 0:
            sys.exit(f"demo: a daemon answers at {socket} already; not touching it.")
        self.state_file.unlink(missing_ok=True)

    def connect(self):
        for key in KEYS:
            self.log_in(key, host_name="demo-laptop")
        self.wait_for(lambda status: status["BackendState"] == "Running")

    def wait_for_poll(self):
        """Until the client knows what the daemon's state is now."""
        self.clear_log()
        wait_until(lambda: any(entry["command"] == "status" for entry in self.log()), "a poll")


def show_in_session(folder):
    with DemoDaemon(folder, pathlib.Path.home() / ".tarnwick" / "tarnwick.sock") as daemon:
        daemon.connect()
        # Settings of its own: the demo's networks are not to replace what your client remembers.
        client = Process([bin_dir() / "tarnwick-client"], folder / "client.log",
                         env={**os.environ, "XDG_CONFIG_HOME": str(folder / "config")})
        try:
            print("demo: the icon is in your status area; click it. The daemon obeys the tool as "
                  f"well:\n        {programs()[1]} --socket={daemon.socket} down\n"
                  "      To log in, use a key such as twkey-harbor-jonas. Ctrl-C ends the demo.",
                  flush=True)
            client.wait()
        finally:
            client.stop()


def check_panel(before, after):
    """Refuses a part of the screen that is not a panel with something in it now. Takes the colours
    of its pixels before and after it was opened."""
    changed = sum(old != new for old, new in zip(before, after)) / len(after)
    colors = len(set(after))
    if changed < 0.9 or colors < LEAST_COLORS:
        raise RuntimeError(f"the picture shows no panel: {changed:.0%} of it changed, {colors} colours")


def take_picture(desktop, path, rect, before):
    """Takes a picture once that part of the screen differs from `before` and stands still; returns
    what the part looks like then."""
    last = [None]

    def is_painted():
        last.append(desktop.pixels(desktop.screenshot(path), rect))
        return last[-1] == last[-2] != before

    wait_until(is_painted, f"something new on the screen, see {path}", step=0.2)
    print(f"demo: {path}", flush=True)
    return last[-1]


def take_pictures(desktop, daemon, folder):
    daemon.connect()
    desktop.run("xsetroot", "-solid", "#3a5a78")
    client = desktop.start_client()
    icon = desktop.wait_for_icon(client)
    daemon.wait_for_poll()
    first = desktop.screenshot(folder / "1-icon.png")
    print(f"demo: {first}", flush=True)

    desktop.click(icon.center)
    panel = desktop.wait_for_panel(client)
    if panel.width != PANEL_WIDTH or panel.height < LEAST_HEIGHT or not SCREEN.contains(panel):
        raise RuntimeError(f"the panel is not where and how it should be: {panel}")
    closed = desktop.pixels(first, panel)
    connected = take_picture(desktop, folder / "2-connected.png", panel, closed)
    check_panel(closed, connected)

    daemon.tool("down")
    daemon.wait_for_poll()
    take_picture(desktop, folder / "3-disconnected.png", panel, connected)


def show_on_virtual_desktop(folder):
    for old in (*folder.glob("*.png"), *folder.glob("[0-9]-*.log")):
        old.unlink()
    # As bare as it comes: no session bus.
    with Desktop(tray="top", session_bus=False, accessibility=False) as desktop, \
            DemoDaemon(folder, desktop.user_socket, quick_world()) as daemon:
        try:
            take_pictures(desktop, daemon, folder)
        finally:
            for log in desktop.directory.glob("*.log"):
                shutil.copy(log, folder)
    print("demo: no display here, so that was a virtual one; with a desktop the client stays.")


def main():
    where, folder = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    for number in (signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, lambda number, _: sys.exit(128 + number))
    refuse_beside_the_real_thing()
    try:
        {"in_session": show_in_session, "on_virtual_desktop": show_on_virtual_desktop}[where](folder)
    except KeyboardInterrupt:
        sys.exit(130)
    except (OSError, RuntimeError, subprocess.SubprocessError) as problem:
        sys.exit(f"demo: {problem}; what the programs said is in {folder}")


if __name__ == "__main__":
    main()
