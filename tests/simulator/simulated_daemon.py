# SPDX-License-Identifier: MIT
"""Starts a simulated daemon in a directory of its own, for any test that needs one.

    with SimulatedDaemon(world=quick_world()) as daemon:
        daemon.log_in("twkey-harbor-good")
        assert daemon.status()["BackendState"] == "Running"

The programs come from the directory named by TARNWICK_BIN_DIR. Everything is bounded in time, and
leaving the block ends the daemon and removes the directory.
"""

import json
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time

SERVER = "https://control.tarnwick.example"
SOURCE = pathlib.Path(__file__).resolve().parents[2]
TIME_LIMIT = 30.0


def programs():
    """The paths of the daemon and of the tool."""
    directory = pathlib.Path(os.environ["TARNWICK_BIN_DIR"])
    (daemon,) = directory.glob("tarnwick-daemon-*-*64")
    return daemon, directory / daemon.name.replace("daemon-", "", 1)


def quick_world(**changes):
    """The built-in world, but connected at once and with peers that stay as they are."""
    world = json.loads((SOURCE / "simulator/world.json").read_text(encoding="utf-8"))
    world.update(startingSeconds=0, churnSeconds=0)
    world.update(changes)
    return world


class SimulatedDaemon:
    """One daemon, which may be stopped and started again, and its tool."""

    def __init__(self, world=None, faults=(), directory=None):
        """`world` is None for the built-in one; a `directory` given is not removed."""
        self._owns_directory = directory is None
        # Not TMPDIR, which may be too long for the path of a socket.
        self.directory = pathlib.Path(directory or tempfile.mkdtemp(prefix="tw-", dir="/tmp"))
        self.socket = self.directory / "run" / "tarnwick.sock"
        self.state_file = self.directory / "state.json"
        self.world_file = self.directory / "world.json"
        self.log_file = self.directory / "daemon.log"
        self.faults = list(faults)
        self.process = None
        self._has_world = world is not None
        if self._has_world:
            self.world_file.write_text(json.dumps(world), encoding="utf-8")

    def __enter__(self):
        try:
            return self.start()
        except BaseException:
            self.close()
            raise

    def __exit__(self, *_):
        self.close()

    def close(self):
        """Ends the daemon, if it runs, and removes the directory."""
        self.stop()
        if self._owns_directory:
            shutil.rmtree(self.directory, ignore_errors=True)

    def command_line(self):
        daemon, _ = programs()
        line = [daemon, f"--state={self.state_file}", f"--socket={self.socket}", "--tun=tarnwick0"]
        if self._has_world:
            line.append(f"--world={self.world_file}")
        return line + ["--no-logs-no-support"] + [f"--fault={fault}" for fault in self.faults]

    def start(self):
        """Starts the daemon and returns when it listens."""
        with open(self.log_file, "ab") as log:
            self.process = subprocess.Popen(
                self.command_line(), stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=log)
        line = self.process.stdout.readline()
        if not line.startswith(b"listening at "):
            self.process.stdout.close()
            self.process.wait(TIME_LIMIT)
            raise RuntimeError(self.log_file.read_text(errors="replace"))
        return self

    def stop(self, with_signal=signal.SIGTERM):
        """Ends the daemon and returns its exit status; None when it does not run."""
        if self.process is None:
            return None
        process, self.process = self.process, None
        process.send_signal(with_signal)
        try:
            status = process.wait(TIME_LIMIT)
        except subprocess.TimeoutExpired:
            process.kill()
            status = process.wait(TIME_LIMIT)
        process.stdout.close()
        return status

    def restart(self):
        self.stop()
        return self.start()

    def tool_line(self, *arguments):
        _, tool = programs()
        return [tool, f"--socket={self.socket}", *arguments]

    def tool(self, *arguments, timeout=TIME_LIMIT):
        """Runs the tool; its output is bytes."""
        return subprocess.run(self.tool_line(*arguments), stdin=subprocess.DEVNULL,
                              capture_output=True, timeout=timeout, check=False)

    def log_in(self, key, host_name=None, server=SERVER):
        extra = () if host_name is None else ("--hostname", host_name)
        return self.tool("login", f"--login-server={server}", "--authkey", key, *extra)

    def status(self):
        """What `status --json` prints, decoded."""
        return json.loads(self.tool("status", "--json").stdout)

    def set_faults(self, *specs):
        """Changes the faults of the running daemon; "none" takes them away."""
        return self.tool("simulator", "fault", *specs)

    def account(self):
        """The daemon's own account of where it stands."""
        return json.loads(self.tool("simulator", "state").stdout)

    def log(self):
        """The daemon's own account of what it was asked, oldest first."""
        return [json.loads(line) for line in self.tool("simulator", "log").stdout.splitlines()]

    def clear_log(self):
        self.tool("simulator", "log", "clear")

    def wait_for(self, condition, seconds=TIME_LIMIT):
        """Waits until `condition(status)` holds; returns that status."""
        deadline = time.monotonic() + seconds
        while True:
            status = self.status()
            if condition(status):
                return status
            if time.monotonic() > deadline:
                raise TimeoutError(f"still {status}")
            time.sleep(0.05)
