# SPDX-License-Identifier: MIT
"""Figures of the client as a whole, against a minimal tray program in the same desktop."""

import collections
import os
import pathlib
import re
import shutil
import statistics
import subprocess
import sys
import time

import process_cost
from figure import Figure
from simulated_daemon import SimulatedDaemon, programs, quick_world
from tray_watch import TrayWatch
from virtual_desktop import Desktop, wait_until

POLL_INTERVAL = 5.0

Use = collections.namedtuple("Use", "name goal entries")
Entry = collections.namedtuple("Entry", "number window")  # counted from the panel's last
PANEL = Use("the panel was opened and closed", 1.30, [None])
WINDOWS = [  # text fields and title bars need more of Qt
    Use("a check for updates", 1.35, [Entry(3, "Software Update")]),
    # "Disconnect" first, in whose place the entry for the window comes
    Use("the auth-key window", 1.35, [Entry(5, None), Entry(5, "Connect to Network")]),
]

SHELL_LOOP = 'while :; do "$0" --socket="$1" status --json >/dev/null 2>&1; sleep 5; done'


class ClientCost:
    """Measures in a desktop with a daemon that is connected to a network of a few peers."""

    def __init__(self, bin_dir, runs, polls):
        os.environ["TARNWICK_BIN_DIR"] = str(bin_dir)
        self._bin_dir, self._runs, self._polls = pathlib.Path(bin_dir), runs, polls

    def figures(self):
        self._refuse_beside_the_real_thing()
        with Desktop(tray="top", accessibility=False) as desktop:
            desktop.user_socket.parent.mkdir()
            (desktop.home / "daemon").mkdir()
            with SimulatedDaemon(world=quick_world(), directory=desktop.home / "daemon") as daemon:
                daemon.log_in("twkey-harbor-good")
                daemon.wait_for(lambda status: status["BackendState"] == "Running")
                desktop.user_socket.symlink_to(daemon.socket)
                self._desktop, self._daemon = desktop, daemon
                self._watch = TrayWatch(desktop.environment["DISPLAY"], desktop.tray_window)
                self._simulator = programs()
                self._client, self._minimal = self._copies(desktop.home / "bin")
                return self._memory() + self._starting() + self._tool_run() + self._polling()

    @staticmethod
    def _refuse_beside_the_real_thing():
        for path in ("/var/run/tarnwick.sock", "/opt/tarnwick/tarnwick"):
            if os.path.exists(path):
                sys.exit(f"{path} exists: the client would use it")

    def _copies(self, directory):
        """Of the programs and of Qt's libraries, of which other programs that run meanwhile would
        take their share."""
        directory.mkdir()
        for program in ("tarnwick-client", "minimal_tray", *self._simulator):
            shutil.copy2(self._bin_dir / program, directory)
        libraries = subprocess.run(["ldd", directory / "tarnwick-client"], capture_output=True,
                                   text=True, check=True).stdout
        qt = pathlib.Path(re.search(r"=> (\S+/libQt6Core\.so\.6)", libraries).group(1)).parent
        for library in qt.glob("libQt6*.so.6"):
            shutil.copy2(library, directory)
        self._desktop.environment["LD_LIBRARY_PATH"] = str(directory)
        return directory / "tarnwick-client", directory / "minimal_tray"

    def _memory(self):
        figures = self._memory_of_uses("", [PANEL, *WINDOWS])
        self._desktop.environment["QT_SCALE_FACTOR"] = "2"
        figures += self._memory_of_uses(" at 2x", [PANEL])
        del self._desktop.environment["QT_SCALE_FACTOR"]
        return figures

    def _memory_of_uses(self, scale, uses):
        rounds = [[self._memory_once(self._minimal), *(self._memory_once(self._client, use)
                                                       for use in uses)]
                  for _ in range(self._runs)]

        def figure(name, goal, values):
            kib, minimal = (statistics.median(column) for column in zip(*values))
            return Figure(f"PSS, {name}{scale} : minimal tray program", kib / minimal, "x", goal,
                          f"{kib / 1024:.1f} : {minimal / 1024:.1f} MiB")

        return [
            figure("idle, panel never opened", 1.10, [(r[1][0], r[0][0]) for r in rounds]),
            *(figure(f"after {use.name}", use.goal, [(r[i][1], r[0][0]) for r in rounds])
              for i, use in enumerate(uses, 1)),
        ]

    def _starting(self):
        """One start is a few hundredths of a second and scatters by a fifth: many are needed."""
        def cpu_to_the_icon(program):
            self._watch.wait_for_none()
            process = self._start(program)
            self._watch.wait_for_icon()
            cpu = process_cost.cpu_seconds(process.pid)
            process.stop()
            return cpu

        rounds = [(cpu_to_the_icon(self._minimal), cpu_to_the_icon(self._client))
                  for _ in range(5 * self._runs)]
        minimal, client = (statistics.median(pair[i] for pair in rounds) for i in (0, 1))
        return [Figure("CPU to the icon : minimal tray program", client / minimal, "x", 1.25,
                       f"{client * 1000:.1f} : {minimal * 1000:.1f} ms")]

    def _start(self, *line):
        return self._desktop.start(*line, bound=False)

    def _memory_once(self, program, use=None):
        """Starts a program alone and measures it at rest and after use, and ends it."""
        self._watch.wait_for_none()
        self._daemon.clear_log()
        process = self._start(program)
        self._watch.wait_for_icon()
        time.sleep(2.0)
        result = [process_cost.pss_kib(process.pid)]
        if program == self._client and not self._polls_asked():
            sys.exit("the client did not reach the daemon: its figures would mean nothing")
        if use:
            self._use(process, use)
            result.append(process_cost.pss_kib(process.pid))
            self._daemon.tool("up")
        process.stop()
        return result

    def _polls_asked(self):
        """How many polls the daemon has answered since its log was cleared."""
        return sum(entry["command"] == "status" for entry in self._daemon.log())

    def _use(self, process, use):
        """Opens the panel and what is to be chosen in it, and closes all."""
        icon = self._desktop.wait_for_icon(process)
        for entry in use.entries:
            self._desktop.click(icon.center)
            self._desktop.wait_for_panel(process)
            time.sleep(0.7)
            if entry:
                self._desktop.key(*["Up"] * entry.number, "Return")
                time.sleep(0.7)
            if entry and entry.window:
                wait_until(lambda title=entry.window: self._shows(title), entry.window)
                self._desktop.key("Escape")
            else:
                self._desktop.click(icon.center)
            self._desktop.wait_for_no_panel(process)
        time.sleep(1.0)

    def _shows(self, title):
        return self._desktop.run("xdotool", "search", "--onlyvisible", "--name", title) != ""

    def _tool_run(self):
        """The simulator's own speed, which all figures of polls lean on."""

        def seconds():
            begin = time.perf_counter()
            self._daemon.tool("status", "--json")
            return time.perf_counter() - begin

        best = min(seconds() for _ in range(20))
        return [Figure("simulated tool, one status, best of 20", best * 1000, "ms", 20)]

    def _polling(self):
        """All at once: they share whatever else the machine does meanwhile."""
        tool, socket = self._simulator[1], self._desktop.user_socket
        minimal, client = self._start(self._minimal), self._start(self._client)
        loop = self._start("sh", "-c", SHELL_LOOP, tool, socket)
        bare = self._start(self._bin_dir / "bare_poll", tool, f"--socket={socket}", "status",
                           "--json")
        time.sleep(POLL_INTERVAL / 2)  # between the polls of all
        self._daemon.clear_log()
        before = {p.pid: process_cost.cpu_seconds(p.pid) for p in (client, loop, bare)}
        counts = {p.pid: process_cost.WakeUpCount(p.pid) for p in (client, minimal)}
        end = time.monotonic() + self._polls * POLL_INTERVAL
        while time.monotonic() < end:
            for count in counts.values():
                count.sample()
            time.sleep(process_cost.WakeUpCount.STEP)
        asked = self._polls_asked()
        if abs(asked - 3 * self._polls) > min(3, self._polls - 1):
            sys.exit(f"{asked} polls reached the daemon, not {self._polls} of each")
        used = {pid: process_cost.cpu_seconds(pid) - begin for pid, begin in before.items()}
        for process in (bare, loop, client, minimal):
            process.stop()
        a_poll, of_loop, at_least = (
            used[process.pid] / self._polls * 1000 for process in (client, loop, bare))
        per_minute = 60 / (self._polls * POLL_INTERVAL)
        total, idle = counts[client.pid].total(), counts[client.pid].beside(self._polls)
        return [
            Figure("CPU a poll, children's not counted", a_poll, "ms", 2.0),
            Figure("CPU a poll : a loop that runs, decodes, compares", a_poll / at_least, "x", 2.0,
                   f"{a_poll:.2f} : {at_least:.2f} ms"),
            Figure("the same : a shell loop that throws all away", a_poll / of_loop, "x", None,
                   f"{a_poll:.2f} : {of_loop:.2f} ms"),
            Figure("wake-ups a minute between polls", idle * per_minute, "", 0),
            Figure("wake-ups a minute in all", total * per_minute, "", None,
                   f"{total / self._polls:.1f} a poll; minimal tray program "
                   f"{counts[minimal.pid].total() * per_minute:.0f} a minute"),
        ]
