#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Builds every object of a build tree that is configured for macOS, and looks at what came out.

usage: apple_objects.py BUILD_DIRECTORY PROCESSOR
"""

import json
import pathlib
import re
import shlex
import struct
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = ("src", "simulator")
MACH_O_64 = 0xFEEDFACF
OBJECT_FILE = 1
PROCESSORS = {"arm64": 0x0100000C, "x86_64": 0x01000007}


def sources(root):
    """Every C++ source that a Mac has to compile, relative to the root.

    A file for Linux only says so in its name. It has a counterpart for macOS beside it, unless its
    header is for Linux only too.
    """
    found = set()
    for folder in FOLDERS:
        for path in (root / folder).rglob("*.cpp"):
            if path.stem.endswith("_linux"):
                twin = path.with_name(path.name.replace("_linux.cpp", "_darwin.cpp"))
                if not twin.exists() and not path.with_suffix(".h").exists():
                    raise SystemExit(f"check-apple: {path} has no counterpart {twin.name}")
                continue
            found.add(path.relative_to(root).as_posix())
    return found


def compiled(path):
    """The sources that are compiled with a file: itself, or those that CMake joined in it."""
    if path.parent.name != "Unity":
        return {path.resolve()}
    joined = re.findall(r'^#include "(.+)"$', path.read_text(), re.M)
    return {pathlib.Path(name).resolve() for name in joined}


def left_out(wanted, commands, root):
    """Those of the wanted sources that no compile command reaches."""
    reached = set().union(*(compiled(pathlib.Path(command["file"])) for command in commands))
    return sorted(source for source in wanted if (root / source).resolve() not in reached)


def output_of(command):
    words = shlex.split(command["command"])
    return words[words.index("-o") + 1]


def wrong_object(path, processor):
    """Why a file is no object for the processor, or ""."""
    header = path.read_bytes()[:16]
    if len(header) < 16:
        return "too short"
    magic, cpu, _, kind = struct.unpack("<4I", header)
    if magic != MACH_O_64:
        return f"magic {magic:#x}"
    if cpu != PROCESSORS[processor]:
        return f"processor {cpu:#x}"
    return "" if kind == OBJECT_FILE else f"kind {kind}"


def main(build, processor):
    build = pathlib.Path(build)
    commands = json.loads((build / "compile_commands.json").read_text())
    wanted = sources(ROOT)
    missing = left_out(wanted, commands, ROOT)
    if missing:
        raise SystemExit("check-apple: the macOS build leaves out " + ", ".join(missing))
    objects = [output_of(command) for command in commands]
    built = subprocess.run(["ninja", "-C", build, "-k", "0", "--quiet", *objects])
    if built.returncode != 0:
        raise SystemExit(f"check-apple: does not compile for {processor}")
    wrong = [(name, why) for name in objects if (why := wrong_object(build / name, processor))]
    if wrong:
        raise SystemExit(f"check-apple: not an object for {processor}: {wrong}")
    print(f"{processor}: {len(wanted)} sources, {len(objects)} objects, no warning")


if __name__ == "__main__":
    main(*sys.argv[1:])
