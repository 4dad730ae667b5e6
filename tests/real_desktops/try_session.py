# SPDX-License-Identifier: MIT
"""Tries the client in one session: try_session.py NAME FOLDER leaves its row of the matrix and its
pictures in the folder; try_session.py --packages NAME prints what to install first."""

import pathlib
import shutil
import subprocess
import sys
import time

from checks import CHECKS, WITHOUT_STATUS_AREA
from sessions import SESSIONS
from trial import No, Trial


YES, NO, CANNOT = "yes", "**no**", "cannot"


def one_check(check, trial, limit):
    """Returns the cell, and what was measured or found instead. `limit`: words of what is found where
    it cannot hold; None where it can."""
    time.sleep(1)  # a hand needs as long; clicks that come sooner may count as one
    try:
        measured = check(trial)
        return (YES, measured) if limit is None else (NO, f"holds, though it was thought it cannot: {measured}")
    except No as found:
        return CANNOT if limit is not None and limit in str(found) else NO, str(found)
    except (OSError, TimeoutError, subprocess.SubprocessError) as problem:
        return NO, f"{type(problem).__name__}: {problem}"[:300]


def all_checks(trial):
    cells = {}
    for name in CHECKS if trial.shell.has_status_area else WITHOUT_STATUS_AREA:
        check = CHECKS[name]
        began = time.monotonic()
        cells[name] = one_check(check, trial, trial.shell.known_limits.get(name))
        mark, text = cells[name]
        print(f"  {name}: {mark}: {text} ({time.monotonic() - began:.1f} s)", flush=True)
        if trial.icon is None and trial.shell.has_status_area:
            break
    return cells


def row(name, cells):
    marks = [cells[check][0] if check in cells else "-" for check in CHECKS]
    return f"| {name} | " + " | ".join(marks) + " |\n"


def try_session(name, folder):
    _, shell_class = SESSIONS[name]
    shell = shell_class()
    began = time.monotonic()
    try:
        try:
            shell.__enter__()
        except (OSError, TimeoutError, subprocess.SubprocessError) as problem:
            (folder / "row").write_text(f"| {name} |" + " not run |" * len(CHECKS) + "\n", encoding="utf-8")
            (folder / "reasons").write_text(f"- {name} could not be run: {str(problem)[:1500]}\n", encoding="utf-8")
            raise
        print(f"{name}: {shell.version()}, up after {time.monotonic() - began:.0f} s", flush=True)
        with Trial(shell, folder) as trial:
            cells = all_checks(trial)
    finally:
        for process in shell.processes:
            shutil.copy(process.log, folder)
        shell.stop()
    (folder / "row").write_text(row(name, cells), encoding="utf-8")
    (folder / "reasons").write_text("".join(
        f"- {name}, {check}: {text}\n" for check, (mark, text) in cells.items() if mark != YES),
        encoding="utf-8")
    return all(mark != NO for mark, _ in cells.values())


def main():
    if sys.argv[1] == "--packages":
        print(SESSIONS[sys.argv[2]][1].packages)
    elif sys.argv[1] == "--list":
        for name, (suite, _) in SESSIONS.items():
            print(name, suite)
    else:
        folder = pathlib.Path(sys.argv[2]).resolve()
        folder.mkdir(parents=True, exist_ok=True)
        sys.exit(0 if try_session(sys.argv[1], folder) else 1)


if __name__ == "__main__":
    main()
