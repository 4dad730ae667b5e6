# SPDX-License-Identifier: MIT
"""Figures that the benchmark programs measure by themselves."""

import json
import os
import subprocess
import sys

from figure import Figure


class Program:
    """Runs one benchmark program, its cases in random order so that all share what disturbs."""

    def __init__(self, path, repetitions, environment=None):
        command = [path, "--benchmark_format=json", "--benchmark_enable_random_interleaving=true",
                   f"--benchmark_repetitions={repetitions}", "--benchmark_min_time=0.1"]
        run = subprocess.run(command, capture_output=True, text=True, check=True, timeout=600,
                             env=environment or os.environ)
        cases = json.loads(run.stdout)["benchmarks"]
        self._refuse_failures(cases)
        self._medians = {case["run_name"]: case for case in cases
                         if case.get("aggregate_name") == "median"}

    @staticmethod
    def _refuse_failures(cases):
        """A program with a case that gave up ends well all the same."""
        for case in cases:
            if case.get("error_occurred"):
                sys.exit(f"{case['run_name']}: {case['error_message']}: no figures")

    def time(self, name, clock="cpu_time"):
        """Median in microseconds."""
        case = self._medians[name]
        return case[clock] / {"ns": 1000, "us": 1, "ms": 0.001}[case["time_unit"]]


def core_figures(path, repetitions=11):
    program = Program(path, repetitions)
    run, look, sleep = (program.time(f"{name}/manual_time", "real_time")
                        for name in ("runTool", "spawnAndLook", "spawnAndSleep"))
    decode = {peers: program.time(f"decodeAndSortStatus/{peers}")
              for peers in (10, 100, 1000, 10000)}
    alone = program.time("parseJsonAlone/10000")
    profiles = program.time("parseProfiles/10000")
    published = {peers: program.time(f"publishStatus/{peers}/manual_time", "real_time") / 1000
                 for peers in (10, 1000)}
    return [
        Figure("runner, one call : bare posix_spawn, same looking", run / look, "x", 1.5,
               f"{run:.0f} : {look:.0f} us CPU, child included"),
        Figure("runner, one call : bare posix_spawn, blocking wait", run / sleep, "x", None,
               f"{run:.0f} : {sleep:.0f} us CPU; the runner looks without a pause here"),
        Figure("status per peer, 10,000 peers : 10 peers", decode[10000] / decode[10] / 1000, "x",
               1.5, ", ".join(f"{time / peers:.2f}" for peers, time in decode.items())
               + " us a peer at 10, 100, 1,000, 10,000"),
        Figure("status of 10,000 peers : QJsonDocument::fromJson", decode[10000] / alone, "x", 2.0,
               f"{decode[10000] / 1000:.1f} : {alone / 1000:.1f} ms"),
        Figure("10,000 profile lines", profiles / 1000, "ms", None, "parsed"),
        Figure("1,000 devices, from the tool's end to the state", published[1000], "ms", 100,
               f"{published[10]:.1f} ms with 10 devices; looks for the end every millisecond"),
    ]


def panel_figures(path, environment, repetitions=11):
    program = Program(path, repetitions, environment)
    again, window, few, many, popover = (
        program.time(f"{name}/manual_time", "real_time") / 1000
        for name in ("openPanelAgain", "openWindowOfThatSize", "openDevices/10",
                     "openDevices/1000", "openWindowOfPopoverSize"))
    frame = program.time("scrollDevices/1000/manual_time", "real_time") / 1000
    few_kib, many_kib = (program.time(f"heapOfDevices/{devices}/iterations:3/manual_time",
                                      "real_time") for devices in (10, 1000))
    return [
        Figure("panel, opened the second time, to its first frame", again, "ms", 50,
               "from the call that a click makes"),
        Figure("the same : an empty window of its size", again / window, "x", None,
               f"{again:.1f} : {window:.1f} ms"),
        Figure("popover of 1,000 devices, to its first frame", many, "ms", 100,
               f"{few:.1f} ms with 10 devices"),
        Figure("the same : an empty window of its size", many / popover, "x", None,
               f"{many:.1f} : {popover:.1f} ms"),
        Figure("scrolling in it, a frame", frame, "ms", 1000 / 60, "60 frames a second"),
        Figure("heap for its 1,000 devices : for 10", many_kib / few_kib, "x", 2,
               f"{many_kib:.0f} : {few_kib:.0f} KiB"),
    ]
