# SPDX-License-Identifier: MIT
"""Waiting for something to happen, within a limit."""

import itertools
import time

TIME_LIMIT = 60.0  # seconds; what takes that long on a busy machine will not happen
LEAST_LOOKS = 10


def wait_until(condition, what, seconds=TIME_LIMIT, step=0.05, describe=None):
    """Returns the first true value of `condition()`; a failure is explained by `describe()`. However
    slow the machine, the condition is looked at a few times."""
    deadline = time.monotonic() + seconds
    for look in itertools.count(1):
        value = condition()
        if value:
            return value
        if look >= LEAST_LOOKS and time.monotonic() > deadline:
            why = f": {describe()}" if describe else ""
            raise TimeoutError(f"waited {seconds} s for {what}{why}")
        time.sleep(step)


def comes(condition, seconds):
    """Whether `condition()` holds within so long."""
    try:
        return bool(wait_until(condition, "", seconds))
    except TimeoutError:
        return False


def stays(condition, seconds, step=0.05):
    """Whether `condition()` holds now and for so long."""
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        if not condition():
            return False
        time.sleep(step)
    return True
