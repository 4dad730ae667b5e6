#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Prints every figure with its goal: report.py BIN_DIR [--quick]. Fails when a goal is missed."""

import sys

from client_cost import ClientCost
from figure import print_table
from programs import core_figures, panel_figures
from virtual_desktop import Desktop


def main():
    bin_dir, quick = sys.argv[1], "--quick" in sys.argv
    figures = core_figures(f"{bin_dir}/tarnwick_benchmark_core", repetitions=5 if quick else 11)
    with Desktop(tray="top", accessibility=False) as desktop:
        figures += panel_figures(f"{bin_dir}/tarnwick_benchmark_panel", desktop.environment,
                                 repetitions=5 if quick else 11)
    figures += ClientCost(bin_dir, runs=3 if quick else 7, polls=3 if quick else 36).figures()
    print_table(figures)
    return any(figure.verdict == "MISSED" for figure in figures)


if __name__ == "__main__":
    sys.exit(main())
