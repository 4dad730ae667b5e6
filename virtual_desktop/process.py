# SPDX-License-Identifier: MIT
"""A child process with an owner."""

import pathlib
import shutil
import signal
import subprocess
import sys

from virtual_desktop.waiting import TIME_LIMIT

STOP_LIMIT = 20.0  # seconds, for one that may not want to end

# No code of ours between fork and exec: with threads about, Python's may wait there for ever.
BOUND = ("setpriv", "--pdeathsig", "KILL", "--")


class Process(subprocess.Popen):
    """A child whose output goes to a file and, on Linux, that does not outlive its parent."""

    def __init__(self, line, log, bound=True, **options):
        """Not `bound`, it may outlive its parent, but not even an exec is added to what it costs."""
        line = [str(part) for part in line]
        path = (options.get("env") or {}).get("PATH")
        if not shutil.which(line[0], path=path):
            raise FileNotFoundError(f"{line[0]} is not installed")
        self.log = pathlib.Path(log)
        with open(self.log, "ab") as output:
            super().__init__([*(BOUND if bound and sys.platform == "linux" else ()), *line],
                             stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.STDOUT,
                             **options)
        self.args = line

    def is_running(self):
        return self.poll() is None

    def wait_for_end(self):
        """Returns its exit status."""
        return self.wait(TIME_LIMIT)

    def stop(self, with_signal=signal.SIGTERM):
        """Ends it and returns its exit status."""
        if self.is_running():
            self.send_signal(with_signal)
        try:
            return self.wait(STOP_LIMIT)
        except subprocess.TimeoutExpired:
            self.kill()
            return self.wait(STOP_LIMIT)

    def output(self):
        return self.log.read_text(encoding="utf-8", errors="replace")
