# SPDX-License-Identifier: MIT
"""A child process with an owner."""

import ctypes
import pathlib
import signal
import subprocess

PARENT_DEATH_SIGNAL = 1  # PR_SET_PDEATHSIG


def _die_with_parent():
    ctypes.CDLL(None).prctl(PARENT_DEATH_SIGNAL, signal.SIGKILL)


class Process(subprocess.Popen):
    """A child whose output goes to a file and that does not outlive its parent."""

    def __init__(self, line, log, **options):
        self.log = pathlib.Path(log)
        with open(self.log, "ab") as output:
            super().__init__([str(part) for part in line], stdin=subprocess.DEVNULL, stdout=output,
                             stderr=subprocess.STDOUT, preexec_fn=_die_with_parent, **options)

    def is_running(self):
        return self.poll() is None

    def stop(self, with_signal=signal.SIGTERM, seconds=5.0):
        """Ends it and returns its exit status."""
        if self.is_running():
            self.send_signal(with_signal)
        try:
            return self.wait(seconds)
        except subprocess.TimeoutExpired:
            self.kill()
            return self.wait(seconds)

    def output(self):
        return self.log.read_text(encoding="utf-8", errors="replace")
