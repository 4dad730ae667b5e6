# SPDX-License-Identifier: MIT
"""What a running process costs, as the kernel reports it."""

import pathlib
import time


def cpu_seconds(pid):
    """CPU time of the process to the nanosecond, all its threads and none of its children."""
    return time.clock_gettime((~pid << 3) | 2)


def pss_kib(pid):
    """Memory of its own and its share of what it has in common with others."""
    text = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text(encoding="ascii")
    return sum(int(line.split()[1]) for line in text.splitlines() if line.startswith("Pss:"))


def private_kib(pid):
    text = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text(encoding="ascii")
    return sum(int(line.split()[1]) for line in text.splitlines()
               if line.startswith(("Private_Clean:", "Private_Dirty:")))


def _tasks(pid):
    return list(pathlib.Path(f"/proc/{pid}/task").iterdir())


def _read(path):
    try:
        return path.read_text(encoding="ascii")
    except OSError:
        return ""  # a thread that has just ended


def wake_ups(pid):
    """How often its threads went to sleep so far, which is how often they were woken."""
    return sum(int(line.split()[1]) for task in _tasks(pid)
               for line in _read(task / "status").splitlines()
               if line.startswith("voluntary_ctxt_switches:"))


class WakeUpCount:
    """Counts the wake-ups of a process, and those among them that belong to no poll."""

    STEP = 0.02
    POLL = 1.4  # a poll is over after one look at the end of each of two runs, and some work
    QUIET = 1.0  # parts one burst of wake-ups from the next

    def __init__(self, pid):
        self._pid = pid
        self._last = wake_ups(pid)
        self._wakes = []  # (when, how many)

    def sample(self):
        now = wake_ups(self._pid)
        if now != self._last:
            self._wakes.append((time.monotonic(), now - self._last))
        self._last = now

    def total(self):
        return sum(count for _, count in self._wakes)

    def beside(self, polls):
        """Those outside that many bursts, the largest ones."""
        bursts, last = [], 0.0
        for when, count in self._wakes:
            if when - last > self.QUIET:
                bursts.append([when, 0])
            if when - bursts[-1][0] < self.POLL:
                bursts[-1][1] += count
            last = when
        return self.total() - sum(sorted((count for _, count in bursts), reverse=True)[:polls])
