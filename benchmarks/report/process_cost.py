# SPDX-License-Identifier: MIT
"""What a running process costs, as the kernel tells it."""

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


def has_child(pid):
    """Whether a child of it runs, or has ended and was not yet looked at."""
    return any(_read(task / "children").strip() for task in _tasks(pid))


class WakeUpCount:
    """Counts the wake-ups of a process, and those among them that no child explains."""

    STEP = 0.02
    MARGIN = 0.15  # around a child's life: the work to start it and to publish what it said

    def __init__(self, pid):
        self._pid = pid
        self._samples = []

    def sample(self):
        self._samples.append((time.monotonic(), wake_ups(self._pid), has_child(self._pid)))

    def total(self):
        return self._samples[-1][1] - self._samples[0][1]

    def without_child(self):
        busy = [moment for moment, _, child in self._samples if child]
        count = 0
        for (_, before, _), (moment, after, _) in zip(self._samples, self._samples[1:]):
            if not any(abs(moment - other) < self.MARGIN for other in busy):
                count += after - before
        return count
